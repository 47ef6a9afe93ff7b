// orva: converts uncompressed video frames on the command line. This file says which commands,
// options and arguments there are.
#include "commands.hpp"
#include "failure.hpp"

#include <CLI/CLI.hpp>

#include <charconv>
#include <cstdio>
#include <exception>
#include <map>

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

template <class Value>
CLI::Option* addChoice(CLI::App* command, const std::string& name, Value& value,
                       const std::map<std::string, Value>& choices, const std::string& what) {
    std::string names;
    for (const auto& [choice, meaning] : choices) {
        names += (names.empty() ? "" : "|") + choice;
    }
    return command
        ->add_option_function<std::string>(
            name,
            [&value, choices, names, name](const std::string& text) {
                const auto found = choices.find(text);
                if (found == choices.end()) {
                    throw CLI::ValidationError(name + " is one of " + names + ", not '" + text +
                                               "'");
                }
                value = found->second;
            },
            what)
        ->type_name(names);
}

const std::map<std::string, Matrix> matrices = {{"bt601", Matrix::bt601}, {"bt709", Matrix::bt709}};
const std::map<std::string, Range> ranges = {{"studio", Range::studio}, {"full", Range::full}};

const char* const fileHelp =
    "A raw file holds frames without gaps; '-' is standard input or output. Files that end in\n"
    ".png or .ppm are pictures, for BGR formats: a picture keeps a clip's first frame, or all\n"
    "frames if its name holds a number such as %04d.";

void addConvert(CLI::App& app, ConvertArguments& arguments) {
    CLI::App* command = app.add_subcommand("convert", "Convert a clip or a picture");
    command->footer(fileHelp);
    addFormat(command, "--from", arguments.from, "Format of IN")->required();
    addFormat(command, "--to", arguments.to, "Format of OUT")->required();
    addSize(command, arguments.size, "Size of a frame; pictures bring their own");
    Options& options = arguments.options;
    addChoice(command, "--src-matrix", options.srcMatrix, matrices, "Matrix of a YCbCr IN (bt709)");
    addChoice(command, "--dst-matrix", options.dstMatrix, matrices,
              "Matrix of a YCbCr OUT (bt709)");
    command
        ->add_option_function<std::string>(
            "--matrix",
            [&options](const std::string& text) {
                const auto found = matrices.find(text);
                if (found == matrices.end()) {
                    throw CLI::ValidationError("--matrix is one of bt601|bt709, not '" + text +
                                               "'");
                }
                options.srcMatrix = options.dstMatrix = found->second;
            },
            "Matrix of both")
        ->type_name("bt601|bt709")
        ->excludes("--src-matrix")
        ->excludes("--dst-matrix");
    addChoice(command, "--range", options.range, ranges, "Luma range of YCbCr (studio)");
    command->add_flag("--clamp", options.clampStudio, "Clamp luma to 16..235");
    command->add_option("--alpha", options.alpha, "Alpha where IN has none (255)")
        ->check(CLI::Range(0, 255))
        ->type_name("0..255");
    command->add_flag("--streaming", options.streaming, "Write frames past the cache");
    command->add_option("--threads", arguments.threads, "Frames converted at once (1)")
        ->check(CLI::Range(1u, 256u))
        ->type_name("N");
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
    command->add_option("--frames", arguments.frames, "Number of frames (1)")
        ->check(CLI::Range(1u, 1000000u))
        ->type_name("N");
    addChoice(command, "--matrix", arguments.matrix, matrices, "Matrix of a YCbCr OUT (bt709)");
    addChoice(command, "--range", arguments.range, ranges, "Luma range of a YCbCr OUT (studio)");
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
