// Prints the table of errors in docs/arithmetic.md: the largest that soft and hard pictures show,
// with every matrix, range and place of chroma, of every pair of colour formats.
#include "support/picture.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <vector>

using namespace orva;
using namespace test;

namespace {

constexpr std::uint32_t width = 509, height = 40;

double largestError(Format from, Format to) {
    Random random(9);
    Canvas source(from, width, height, {}), made(to, width, height, {});
    double largest = 0;
    // Two matrices, two ranges and the place of chroma, each as a digit.
    for (int setting = 0; setting < 72; ++setting) {
        const Options options = {.srcMatrix = Matrix(setting % 3),
                                 .dstMatrix = Matrix(setting / 3 % 3),
                                 .srcRange = Range(setting / 9 % 2),
                                 .dstRange = Range(setting / 18 % 2),
                                 .chroma = Chroma(setting / 36)};
        fill(source, random);
        if (setting % 5 != 0) {
            fillSoftly(source.view(), random);
        }
        const Result result = convert(source.view(), made.view(), options);
        const Judgement judgement = judge(source.view(), made.view(), options, 0, height);
        if (!result || !judgement.fault.empty()) {
            fprintf(stderr, "%s: %s%s\n", nameOf(from, to).c_str(), result.describe().c_str(),
                    judgement.fault.c_str());
            exit(1);
        }
        largest = std::max(largest, judgement.largestError);
    }
    return largest;
}

}  // namespace

int main() {
    std::vector<FormatInfo> colours;
    std::ranges::copy_if(formats(), std::back_inserter(colours), [](const FormatInfo& info) {
        return info.model != Model::alpha && info.colour == info.format;
    });
    fputs("| |", stdout);
    for (const FormatInfo& to : colours) {
        printf(" %s |", std::string(to.name).c_str());
    }
    fputs("\n|---|", stdout);
    for (std::size_t i = 0; i < colours.size(); ++i) {
        fputs("---|", stdout);
    }
    for (const FormatInfo& from : colours) {
        printf("\n| %s |", std::string(from.name).c_str());
        for (const FormatInfo& to : colours) {
            printf(" %.3f |", largestError(from.format, to.format));
        }
    }
    putchar('\n');
}
