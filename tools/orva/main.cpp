// orva: converts uncompressed video frames on the command line. This file says which commands,
// options and arguments there are.
#include "commands.hpp"
#include "file_names.hpp"
#include "files.hpp"
#include "format_names.hpp"
#include "header.hpp"
#include "suggestions.hpp"
#include "usage_errors.hpp"
#include "version.hpp"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <new>
#include <utility>
#include <vector>

namespace {

using namespace orva;
using namespace orva::tool;

constexpr int differenceStatus = 1;
constexpr int failureStatus = 2;

// Options that several commands share. Each reads its text into a value or says what is wrong.

FrameSize parseSize(const std::string& text) {
    const std::size_t x = std::min(text.find('x'), text.size());
    const FrameSize size = {wholeNumber(text.substr(0, x)).value_or(0),
                            wholeNumber(text.substr(std::min(x + 1, text.size()))).value_or(0)};
    if (size.width == 0 || size.height == 0) {
        throw CLI::ValidationError("--size is a size such as 1920x1080, not '" + text + "'");
    }
    return size;
}

double parseDecibels(const std::string& text) {
    char* end = nullptr;
    const double decibels = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0' || !std::isfinite(decibels) || decibels < 0) {
        throw CLI::ValidationError("--min-psnr is a number of decibels such as 40, not '" + text +
                                   "'");
    }
    return decibels;
}

// The value is a Format or an optional one, and the same with sizes.
template <class Value>
CLI::Option* addFormat(CLI::App* command, const std::string& name, Value& format,
                       const std::string& what) {
    return command
        ->add_option_function<std::string>(
            name, [&format](const std::string& text) { format = formatTyped(text); }, what)
        ->type_name("FORMAT");
}

template <class Value>
CLI::Option* addSize(CLI::App* command, Value& size, const std::string& what) {
    return command
        ->add_option_function<std::string>(
            "--size", [&size](const std::string& text) { size = parseSize(text); }, what)
        ->type_name("WxH");
}

// Frames a second as a Y4M header has them, "N:D".
std::string parseRate(const std::string& text) {
    const std::size_t end = std::min(text.find_first_of(":/"), text.size());
    const auto number = wholeNumber(text.substr(0, end));
    const auto divisor = end < text.size() ? wholeNumber(text.substr(end + 1)) : 1;
    if (number.value_or(0) == 0 || divisor.value_or(0) == 0) {
        throw CLI::ValidationError(
            "--rate is a number of frames a second such as 25 or 30000:1001, not '" + text + "'");
    }
    return std::to_string(*number) + ":" + std::to_string(*divisor);
}

template <class Value> using Choices = std::vector<std::pair<std::string, Value>>;

// One of several words, which goes to every target.
template <class Value, class Target = Value>
CLI::Option* addChoice(CLI::App* command, const std::string& name, const Choices<Value>& choices,
                       std::vector<Target*> targets, const std::string& what) {
    std::vector<std::string> known;
    std::string words;
    for (const auto& [word, value] : choices) {
        known.push_back(word);
        words += (words.empty() ? "" : "|") + word;
    }
    return command
        ->add_option_function<std::string>(
            name,
            [=](const std::string& text) {
                const auto found =
                    std::ranges::find(choices, text, &std::pair<std::string, Value>::first);
                if (found == choices.end()) {
                    throw CLI::ValidationError(name + " is one of " + words + ", not '" + text +
                                               "'" + suggestion(text, known));
                }
                for (Target* target : targets) {
                    *target = found->second;
                }
            },
            what)
        ->type_name(words);
}

// --src-NAME of a YCbCr IN, --dst-NAME of a YCbCr OUT, --NAME of both.
template <class Value, class Target>
void addForBoth(CLI::App* command, const std::string& name, const Choices<Value>& choices,
                Target& source, Target& destination, const std::string& what,
                const std::string& usual) {
    const std::string src = "--src-" + name, dst = "--dst-" + name;
    addChoice(command, src, choices, std::vector{&source}, what + " of a YCbCr IN (" + usual + ")");
    addChoice(command, dst, choices, std::vector{&destination},
              what + " of a YCbCr OUT (" + usual + ")");
    addChoice(command, "--" + name, choices, std::vector{&source, &destination},
              what + " of IN and OUT")
        ->excludes(src)
        ->excludes(dst);
}

// A whole number within bounds; the help shows only the name.
template <class Value, class Number>
CLI::Option* addNumber(CLI::App* command, const std::string& name, Value& value, Number least,
                       Number greatest, const std::string& what, const std::string& shown) {
    return command->add_option(name, value, what)
        ->check(CLI::Range(least, greatest).description(""))
        ->type_name(shown);
}

const Choices<Matrix> matrices = {
    {"bt601", Matrix::bt601}, {"bt709", Matrix::bt709}, {"bt2020", Matrix::bt2020}};
const Choices<Range> ranges = {{"studio", Range::studio}, {"full", Range::full}};
const Choices<Chroma> sitings = {{"cosited", Chroma::cosited}, {"nearest", Chroma::nearest}};
const Choices<Streaming> streamings = {{"automatic", Streaming::automatic},
                                       {"never", Streaming::never},
                                       {"always", Streaming::always}};
const Choices<FileKind> kinds(fileKinds.begin(), fileKinds.end());

void addOutput(CLI::App* command, OutputChoice& choice, const std::string& usualRate) {
    command
        ->add_option_function<std::string>(
            "--rate", [&choice](const std::string& text) { choice.rate = parseRate(text); },
            "Frames a second of a Y4M OUT (" + usualRate + ")")
        ->type_name("N[:D]");
    addChoice(command, "--as", kinds, std::vector{&choice.kind},
              "Kind of file that OUT is, whatever its name");
}

const char* const fileHelp =
    "A raw file holds frame after frame; '-' is standard input or output. Files that end in\n"
    ".y4m are clips of Y8PU8PV8P or Y10PU10PV10P. Files that end in .png, .ppm, .pgm or .pam\n"
    "are pictures, of RGB formats or, as grey, A8P: a picture keeps a clip's first frame, or\n"
    "all frames if its name holds a number such as %04d.";

// Makes any number of frames of a file, which brings its own format and size where it is not raw.
void addInput(CLI::App* command, const std::string& formatName, InputSettings& settings,
              const std::string& what) {
    settings.formatOption = formatName;
    addFormat(command, formatName, settings.format, "Format of " + what + ", if frames are raw")
        ->each([&settings](const std::string& text) { settings.padding = paddingTyped(text); });
    addSize(command, settings.size, "Size of a frame, if frames are raw");
    addNumber(command, "--start", settings.start, std::uint64_t{0}, std::uint64_t{UINT32_MAX},
              "First number of numbered pictures (0 or 1)", "N");
    addNumber(command, "--frames", settings.frames, std::uint64_t{1}, std::uint64_t{UINT32_MAX},
              "Read at most so many frames", "N");
}

void addConvert(CLI::App& app, ConvertArguments& arguments) {
    CLI::App* command = app.add_subcommand("convert", "Convert a clip or a picture");
    command->footer(fileHelp);
    addInput(command, "--from", arguments.in, "IN");
    addFormat(command, "--to", arguments.to, "Format of OUT")->required();
    addOutput(command, arguments.out, "those of a Y4M IN, or 25");
    Options& options = arguments.options;
    addForBoth(command, "matrix", matrices, options.srcMatrix, options.dstMatrix, "Matrix",
               "bt709");
    addForBoth(command, "range", ranges, arguments.srcRange, arguments.dstRange, "Range",
               "that of a Y4M IN, or studio");
    addChoice(command, "--chroma", sitings, {&options.chroma}, "Where 4:2:2 chroma lies (cosited)");
    addNumber(command, "--alpha", options.alpha, 0, 255, "Alpha where IN has none (255)", "0..255");
    addChoice(command, "--streaming", streamings, {&options.streaming},
              "Whether frames are written past the cache (automatic)");
    addNumber(command, "--threads", arguments.threads, 1u, 256u, "Threads (one per processor)",
              "N");
    command->add_flag("--stats", arguments.stats, "Tell the speed when done");
    command->add_option("IN", arguments.input, "File to convert")->required();
    command->add_option("OUT", arguments.output, "File to write")->required();
    command->callback([&arguments] { runConvert(arguments); });
}

void addPattern(CLI::App& app, PatternArguments& arguments) {
    CLI::App* command = app.add_subcommand("pattern", "Write a moving test chart");
    command->footer(fileHelp);
    addFormat(command, "--format", arguments.format, "Format of OUT")->required();
    addSize(command, arguments.size, "Size of a frame")->required();
    addNumber(command, "--frames", arguments.frames, std::uint32_t{1}, std::uint32_t{1000000},
              "Number of frames (1)", "N");
    addChoice(command, "--matrix", matrices, {&arguments.matrix}, "Matrix of a YCbCr OUT (bt709)");
    addChoice(command, "--range", ranges, {&arguments.range}, "Range of a YCbCr OUT (studio)");
    addOutput(command, arguments.out, "25");
    command->add_option("OUT", arguments.output, "File to write")->required();
    command->callback([&arguments] { runPattern(arguments); });
}

void addInfo(CLI::App& app, InfoArguments& arguments) {
    CLI::App* command = app.add_subcommand("info", "Tell what is in a file, channel by channel");
    addInput(command, "--format", arguments.in, "FILE");
    command->add_option("FILE", arguments.file, "File to read")->required();
    command->callback([&arguments] { runInfo(arguments); });
}

void addCompare(CLI::App& app, CompareArguments& arguments, int& status) {
    CLI::App* command = app.add_subcommand("compare", "Tell how far two files are apart");
    addInput(command, "--format", arguments.in, "both files");
    command
        ->add_option_function<std::string>(
            "--min-psnr",
            [&arguments](const std::string& text) { arguments.minimumPsnr = parseDecibels(text); },
            "End with status 1 if a channel's PSNR is below")
        ->type_name("DB");
    addNumber(command, "--max-difference", arguments.maximumDifference, 0, 1023,
              "End with status 1 if a sample differs by more", "N");
    command
        ->add_option_function<std::string>(
            "--heatmap", [&arguments](const std::string& name) { arguments.heatmap = name; },
            "Picture to write of where the files differ")
        ->type_name("PNG");
    command->add_option("A", arguments.first, "One file")->required();
    command->add_option("B", arguments.second, "The other file")->required();
    command->callback(
        [&arguments, &status] { status = runCompare(arguments) ? 0 : differenceStatus; });
}

void addSelftest(CLI::App& app, int& status) {
    app.add_subcommand("selftest", "Check that this machine gives the documented bytes")
        ->callback([&status] { status = runSelftest() ? 0 : differenceStatus; });
}

int run(std::vector<std::string> typed) {
    CLI::App app("Converts uncompressed video frames between pixel formats.", "orva");
    app.require_subcommand(1);
    ConvertArguments convertArguments;
    PatternArguments patternArguments;
    InfoArguments infoArguments;
    CompareArguments compareArguments;
    addConvert(app, convertArguments);
    app.add_subcommand("formats", "List the formats and conversions")->callback(runFormats);
    addPattern(app, patternArguments);
    addInfo(app, infoArguments);
    int status = 0;
    addCompare(app, compareArguments, status);
    addSelftest(app, status);
    app.set_version_flag("--version", versionText,
                         "Tell the versions of what is at work, and exit");
    try {
        std::ranges::reverse(typed);  // as it wants them
        app.parse(std::move(typed));
        return status;
    } catch (const CLI::Success& help) {
        return app.exit(help);
    } catch (const CLI::ParseError& error) {
        std::fprintf(stderr, "%s\n", usageError(app, error).c_str());
        return failureStatus;
    } catch (const std::bad_alloc&) {
        std::fputs("orva: there is not enough memory for this\n", stderr);
        return failureStatus;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "orva: %s\n", error.what());
        return failureStatus;
    }
}

}  // namespace

int main(int argc, char** argv) {
    reserveStandardStreams();
    const int status = run(argumentsOf(argc, argv));
    if (!closeStandardOutput()) {
        std::fprintf(stderr, "orva: standard output: cannot be written: %s\n",
                     std::strerror(errno));
        return failureStatus;
    }
    return status;
}
