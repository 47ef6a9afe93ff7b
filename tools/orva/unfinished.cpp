// The output file that is not finished yet: what ends the program from outside removes it.
#include "unfinished.hpp"

#include <array>
#include <atomic>
#include <cstddef>

#if defined(_WIN32)
#include <windows.h>
#else
#include <csignal>
#include <initializer_list>
#include <unistd.h>
#endif

namespace orva::tool {
namespace {

using Character = std::filesystem::path::value_type;

constexpr std::size_t longestPath = 4095;  // the systems open no longer ones

std::atomic<const Character*> unfinished = nullptr;
static_assert(std::atomic<const Character*>::is_always_lock_free);

#if defined(_WIN32)

// The next handler ends the program, and with it goes the last handle of the deleted file.
BOOL WINAPI removeUnfinished(DWORD) {
    if (const Character* const path = unfinished) {
        DeleteFileW(path);
    }
    return FALSE;
}

bool handleEnds() { return SetConsoleCtrlHandler(removeUnfinished, TRUE) != 0; }

#else

// Ends the program by the same signal in the end, so that its parent sees how it ended.
void removeUnfinished(int signal) {
    if (const Character* const path = unfinished) {
        unlink(path);
    }
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

bool handleEnds() {
    for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGPIPE, SIGALRM, SIGVTALRM, SIGPROF,
                             SIGUSR1, SIGUSR2, SIGXCPU, SIGXFSZ}) {
        struct sigaction action;
        sigaction(signal, nullptr, &action);
        if (action.sa_handler == SIG_DFL) {
            std::signal(signal, removeUnfinished);
        }
    }
    return true;
}

#endif

}  // namespace

void setUnfinished(const std::filesystem::path& path) {
    [[maybe_unused]] static const bool handled = handleEnds();
    // Two by turns, never freed: a handler may be reading the path that is replaced.
    static std::array<std::array<Character, longestPath + 1>, 2> paths;
    static std::size_t turn = 0;
    unfinished = nullptr;
    if (const auto& text = path.native(); !text.empty() && text.size() <= longestPath) {
        turn = 1 - turn;
        paths[turn][text.copy(paths[turn].data(), longestPath)] = 0;
        unfinished = paths[turn].data();
    }
}

}  // namespace orva::tool
