// Who competes over a picture.
#pragma once

#include "frame/active_kernels.hpp"
#include "measure.hpp"

namespace bench {

// A function of another library that does what a case does.
struct Peer {
    std::string name;
    bool onlyBt601;  // for want of other matrices; it makes no difference to the time
    std::function<void()> prepare;
    std::function<void(const Descriptor&)> convert;
};

// Empty where the library has no such conversion or was not there when this program was built.
#if ORVA_BENCH_LIBYUV
std::vector<Peer> libyuvPeers(const Case& c);
#else
inline std::vector<Peer> libyuvPeers(const Case&) { return {}; }
#endif
#if ORVA_BENCH_SWSCALE
std::vector<Peer> swscalePeers(const Case& c);
#else
inline std::vector<Peer> swscalePeers(const Case&) { return {}; }
#endif

inline constexpr const char *memoryName = "memcpy", *libyuvName = "libyuv",
                            *libyuvSsse3Name = "libyuv SSSE3", *swscaleName = "swscale";

// Which of our kernels take part.
struct Selection {
    bool allTables = false;     // else only the best one
    bool generalForms = false;  // of the tables whose memory accesses are their own
};

const char* bestTable();

// As many bytes moved as the frame's conversion reads and writes.
Competitor memoryCopy(Size size, const FrameMemory& frame);

// A case's export with both kinds of stores.
void addKernels(std::vector<Competitor>& list, const std::string& name,
                const orva::KernelTable& table, const Case& c, Size size, Form form);

std::vector<Competitor> competitors(const Case& c, Size size, const Selection& selection);

// All of them as single benchmarks under Google Benchmark, with its options.
int runGoogleBenchmark(std::vector<char*> arguments, Ring& ring, bool warm);

}  // namespace bench
