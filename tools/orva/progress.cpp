// A line on the terminal that counts frames.
#include "progress.hpp"

#include <cstdio>

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

namespace orva::tool {
namespace {

bool errorIsTerminal() {
#if defined(_WIN32)
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(STDERR_FILENO) != 0;
#endif
}

}  // namespace

Progress::Progress(std::optional<std::uint64_t> total)
    : total(total), terminal(errorIsTerminal()), last(std::chrono::steady_clock::now()) {}

void Progress::show(std::uint64_t done) {
    const auto now = std::chrono::steady_clock::now();
    if (!terminal || total == 1 || now - last < std::chrono::milliseconds(100)) {
        return;
    }
    last = now;
    shown = true;
    std::fprintf(stderr, "\rframe %llu", static_cast<unsigned long long>(done));
    if (total) {
        std::fprintf(stderr, " of %llu", static_cast<unsigned long long>(*total));
    }
    std::fflush(stderr);
}

Progress::~Progress() {
    if (shown) {
        std::fprintf(stderr, "\r%40s\r", "");
    }
}

}  // namespace orva::tool
