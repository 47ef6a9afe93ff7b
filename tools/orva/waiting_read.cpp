// A thread that may be waiting for input, and can be woken.
#include "waiting_read.hpp"

#if defined(_WIN32)
#include <windows.h>
#else
#include <csignal>
#endif

namespace orva::tool {

#if defined(_WIN32)

WaitingRead::WaitingRead()
    : thread(OpenThread(THREAD_TERMINATE, FALSE, GetCurrentThreadId()), CloseHandle) {}

void WaitingRead::interrupt() const { CancelSynchronousIo(thread.get()); }

#else

WaitingRead::WaitingRead() : thread(pthread_self()) {}

void WaitingRead::interrupt() const {
    struct sigaction action = {};
    action.sa_handler = [](int) {};  // without SA_RESTART: the read ends with EINTR
    sigaction(SIGURG, &action, nullptr);
    pthread_kill(thread, SIGURG);
}

#endif

}  // namespace orva::tool
