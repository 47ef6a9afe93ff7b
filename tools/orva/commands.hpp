// The program's commands. Each takes what its options and arguments say and fails with a Failure.
#pragma once

#include "frames.hpp"
#include "processors.hpp"

#include <orva/convert.hpp>

#include <optional>
#include <string>

namespace orva::tool {

// How OUT is written, where the user says it.
struct OutputChoice {
    std::optional<FileKind> kind;
    std::optional<std::string> rate;
};

struct ConvertArguments {
    InputSettings in;
    Format to = Format::BGR32I;
    OutputChoice out;
    Options options;                // but for the ranges
    std::optional<Range> srcRange;  // else what a Y4M input says, or studio range
    std::optional<Range> dstRange;  // the same
    unsigned threads = usableProcessors();
    bool stats = false;
    std::string input;
    std::string output;
};
void runConvert(const ConvertArguments& arguments);

void runFormats();

struct PatternArguments {
    Format format = Format::BGR32I;
    FrameSize size;
    std::uint32_t frames = 1;
    Matrix matrix = Matrix::bt709;
    Range range = Range::studio;
    OutputChoice out;
    std::string output;
};
void runPattern(const PatternArguments& arguments);

struct InfoArguments {
    InputSettings in;
    std::string file;
};
void runInfo(const InfoArguments& arguments);

struct CompareArguments {
    InputSettings in;  // of both files
    std::optional<double> minimumPsnr;
    std::optional<int> maximumDifference;
    std::optional<std::string> heatmap;
    std::string first;
    std::string second;
};
// Whether the files are as close as is wanted.
bool runCompare(const CompareArguments& arguments);

// Whether this machine gives the documented bytes.
bool runSelftest();

}  // namespace orva::tool
