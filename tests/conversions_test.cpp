// Every conversion against the scalar model, with every table of kernels.
#include "support/case.hpp"
#include "support/tables.hpp"

namespace test {
namespace {

class Conversions : public testing::TestWithParam<Export> {};

// Every width past two blocks, every destination address modulo 16, both kinds of stores, fitting
// and unfitting pitches; the rest at random.
TEST_P(Conversions, EveryWidthAndAddress) {
    withEveryTable([&] {
        Random random(1);
        for (uint32_t width = 0; width <= 70; ++width)
            for (uint32_t variant = 0; variant < 64; ++variant) {
                OrvaConversionDescriptor options = randomOptions(random);
                options.streamingStores = variant & 1;
                Shape shape = randomShape(random);
                shape.width = width;
                shape.height = 3;
                shape.dstOffset = variant / 2 % 16;
                if (variant < 32)
                    shape.srcPitch = shape.dstPitch = shape.dstAlphaPitch = 96;
                keepContract(GetParam(), options, shape);
                if (!agree(GetParam(), shape, options, random))
                    return;
            }
    });
}

INSTANTIATE_TEST_SUITE_P(All, Conversions, testing::ValuesIn(exports()),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace test
