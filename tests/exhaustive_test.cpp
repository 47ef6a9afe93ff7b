// Every colour there is, against the scalar model, with every table of kernels.
#include "reference/model.hpp"
#include "support/data.hpp"
#include "support/tables.hpp"

#include <cstring>
#include <functional>

namespace test {
namespace {

using Descriptor = OrvaConversionDescriptor;

// Images in aligned memory, rows without gaps.
struct Images {
    Images(uint32_t width, uint32_t height, uint32_t srcBytes, uint32_t dstBytes)
        : source(width * height * srcBytes + 64), library(width * height * dstBytes + 64),
          model(library.size()) {
        d.srcHeight = d.dstHeight = height;
        d.dstWidth = width;
        d.srcPitch = int32_t(width * srcBytes);
        d.dstPitch = int32_t(width * dstBytes);
        d.srcData = src();
    }

    uint8_t* src() { return aligned(source); }

    // Whether the library, with every table, does what the model does.
    bool agree(std::string_view name, void(ORVA_CALL* convert)(const Descriptor*)) {
        d.dstData = aligned(model);
        EXPECT_TRUE(reference::convert(name, d));
        d.dstData = aligned(library);
        bool same = true;
        for (const orva::KernelTable& table : orva::kernelTables) {
            if (!table.isSupported())
                continue;
            orva::activeKernels = table.kernels;
            std::ranges::fill(library, ++untouched);
            convert(&d);
            same = same && memcmp(aligned(library), aligned(model), library.size() - 64) == 0;
        }
        EXPECT_TRUE(same) << name << ": codes " << d.srcColorSpace << " " << d.dstColorSpace
                          << ", full " << int(d.fullRange) << ", clamp " << int(d.clampStudio);
        return same;
    }

    Descriptor d{};

private:
    static uint8_t* aligned(std::vector<uint8_t>& bytes) {
        return bytes.data() + (64 - reinterpret_cast<uintptr_t>(bytes.data()) % 64);
    }

    std::vector<uint8_t> source, library, model;
    uint8_t untouched = 0;  // another value for each call, so that none can pass by another's bytes
};

// With each matrix, range and clamp, in that order of nesting.
void withEverySetting(Descriptor& d, const std::function<bool()>& agrees) {
    for (int setting = 0; setting < 8; ++setting) {
        d.dstColorSpace = setting & 1;
        d.fullRange = setting & 2;
        d.clampStudio = setting & 4;
        if (!agrees())
            return;
    }
}

// Each luma with each chroma pair, in an even and in an odd pixel.
TEST(Exhaustive, YCbCrToRgb) {
    Images images(512, 256, 2, 4);
    for (int cb = 0; cb < 256; ++cb) {
        uint8_t* bytes = images.src();
        for (int cr = 0; cr < 256; ++cr)
            for (int luma = 0; luma < 256; ++luma)
                for (const int sample : {cb, luma, cr, luma})
                    *bytes++ = uint8_t(sample);
        withEverySetting(
            images.d, [&] { return images.agree("UYVY16I_BGR32I", ORVA_SSE2_UYVY16I_BGR32I_EX); });
        if (HasFailure())
            return;
    }
}

TEST(Exhaustive, RgbToYCbCr) {
    Images images(512, 256, 4, 2);
    for (int blue = 0; blue < 256; ++blue) {
        uint8_t* bytes = images.src();
        for (int green = 0; green < 256; ++green)
            for (int red = 0; red < 256; ++red)
                for (const int sample : {blue, green, red, 255, blue, green, red, 0})
                    *bytes++ = uint8_t(sample);
        withEverySetting(
            images.d, [&] { return images.agree("BGR32I_UYVY16I", ORVA_SSE2_BGR32I_UYVY16I_EX); });
        if (HasFailure())
            return;
    }
}

// Each chroma pair in either half of a block whose other half is anything, and singly.
TEST(Exhaustive, MatrixConversion) {
    Random random(4);
    for (const uint32_t width : {16u, 2u}) {
        Images images(width, 65536, 2, 2);
        for (const uint32_t half : {0u, 16u}) {
            for (uint32_t i = 0; i < 65536 * width * 2; i += 4096)
                std::ranges::copy(runs(4096, random), images.src() + i);
            for (uint32_t pair = 0; pair < 65536; ++pair) {
                uint8_t* const block = images.src() + pair * width * 2 + half % (width * 2);
                for (uint32_t i = 0; i < width; i += 4) {
                    block[i] = uint8_t(pair);
                    block[i + 2] = uint8_t(pair >> 8);
                }
            }
            for (int setting = 0; setting < 4; ++setting) {
                images.d.srcColorSpace = setting & 1;
                images.d.dstColorSpace = !(setting & 1);
                images.d.clampStudio = setting & 2;
                if (!images.agree("UYVY16I_UYVY16I", ORVA_SSE2_UYVY16I_UYVY16I_EX))
                    return;
            }
        }
    }
}

}  // namespace
}  // namespace test
