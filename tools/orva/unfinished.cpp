// The output file that is not finished yet: SIGHUP, SIGINT and SIGTERM remove it.
#include "unfinished.hpp"

#if defined(_WIN32)

void orva::tool::setUnfinished(const char*) {}

#else

#include <atomic>
#include <csignal>
#include <initializer_list>
#include <unistd.h>

namespace orva::tool {
namespace {

std::atomic<const char*> unfinished = nullptr;
static_assert(std::atomic<const char*>::is_always_lock_free);

// Ends the program by the same signal in the end, so that its parent sees how it ended.
void removeUnfinished(int signal) {
    if (const char* const name = unfinished) {
        unlink(name);
    }
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

bool handleSignals() {
    for (const int signal : {SIGHUP, SIGINT, SIGTERM}) {
        if (std::signal(signal, SIG_IGN) != SIG_IGN) {
            std::signal(signal, removeUnfinished);
        }
    }
    return true;
}

}  // namespace

void setUnfinished(const char* name) {
    [[maybe_unused]] static const bool handled = handleSignals();
    unfinished = name;
}

}  // namespace orva::tool

#endif
