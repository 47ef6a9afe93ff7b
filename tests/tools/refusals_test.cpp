// What the library refuses, as users of the program read it. The program checks what it is given
// before it calls the library, so that no command line leads here.
#include "refusals.hpp"

#include <gtest/gtest.h>

namespace orva::tool {
namespace {

std::string told(const Result& result) { return refusal(result).what(); }

TEST(Refusals, NameOptionsAndFramesNotFields) {
    Image source = *Image::create(Format::UYVY16I, 4, 4);
    Image destination = *Image::create(Format::UYVY16I, 4, 4);
    const Options wrongMatrix{.dstMatrix = Matrix{7}}, wrongAlpha{.alpha = 300};
    EXPECT_EQ(told(convert(source.view(), destination.view(), wrongMatrix)),
              "--dst-matrix: not possible in this conversion");
    EXPECT_EQ(told(convert(source.view(), destination.view(), wrongAlpha)),
              "--alpha: not possible in this conversion");
    ImageView narrow = destination.view();
    narrow.width = 2;
    EXPECT_EQ(told(convert(source.view(), narrow)),
              "the frame that is written cannot be converted: give both images the same width: "
              "nothing is scaled");
    EXPECT_EQ(told(convert({Format::UYVY16I, 4, 4, {}, {}, {}, {}}, destination.view())),
              "the frame that is read cannot be converted: give the plane that the format has");
}

}  // namespace
}  // namespace orva::tool
