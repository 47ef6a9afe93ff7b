// orva: converts uncompressed video frames on the command line. This file says which commands,
// options and arguments there are.
#include "commands.hpp"
#include "failure.hpp"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <exception>
#include <utility>
#include <vector>

namespace {

using namespace orva;
using namespace orva::tool;

constexpr int failureStatus = 2;

// Options that several commands share. Each reads its text into a value or says what is wrong.

void parseFormat(const std::string& text, Format& format) {
    const auto named = formatNamed(text);
    if (!named) {
        throw CLI::ValidationError("unknown format '" + text + "'; 'orva formats' lists them");
    }
    if (!inFiles(*named)) {
        throw CLI::ValidationError(text + " has no planes, so no file holds it");
    }
    format = *named;
}

void parseSize(const std::string& text, FrameSize& size) {
    const char* const end = text.data() + text.size();
    const auto [x, widthError] = std::from_chars(text.data(), end, size.width);
    if (widthError == std::errc{} && x != end && *x == 'x') {
        const auto [rest, heightError] = std::from_chars(x + 1, end, size.height);
        if (heightError == std::errc{} && rest == end && size.width > 0 && size.height > 0) {
            return;
        }
    }
    throw CLI::ValidationError("'" + text + "' is not a size such as 1920x1080");
}

CLI::Option* addFormat(CLI::App* command, const std::string& name, Format& format,
                       const std::string& what) {
    return command
        ->add_option_function<std::string>(
            name, [&format](const std::string& text) { parseFormat(text, format); }, what)
        ->type_name("FORMAT");
}

template <class Size> CLI::Option* addSize(CLI::App* command, Size& size, const std::string& what) {
    return command
        ->add_option_function<std::string>(
            "--size",
            [&size](const std::string& text) {
                FrameSize parsed;
                parseSize(text, parsed);
                size = parsed;
            },
            what)
        ->type_name("WxH");
}

template <class Value> using Choices = std::vector<std::pair<std::string, Value>>;

// One of several words, which goes to every target.
template <class Value>
CLI::Option* addChoice(CLI::App* command, const std::string& name, const Choices<Value>& choices,
                       std::vector<Value*> targets, const std::string& what) {
    std::string words;
    for (const auto& [word, value] : choices) {
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
                                               "'");
                }
                for (Value* target : targets) {
                    *target = found->second;
                }
            },
            what)
        ->type_name(words);
}

// --src-NAME of a YCbCr IN, --dst-NAME of a YCbCr OUT, --NAME of both.
template <class Value>
void addForBoth(CLI::App* command, const std::string& name, const Choices<Value>& choices,
                Value& source, Value& destination, const std::string& what,
                const std::string& usual) {
    const std::string src = "--src-" + name, dst = "--dst-" + name;
    addChoice(command, src, choices, {&source}, what + " of a YCbCr IN (" + usual + ")");
    addChoice(command, dst, choices, {&destination}, what + " of a YCbCr OUT (" + usual + ")");
    addChoice(command, "--" + name, choices, {&source, &destination}, what + " of IN and OUT")
        ->excludes(src)
        ->excludes(dst);
}

// A whole number within bounds; the help shows only the name.
template <class Number>
CLI::Option* addNumber(CLI::App* command, const std::string& name, Number& value, Number least,
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

const char* const fileHelp =
    "A raw file holds frame after frame; '-' is standard input or output. Files that end in\n"
    ".png or .ppm are pictures, for RGB formats: a picture keeps a clip's first frame, or all\n"
    "frames if its name holds a number such as %04d.";

void addConvert(CLI::App& app, ConvertArguments& arguments) {
    CLI::App* command = app.add_subcommand("convert", "Convert a clip or a picture");
    command->footer(fileHelp);
    addFormat(command, "--from", arguments.from, "Format of IN")->required();
    addFormat(command, "--to", arguments.to, "Format of OUT")->required();
    addSize(command, arguments.size, "Size of a frame; pictures bring their own");
    Options& options = arguments.options;
    addForBoth(command, "matrix", matrices, options.srcMatrix, options.dstMatrix, "Matrix",
               "bt709");
    addForBoth(command, "range", ranges, options.srcRange, options.dstRange, "Range", "studio");
    addChoice(command, "--chroma", sitings, {&options.chroma}, "Where 4:2:2 chroma lies (cosited)");
    addNumber(command, "--alpha", options.alpha, 0, 255, "Alpha where IN has none (255)", "0..255");
    addChoice(command, "--streaming", streamings, {&options.streaming},
              "Whether frames are written past the cache (automatic)");
    addNumber(command, "--threads", arguments.threads, 1u, 256u, "Frames converted at once (1)",
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
    command->add_option("OUT", arguments.output, "File to write")->required();
    command->callback([&arguments] { runPattern(arguments); });
}

void addInfo(CLI::App& app, InfoArguments& arguments) {
    CLI::App* command = app.add_subcommand("info", "Tell the range of each channel of a file");
    addFormat(command, "--format", arguments.format, "Format of FILE")->required();
    addSize(command, arguments.size, "Size of a frame; pictures bring their own");
    command->add_option("FILE", arguments.file, "File to read")->required();
    command->callback([&arguments] { runInfo(arguments); });
}

void addCompare(CLI::App& app, CompareArguments& arguments) {
    CLI::App* command = app.add_subcommand("compare", "Tell how far two files are apart");
    addFormat(command, "--format", arguments.format, "Format of both files")->required();
    addSize(command, arguments.size, "Size of a frame; pictures bring their own");
    command->add_option("--min-psnr", arguments.minimumPsnr, "Fail if a channel is below")
        ->type_name("DB");
    command->add_option("A", arguments.first, "One file")->required();
    command->add_option("B", arguments.second, "The other file")->required();
    command->callback([&arguments] { runCompare(arguments); });
}

}  // namespace

int main(int argc, char** argv) {
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
    addCompare(app, compareArguments);
    try {
        app.parse(argc, argv);
        return 0;
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : failureStatus;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "orva: %s\n", error.what());
        return failureStatus;
    }
}
