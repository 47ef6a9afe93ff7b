// Draws colour bars in UYVY16I, converts them to RGB with every argument checked, and saves the
// picture:  host-cpp bars.ppm
#include <orva/convert.hpp>

#include <fstream>
#include <iostream>

int main(int argc, char** argv) {
    constexpr std::uint32_t width = 1280, height = 720;
    std::optional<orva::Image> camera = orva::Image::create(orva::Format::UYVY16I, width, height);
    std::optional<orva::Image> pixels = orva::Image::create(orva::Format::RGB24I, width, height);
    if (argc != 2 || !camera || !pixels) {
        std::cerr << "usage: host-cpp <picture.ppm>\n";
        return 2;
    }

    // Cb Y Cr Y of white, yellow, cyan, green, magenta, red, blue and black in BT.709.
    constexpr std::uint8_t bars[8][4] = {
        {128, 235, 128, 235}, {16, 219, 138, 219}, {154, 188, 16, 188}, {42, 173, 26, 173},
        {214, 78, 230, 78},   {102, 63, 240, 63},  {240, 32, 118, 32},  {128, 16, 128, 16}};
    const orva::Plane source = camera->view().main;
    for (std::uint32_t y = 0; y < height; ++y) {
        std::byte* const row = source.bytes.data() + y * source.pitch;
        for (std::uint32_t i = 0; i < width * 2; ++i) {
            row[i] = std::byte{bars[i * 8 / (width * 2)][i % 4]};
        }
    }

    const orva::Options options = {.srcMatrix = orva::Matrix::bt709};
    if (const orva::Result result = orva::convert(camera->view(), pixels->view(), options);
        !result) {
        std::cerr << result.describe() << '\n';
        return 1;
    }

    std::ofstream picture(argv[1], std::ios::binary);
    picture << "P6\n" << width << ' ' << height << "\n255\n";
    const orva::Plane rgb = pixels->view().main;
    for (std::uint32_t y = 0; y < height; ++y) {
        picture.write(reinterpret_cast<const char*>(rgb.bytes.data() + y * rgb.pitch), width * 3);
    }
    picture.close();
    return picture ? 0 : 1;
}
