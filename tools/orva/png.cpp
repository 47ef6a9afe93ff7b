// PNG files through libpng.
#include "png.hpp"

#include "failure.hpp"
#include "images.hpp"

#if ORVA_HAVE_PNG
#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstring>
#include <exception>

#include <png.h>
#endif

namespace orva::tool {

#if ORVA_HAVE_PNG

namespace {

// What libpng is reading or writing, and how it fails: its functions do not return then, but jump
// out of run().
template <class File> class Codec {
public:
    using Create = png_structp (*)(png_const_charp, png_voidp, png_error_ptr, png_error_ptr);
    using Destroy = void (*)(png_structp, png_infop);

    Codec(File& file, Create create, Destroy destroy) : file(file), destroy(destroy) {
        png = create(PNG_LIBPNG_VER_STRING, this, onError, [](png_structp, png_const_charp) {});
        info = png ? png_create_info_struct(png) : nullptr;
        if (!info) {
            destroy(png, nullptr);
            throw Failure(file.name() + ": libpng cannot be used");
        }
        png_set_user_limits(png, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
    }
    ~Codec() { destroy(png, info); }
    Codec(const Codec&) = delete;
    Codec& operator=(const Codec&) = delete;

    // Calls libpng in a step that owns nothing: no destructor runs when libpng jumps.
    template <class Step> void run(Step step) {
        if (setjmp(png_jmpbuf(png)) != 0) {
            if (inFile) {
                std::rethrow_exception(inFile);
            }
            throw Failure(file.name() + ": " + message.data());
        }
        step();
    }

    // Calls a function of the file for libpng, which no exception may pass.
    template <class Call> static void callFile(png_structp png, png_voidp codec, Call call) {
        auto& self = *static_cast<Codec*>(codec);
        try {
            call(self.file);
            return;
        } catch (...) {
            self.inFile = std::current_exception();
        }
        png_error(png, "");
    }

    File& file;
    png_structp png = nullptr;
    png_infop info = nullptr;

private:
    static void onError(png_structp png, png_const_charp text) {
        auto& self = *static_cast<Codec*>(png_get_error_ptr(png));
        std::strncpy(self.message.data(), text, self.message.size() - 1);
        png_longjmp(png, 1);
    }

    Destroy destroy;
    std::array<char, 200> message{};
    std::exception_ptr inFile;
};

void readBytes(png_structp png, png_bytep bytes, std::size_t count) {
    Codec<InputFile>::callFile(png, png_get_io_ptr(png), [=](InputFile& file) {
        if (file.read({reinterpret_cast<std::byte*>(bytes), count}) != count) {
            throw Failure(file.name() + ": ends before its last chunk");
        }
    });
}

void writeBytes(png_structp png, png_bytep bytes, std::size_t count) {
    Codec<MemoryFile>::callFile(png, png_get_io_ptr(png), [=](MemoryFile& file) {
        file.write({reinterpret_cast<const std::byte*>(bytes), count});
    });
}

// Half the time of zlib's own choice for 2 to 4 % more bytes.
constexpr int compressionLevel = 3;

// Fails where a file is shorter than the best compression could make what its header claims.
void judgeClaim(InputFile& file, FrameSize size, std::uint64_t bytesPerRow) {
    constexpr std::uint64_t bestRatio = 1032;  // of deflate
    requireMemory(Format::A8P, size);
    if (!file.holds((bytesPerRow + 1) * size.height / bestRatio)) {
        throw Failure(file.name() + ": claims to be " + sizeText(size) +
                      ", but is too short to hold that");
    }
}

// Makes bytes of samples and alpha of transparent colours, and says which format this is.
Format simplify(png_structp png, png_infop info) {
    png_set_expand(png);
    png_set_scale_16(png);
    int intent;
    double gamma;
    if (png_get_sRGB(png, info, &intent) == 0 && png_get_gAMA(png, info, &gamma) != 0) {
        png_set_gamma(png, PNG_DEFAULT_sRGB, gamma);
    }
    png_set_interlace_handling(png);
    const int kind = png_get_color_type(png, info);
    const bool alpha =
        (kind & PNG_COLOR_MASK_ALPHA) != 0 || png_get_valid(png, info, PNG_INFO_tRNS) != 0;
    if ((kind & PNG_COLOR_MASK_COLOR) == 0 && !alpha) {
        return Format::A8P;
    }
    png_set_gray_to_rgb(png);
    return alpha ? Format::RGB32I : Format::RGB24I;
}

}  // namespace

Image readPng(InputFile& file) {
    Codec<InputFile> codec(file, png_create_read_struct, [](png_structp png, png_infop info) {
        png_destroy_read_struct(&png, &info, nullptr);
    });
    const png_structp png = codec.png;
    const png_infop info = codec.info;
    png_set_read_fn(png, &codec, readBytes);
    codec.run([=] { png_read_info(png, info); });
    const FrameSize size = {png_get_image_width(png, info), png_get_image_height(png, info)};
    judgeClaim(file, size, png_get_rowbytes(png, info));

    Format format = Format::A8C;
    codec.run([=, &format] {
        format = simplify(png, info);
        png_start_read_image(png);
    });
    Image image = createImage(format, size);
    const Plane rows = image.view().main;
    codec.run([=] {
        // An interlaced picture comes in seven passes, each of which fills in some pixels.
        const bool interlaced = png_get_interlace_type(png, info) != PNG_INTERLACE_NONE;
        for (int pass = interlaced ? PNG_INTERLACE_ADAM7_PASSES : 1; pass > 0; --pass) {
            for (std::size_t y = 0; y < size.height; ++y) {
                auto* const row = rows.bytes.data() + y * static_cast<std::size_t>(rows.pitch);
                png_read_row(png, reinterpret_cast<png_bytep>(row), nullptr);
            }
        }
        png_read_end(png, nullptr);
    });
    return image;
}

void writePng(MemoryFile& file, const ConstImageView& image) {
    Codec<MemoryFile> codec(file, png_create_write_struct, [](png_structp png, png_infop info) {
        png_destroy_write_struct(&png, &info);
    });
    const png_structp png = codec.png;
    const png_infop info = codec.info;
    png_set_write_fn(png, &codec, writeBytes, nullptr);
    codec.run([=, &image] {
        const bool grey = image.format == Format::A8P;
        const int kind = grey                             ? PNG_COLOR_TYPE_GRAY
                         : image.format == Format::RGB32I ? PNG_COLOR_TYPE_RGB_ALPHA
                                                          : PNG_COLOR_TYPE_RGB;
        png_set_IHDR(png, info, image.width, image.height, 8, kind, PNG_INTERLACE_NONE,
                     PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        png_set_compression_level(png, compressionLevel);
        if (!grey) {
            png_set_sRGB(png, info, PNG_sRGB_INTENT_PERCEPTUAL);
        }
        png_write_info(png, info);
        for (std::size_t y = 0; y < image.height; ++y) {
            const auto* const row =
                image.main.bytes.data() + y * static_cast<std::size_t>(image.main.pitch);
            png_write_row(png, reinterpret_cast<png_const_bytep>(row));
        }
        png_write_end(png, nullptr);
    });
}

#else

Image readPng(InputFile& file) {
    throw Failure(file.name() + ": this program was built without PNG; use .ppm or .pam");
}

void writePng(MemoryFile& file, const ConstImageView&) {
    throw Failure(file.name() + ": this program was built without PNG; use .ppm or .pam");
}

#endif

}  // namespace orva::tool
