// What a report begins with.
#include "conditions.hpp"

#include "text.hpp"

#include <sstream>

namespace bench {

std::string conditions(const std::string& samples, bool reuse, const Ring& ring) {
    std::ostringstream out;
    out << processorName() << text(", last-level cache %zu MB, ", cacheBytes() >> 20)
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
