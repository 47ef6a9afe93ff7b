// The program's commands. Each takes what its options and arguments say and fails with a Failure.
#pragma once

#include "frames.hpp"

#include <orva/convert.hpp>

#include <optional>
#include <string>

namespace orva::tool {

struct ConvertArguments {
    Format from = Format::BGR32I;
    Format to = Format::BGR32I;
    std::optional<FrameSize> size;
    Options options;
    unsigned threads = 1;
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
    std::string output;
};
void runPattern(const PatternArguments& arguments);

struct InfoArguments {
    Format format = Format::BGR32I;
    std::optional<FrameSize> size;
    std::string file;
};
void runInfo(const InfoArguments& arguments);

struct CompareArguments {
    Format format = Format::BGR32I;
    std::optional<FrameSize> size;
    std::optional<double> minimumPsnr;
    std::string first;
    std::string second;
};
void runCompare(const CompareArguments& arguments);

}  // namespace orva::tool
