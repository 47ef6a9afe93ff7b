// A thread that may be waiting for input, and can be woken.
#pragma once

#if defined(_WIN32)
#include <memory>
#else
#include <pthread.h>
#endif

namespace orva::tool {

// Stands for the thread that made it, which must not end before its last interrupt().
class WaitingRead {
public:
    WaitingRead();

    // Makes a read fail that the thread waits in. Nothing happens if it does not wait yet.
    void interrupt() const;

private:
#if defined(_WIN32)
    std::shared_ptr<void> thread;
#else
    pthread_t thread;
#endif
};

}  // namespace orva::tool
