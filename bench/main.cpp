// orva-bench: how fast the conversions are, compared with memory and with other libraries.
#include "bytes.hpp"
#include "competitors.hpp"
#include "conditions.hpp"
#include "pair_report.hpp"
#include "progress.hpp"
#include "targets.hpp"
#include "text.hpp"

#include <charconv>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>

using namespace bench;

namespace {

constexpr const char* usage = R"(orva-bench [OPTION...]
  --full            all tables of kernels, sizes and forms of frames
  --targets         judge the speeds as well; one that is too low is a line of the report, no error
  --hd              1920x1080 only, all tables
  --convert         orva::convert instead of the exports: every pair of formats, against the
                    exports; judged too; of the other options only --filter, --warm, --rounds,
                    --cpu and --out count
  --accuracy        only the table of the arithmetic's errors
  --filter TEXT     conversions whose names contain TEXT
  --compare FILE    with --targets: report.csv of another build
  --streaming       only the table of streaming against ordinary stores over sizes; of the other
                    options only --rounds and --cpu count
  --warm            one frame that stays in the cache instead of a ring of frames
  --rounds N        samples of each time (15)
  --cpu N           the core to run on
  --out FOLDER      where report.md, report.csv and report.svg go (.), or convert.md and
                    convert.csv
  --benchmark_...   run single measurements under Google Benchmark; its options
Ends with status 2 if an option cannot be used, bytes of what is measured are wrong or a report cannot be
written.
)";

struct Options {
    bool help = false, full = false, targets = false, onlyHd = false, convert = false,
         accuracy = false, streaming = false;
    std::string filter, compare, out = ".";
    Method method;
    int cpu = -1;
    std::vector<char*> ofGoogleBenchmark;
};

int number(const char* option, const std::string& value, int least) {
    int number = 0;
    const char* const end = value.data() + value.size();
    const auto [parsed, error] = std::from_chars(value.data(), end, number);
    if (error != std::errc() || parsed != end || number < least)
        throw std::invalid_argument(std::string(option) + " needs a number from " +
                                    std::to_string(least) + " on, not '" + value + "'");
    return number;
}

Options parse(int argc, char** argv) {
    Options options;
    std::string rounds = "15", cpu = "-1";
    const std::pair<std::string_view, bool*> switches[] = {
        {"--full", &options.full},         {"--targets", &options.targets},
        {"--hd", &options.onlyHd},         {"--accuracy", &options.accuracy},
        {"--warm", &options.method.reuse}, {"--streaming", &options.streaming},
        {"--convert", &options.convert},   {"--help", &options.help}};
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
    options.method.rounds = number("--rounds", rounds, 1);
    options.cpu = number("--cpu", cpu, -1);
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
    std::vector<std::string> labels;
    for (const Size size : sizes)
        labels.push_back(label(size));
    Progress progress(text("%zu conversions at ", list.size()) + joined(labels) +
                          ", the best table " + bestTable(),
                      list.size() * sizes.size());
    for (const Case& c : list)
        for (const Size size : sizes) {
            progress.next(c.name() + " " + label(size));
            const bool hdTargets = options.targets && size == hd;
            const Selection selection{.allTables = options.full || size == hd,
                                      .generalForms = options.full || hdTargets};
            Method method = options.method;
            method.reuse |= size == inCache;
            rows.push_back({compare(size, competitors(c, size, selection), ring, method), c});
        }
    return rows;
}

template <class Row> void expectSome(const std::vector<Row>& rows, const Options& options) {
    if (rows.empty())
        throw std::invalid_argument("no conversion's name contains '" + options.filter + "'");
}

// Where reports go: made before minutes of measuring.
std::filesystem::path folderOf(const Options& options) {
    std::filesystem::create_directories(options.out);
    return options.out;
}

void save(const std::filesystem::path& file, const std::string& content) {
    std::ofstream out(file);
    out << content;
    if (!out.flush())
        throw std::runtime_error("cannot write " + file.string());
}

void summarize(const Judgement& judgement, const std::filesystem::path& folder,
               const std::string& reports) {
    std::cout << "\nTargets:\n";
    judgement.writeSummary(std::cout);
    std::cout << "Each miss is in " << (folder / reports).string() << "\n";
}

void report(const Options& options, Ring& ring) {
    const std::filesystem::path folder = folderOf(options);
    const OtherBuild other = options.compare.empty() ? OtherBuild() : OtherBuild(options.compare);
    const std::vector<Row> rows = measureAll(options, ring);
    expectSome(rows, options);

    std::ostringstream markdown;
    writeMarkdown(
        markdown, rows, options.full,
        conditions(std::to_string(options.method.rounds) + " samples", options.method.reuse, ring));
    const Judgement judgement = options.targets ? judge(rows, other) : Judgement();
    if (options.targets) {
        markdown << "\n";
        judgement.write(markdown);
    }
    if (options.filter.empty() && !options.onlyHd) {
        markdown << "\n";
        writeAccuracy(markdown);
    }
    std::cout << markdown.str();

    std::ostringstream csv, chart;
    writeCsv(csv, rows);
    writeChart(chart, rows);
    save(folder / "report.md", markdown.str());
    save(folder / "report.csv", csv.str());
    save(folder / "report.svg", chart.str());
    if (options.targets)
        summarize(judgement, folder, "report.md");
}

void reportPairs(const Options& options, Ring& ring) {
    const std::filesystem::path folder = folderOf(options);
    checkBytesOfPairs();
    const std::vector<PairRow> rows = measurePairs(pairs(options.filter), ring, options.method);
    expectSome(rows, options);

    std::ostringstream markdown;
    markdown << conditions(samplesOfPairs(options.method), options.method.reuse, ring)
             << "Chroma is cosited; exports repeat or sample it, which is less work. Of "
                "their stores the better kind counts.\n";
    writePairs(markdown, rows);
    markdown << "\n";
    const Judgement judgement = judge(rows);
    judgement.write(markdown);
    std::cout << markdown.str();

    std::ostringstream csv;
    writePairsCsv(csv, rows);
    save(folder / "convert.md", markdown.str());
    save(folder / "convert.csv", csv.str());
    summarize(judgement, folder, "convert.md");
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
    checkBytesOfExports();
    Ring ring;
    if (options.streaming) {
        writeStreaming(std::cout, ring, options.method.rounds);
        return 0;
    }
    if (options.convert) {
        reportPairs(options, ring);
        return 0;
    }
    std::vector<char*>& others = options.ofGoogleBenchmark;
    if (others.empty()) {
        report(options, ring);
        return 0;
    }
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
