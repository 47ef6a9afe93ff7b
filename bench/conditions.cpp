// What a report begins with.
#include "conditions.hpp"

#include "text.hpp"

#include <ctime>
#include <iomanip>
#include <sstream>

namespace bench {

static const char* compilerName() {
#if defined(__clang__)
    return "Clang " __clang_version__;
#else
    return "GCC " __VERSION__;
#endif
}

std::string conditions(const std::string& samples, bool reuse, const Ring& ring) {
    const std::time_t now = std::time(nullptr);
    std::ostringstream out;
    out << std::put_time(std::gmtime(&now), "%F, ") << processorName()
        << text(", last-level cache %zu MB, %s, ", cacheBytes() >> 20, compilerName())
        << sizeof(void*) * 8 << "-bit build. One thread on one core; medians of " << samples
        << ".\n"
        << (reuse ? "Every frame is converted again and again and stays in the cache if it fits.\n"
                  : text("Frames of 320x64 stay in the cache; larger ones come from a ring of %zu "
                         "MB and have left it.\n",
                         ring.bytes() >> 20))
        << "Ratios are times: below 1 is faster than the other.\n";
    for (const auto& [name, has] : {std::pair("libyuv", ORVA_BENCH_LIBYUV != 0),
                                    std::pair("swscale", ORVA_BENCH_SWSCALE != 0)})
        if (!has)
            out << name << " was not there when this program was built.\n";
    return out.str();
}

}  // namespace bench
