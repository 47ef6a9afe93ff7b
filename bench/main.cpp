// orva-bench: how fast the conversions are, compared with memory and with other libraries.
#include "targets.hpp"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>

using namespace bench;

namespace {

constexpr const char* usage = R"(orva-bench [OPTION...]
  --full            all tables of kernels, sizes and forms of frames
  --targets         judge the speeds as well; fails if one is too low
  --hd              1920x1080 only, all tables
  --accuracy        only the table of the arithmetic's errors
  --filter TEXT     conversions whose names contain TEXT
  --compare FILE    with --targets: report.csv of another build
  --streaming       only the table of streaming against ordinary stores over sizes; of the other
                    options only --rounds and --cpu count
  --warm            one frame that stays in the cache instead of a ring of frames
  --rounds N        samples of each time (15)
  --cpu N           the core to run on
  --out FOLDER      where report.md, report.csv and report.svg go (.)
  --benchmark_...   run single measurements under Google Benchmark; its options
)";

struct Options {
    bool help = false, full = false, targets = false, onlyHd = false, accuracy = false,
         streaming = false;
    std::string filter, compare, out = ".";
    Method method;
    int cpu = -1;
    std::vector<char*> ofGoogleBenchmark;
};

int number(const char* option, const std::string& value) try {
    return std::stoi(value);
} catch (const std::logic_error&) {
    throw std::invalid_argument(std::string(option) + " needs a number, not '" + value + "'");
}

Options parse(int argc, char** argv) {
    Options options;
    std::string rounds = "15", cpu = "-1";
    const std::pair<std::string_view, bool*> switches[] = {
        {"--full", &options.full},         {"--targets", &options.targets},
        {"--hd", &options.onlyHd},         {"--accuracy", &options.accuracy},
        {"--warm", &options.method.reuse}, {"--streaming", &options.streaming},
        {"--help", &options.help}};
    const std::pair<std::string_view, std::string*> values[] = {{"--filter", &options.filter},
                                                                {"--compare", &options.compare},
                                                                {"--out", &options.out},
                                                                {"--rounds", &rounds},
                                                                {"--cpu", &cpu}};
    for (int i = 1; i < argc; ++i) {
        const std::string_view name = argv[i];
        bool known = name.starts_with("--benchmark");
        if (known)
            options.ofGoogleBenchmark.push_back(argv[i]);
        for (const auto& [option, isSet] : switches)
            if (name == option)
                known = *isSet = true;
        for (const auto& [option, value] : values)
            if (name == option && i + 1 < argc) {
                known = true;
                *value = argv[++i];
                break;
            }
        if (!known)
            throw std::invalid_argument("unknown option " + std::string(name) + "\n" + usage);
    }
    options.method.rounds = std::max(1, number("--rounds", rounds));
    options.cpu = number("--cpu", cpu);
    return options;
}

std::vector<Row> measureAll(const Options& options, Ring& ring) {
    std::vector<Size> sizes{inCache, hd, uhd};
    if (options.full)
        sizes = {inCache, pal, hd, uhd};
    if (options.onlyHd)
        sizes = {hd};

    const auto list = cases(options.filter);
    std::vector<Row> rows;
    for (const Case& c : list)
        for (const Size size : sizes) {
            if (isatty(STDERR_FILENO))
                std::cerr << text("\r\33[K%zu of %zu: %s %s", rows.size() + 1,
                                  list.size() * sizes.size(), c.name().c_str(),
                                  label(size).c_str());
            const bool hdTargets = options.targets && size == hd;
            Row row{c, size,
                    competitors(c, size,
                                {.allTables = options.full || size == hd,
                                 .generalForms = options.full || hdTargets})};
            Method method = options.method;
            method.reuse |= size == inCache;
            measure(row.competitors, ring, method);
            for (Competitor& competitor : row.competitors)
                competitor.prepare = nullptr, competitor.convert = nullptr;
            rows.push_back(std::move(row));
        }
    if (isatty(STDERR_FILENO))
        std::cerr << "\r\33[K";
    return rows;
}

std::string conditions(const Options& options, const Ring& ring) {
    std::ostringstream out;
    out << processorName() << text(", last-level cache %zu MB, ", cacheBytes() >> 20)
        << sizeof(void*) * 8 << "-bit build. One thread on one core; medians of "
        << options.method.rounds << " samples.\n"
        << (options.method.reuse
                ? "Every frame is converted again and again and stays in the cache if it fits.\n"
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

int report(const Options& options, Ring& ring) {
    const OtherBuild other = options.compare.empty() ? OtherBuild() : OtherBuild(options.compare);
    const std::vector<Row> rows = measureAll(options, ring);
    if (rows.empty())
        throw std::invalid_argument("no conversion's name contains '" + options.filter + "'");

    std::ostringstream markdown;
    writeMarkdown(markdown, rows, options.full, conditions(options, ring));
    bool met = true;
    if (options.targets) {
        markdown << "\n";
        met = writeTargets(markdown, rows, other);
    }
    if (options.filter.empty() && !options.onlyHd) {
        markdown << "\n";
        writeAccuracy(markdown);
    }
    std::cout << markdown.str();

    const std::filesystem::path folder(options.out);
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "report.md") << markdown.str();
    std::ofstream csv(folder / "report.csv"), chart(folder / "report.svg");
    writeCsv(csv, rows);
    writeChart(chart, rows);
    return met ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) try {
    Options options = parse(argc, argv);
    if (options.help) {
        std::cout << usage;
        return 0;
    }
    if (options.accuracy) {
        writeAccuracy(std::cout);
        return 0;
    }
    if (!pinTo(options.cpu))
        std::cerr << "orva-bench: cannot stay on one core\n";
    Ring ring;
    if (options.streaming) {
        writeStreaming(std::cout, ring, options.method.rounds);
        return 0;
    }
    std::vector<char*>& others = options.ofGoogleBenchmark;
    if (others.empty())
        return report(options, ring);
#if ORVA_BENCH_GOOGLE_BENCHMARK
    others.insert(others.begin(), argv[0]);
    return runGoogleBenchmark(others, ring, options.method.reuse);
#else
    throw std::runtime_error("built without Google Benchmark");
#endif
} catch (const std::exception& error) {
    std::cerr << "orva-bench: " << error.what() << "\n";
    return 2;
}
