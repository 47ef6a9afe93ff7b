// The same measurements as single benchmarks of Google Benchmark, for a look at a few of them:
//
//     orva-bench --benchmark_filter=UYVY16I_BGR32I/1920x1080
#include "competitors.hpp"

#include <benchmark/benchmark.h>

namespace bench {

static void run(benchmark::State& state, const Competitor& competitor, Ring& ring, bool warm) {
    const size_t slot = competitor.frame.bytes();
    const bool reuse = warm || competitor.size == inCache;
    competitor.prepare();
    for (auto _ : state)
        competitor.convert(ring.next(slot, reuse));
    const double frames = double(state.iterations());
    const double pixels = double(competitor.size.width) * competitor.size.height;
    state.SetBytesProcessed(int64_t(frames * double(competitor.frame.moved)));
    state.counters["time/pixel"] = benchmark::Counter(
        frames * pixels, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

int runGoogleBenchmark(std::vector<char*> arguments, Ring& ring, bool warm) {
    for (const Case& c : cases(""))
        for (const Size size : {inCache, pal, hd, uhd})
            for (const Competitor& competitor :
                 competitors(c, size, {.allTables = true, .generalForms = true})) {
                std::string name = c.name() + "/" + label(competitor.size) + "/" + competitor.name;
                name += competitor.streaming ? "/streaming" : "";
                name += competitor.form == Form::offset ? "/general" : "";
                benchmark::RegisterBenchmark(name.c_str(),
                                             [competitor, &ring, warm](benchmark::State& state) {
                                                 run(state, competitor, ring, warm);
                                             });
            }
    int count = int(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

}  // namespace bench
