// Every conversion against the scalar model, with every table of kernels.
#include "support/case.hpp"
#include "support/tables.hpp"

namespace test {
namespace {

struct Conversions : testing::TestWithParam<Export> {};

// Every width past two blocks, every destination address modulo 16, some modulo 64, both kinds of
// stores, pitches that agree with the rows and pitches that do not; the rest at random.
TEST_P(Conversions, EveryWidthAndAddress) {
    withEveryTable([] {
        Random random(1);
        for (uint32_t width = 0; width <= 70; ++width) {
            for (uint32_t variant = 0; variant < 64; ++variant) {
                OrvaConversionDescriptor options = randomOptions(random);
                options.streamingStores = variant & 1;
                Shape shape = randomShape(random);
                shape.width = width;
                shape.height = 3;
                shape.dstOffset = variant / 2 % 16 + 16 * pick(random, 4);
                if (variant < 32)
                    shape.srcPitch = shape.dstPitch = shape.dstAlphaPitch = 96;
                keepContract(GetParam(), shape);
                if (!agree(GetParam(), shape, options, random))
                    return;
            }
        }
    });
}

INSTANTIATE_TEST_SUITE_P(All, Conversions, testing::ValuesIn(exports()),
                         [](const auto& info) { return std::string(info.param.name); });

// The number of modes behind mode 0 that an export has kernels for.
int32_t modesOf(const Export& conversion) {
    const std::string_view name = conversion.name;
    if (name == "UYVY16I_BGR32I" || name == "Y8PUV8I_BGR32I")
        return 2;
    if (name == "BGR32I_UYVY16I" || name == "BGR32I_UVYY16I" || name == "BGR32I_Y8PUV8I")
        return 3;
    return 0;
}

// Every row makes two lines of twice its width, and nothing may overlap.
void makeRoomForDoubledPicture(const Export& conversion, Shape& shape, Random& random) {
    const int32_t row = int32_t((shape.width & ~1u) * conversion.destination.bytesPerPixel());
    int32_t pitch = 2 * row + int32_t(pick(random, 40));
    if (pick(random, 2) == 0)
        pitch = (pitch + 63) / 64 * 64;
    shape.dstPitch = pick(random, 2) == 0 ? pitch : -pitch;
    shape.dstGap = *shape.dstPitch - row;
    shape.linesBelow = shape.height + pick(random, 2);
}

bool agreeAtRandom(const Export& conversion, int32_t mode, Random& random) {
    OrvaConversionDescriptor options = randomOptions(random);
    if (mode != 0)
        options.kernelMode = mode;
    Shape shape = randomShape(random);
    keepContract(conversion, shape);
    if (mode == 3)
        makeRoomForDoubledPicture(conversion, shape, random);
    return agree(conversion, shape, options, random);
}

TEST(Modes, RandomDescriptors) {
    withEveryTable([] {
        Random random(2);
        for (const Export& conversion : exports())
            for (int32_t mode = 1; mode <= modesOf(conversion); ++mode)
                for (int i = 0; i < 500; ++i)
                    if (!agreeAtRandom(conversion, mode, random))
                        return;
    });
}

void runRandomDescriptors(uint32_t seed) {
    Random random(seed);
    for (int i = 0; i < 50'000; ++i) {
        const Export& conversion = exports()[pick(random, uint32_t(exports().size()))];
        const int32_t mode = int32_t(pick(random, uint32_t(modesOf(conversion) + 1)));
        if (!agreeAtRandom(conversion, mode, random))
            return;
    }
}

TEST(AnyConversion, RandomDescriptors) {
    withEveryTable([] { runRandomDescriptors(3); });
    const uint32_t seed = std::random_device()();
    printf("[   seed   ] %u\n", seed);
    SCOPED_TRACE(seed);
    runRandomDescriptors(seed);
}

}  // namespace
}  // namespace test
