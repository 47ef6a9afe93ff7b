// ORVA for C++20: the conversions of <orva/orva.h> on images that know their size, every argument
// checked before a byte is touched.
//
//     orva::Image frame = ...;                                    // UYVY16I, filled by a decoder
//     auto screen = orva::Image::create(orva::Format::BGR32I, frame.width(), frame.height());
//     if (orva::Result result = orva::convert(frame.view(), screen->view()); !result)
//         std::cerr << result.describe() << '\n';
//
// No function here throws unless it returns a string or a vector, and only Image allocates.
#pragma once

#include <cstddef>
#include <cstdint>
#include <new>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace orva {

// ---- Formats ------------------------------------------------------------------------------------

// The layouts of <orva/orva.h>. A trailing A8P is an alpha plane beside the colour image.
enum class Format : std::uint8_t {
    UYVY16I,
    YUYV16I,
    UVYY16I,
    Y8PUV8I,
    BGR32I,
    BGR24I,
    A8P,
    UYVY16IA8P,
    YUYV16IA8P,
    UVYY16IA8P,
    Y8PUV8IA8P,
    BGR24IA8P,
    A8C,  // a source without planes: every pixel's alpha is Options::alpha
};

// What a format stores.
struct FormatInfo {
    Format format;
    std::string_view name;        // as in the exports' names
    std::string_view otherNames;  // what other programs call it, separated by spaces; may be empty
    Format colour;                // the same without its alpha plane
    std::uint8_t bytesPerPixel;   // of the main plane; 0 for A8C
    bool pixelPairs;              // 4:2:2: widths must be even
    bool chromaPlane;             // semi-planar: a chroma plane with the luma plane's row length
    bool alphaPlane;              // an alpha plane beside the main plane
};

// Never fails for an enumerator of Format.
const FormatInfo& formatInfo(Format format) noexcept;

// Every format, in the order of the enumeration.
std::span<const FormatInfo> formats() noexcept;

// The format with this name or other name, upper or lower case; empty if there is none.
std::optional<Format> formatNamed(std::string_view name) noexcept;

// ---- Images -------------------------------------------------------------------------------------

// One plane in memory that somebody else owns. `bytes` is all of the plane's memory from its lowest
// address on, row gaps included; only the last row's gap may be missing.
//
// `pitch` is the distance in bytes from a row to the next one below it. A negative pitch is a
// bottom-up image: its first row is the last one in `bytes`.
template <class Byte> struct BasicPlane {
    std::span<Byte> bytes;
    std::ptrdiff_t pitch = 0;
};

// An image in memory that somebody else owns. Planes that the format does not have stay empty.
//
// `main` holds the packed pixels, the luma of semi-planar formats or the alpha of A8P. `chroma` is
// the semi-planar formats' Cb Cr plane: it has luma's pitch, and its first row begins pitch *
// height bytes after luma's first row. `alpha` is the alpha plane of formats whose name ends in
// A8P.
template <class Byte> struct BasicImageView {
    Format format = Format::A8C;
    std::uint32_t width = 0;   // pixels
    std::uint32_t height = 0;  // rows
    BasicPlane<Byte> main;
    BasicPlane<Byte> chroma;
    BasicPlane<Byte> alpha;

    operator BasicImageView<const Byte>() const noexcept requires(!std::is_const_v<Byte>) {
        const auto readOnly = [](const BasicPlane<Byte>& plane) {
            return BasicPlane<const Byte>{plane.bytes, plane.pitch};
        };
        return {format, width, height, readOnly(main), readOnly(chroma), readOnly(alpha)};
    }
};

using Plane = BasicPlane<std::byte>;
using ConstPlane = BasicPlane<const std::byte>;
using ImageView = BasicImageView<std::byte>;
using ConstImageView = BasicImageView<const std::byte>;

// An image that owns its memory, laid out so that every conversion takes its fast path where the
// width allows: planes begin at multiples of 64 bytes, pitches are multiples of 64 (BGR24I: 192).
// The memory is zero at first. Moving keeps the planes where they are and leaves an empty A8C
// image.
class Image {
public:
    // Empty if the format has no planes, if a 4:2:2 width is odd, if the size is beyond what
    // convert() takes, or if there is not enough memory.
    static std::optional<Image> create(Format format, std::uint32_t width,
                                       std::uint32_t height) noexcept;

    Image(Image&& other) noexcept
        : memory(std::exchange(other.memory, nullptr)), planes(std::exchange(other.planes, {})) {}
    Image& operator=(Image&& other) noexcept {
        std::swap(memory, other.memory);
        std::swap(planes, other.planes);
        return *this;
    }
    ~Image();

    Format format() const noexcept { return planes.format; }
    std::uint32_t width() const noexcept { return planes.width; }
    std::uint32_t height() const noexcept { return planes.height; }

    // Views stay valid as long as the image that now owns the memory lives.
    ImageView view() noexcept { return planes; }
    ConstImageView view() const noexcept { return planes; }

private:
    Image() = default;

    void* memory = nullptr;
    ImageView planes;
};

// ---- Results ------------------------------------------------------------------------------------

enum class ErrorCode : std::uint8_t {
    none,
    noSuchConversion,  // the two formats have no conversion
    wrongLayout,    // with these two matrices the library writes another layout than the named one
    badOption,      // an option outside its range
    sizeMismatch,   // the images differ in width or height
    oddWidth,       // 4:2:2 needs whole pixel pairs
    sizeOverflow,   // a size does not fit the 32-bit fields of the C interface
    nullPlane,      // a plane that the format has is empty
    pitchBelowRow,  // rows would overlap one another
    shortPlane,     // a plane is shorter than its rows
    chromaPlacement,  // a chroma plane is not where the format puts it
    misaligned,       // a plane's rows begin at addresses that no kernel takes
    overlap,          // two planes share bytes, at least one of them written
    badRows,          // rows outside the image
};

// How a conversion went. Tests as true if it was done; else nothing has been read or written.
struct [[nodiscard]] Result {
    ErrorCode code = ErrorCode::none;
    std::string_view field;   // the argument at fault, for example "destination.main.pitch"
    std::int64_t value = 0;   // what it held
    std::string_view advice;  // a sentence: what to change

    explicit operator bool() const noexcept { return code == ErrorCode::none; }

    // "<field> is <value>: <advice>", or "done".
    std::string describe() const;
};

// ---- Conversion ---------------------------------------------------------------------------------

enum class Matrix : std::uint8_t { bt601, bt709 };
enum class Range : std::uint8_t { studio, full };

struct Options {
    Matrix srcMatrix = Matrix::bt709;  // of a YCbCr source
    Matrix dstMatrix = Matrix::bt709;  // of a YCbCr destination
    Range range = Range::studio;       // of YCbCr luma, between YCbCr and BGR
    bool clampStudio = false;          // clamp luma to 16..235 wherever colours are computed
    int alpha = 255;                   // 0..255: alpha of a destination whose source has none
    // Write past the cache where possible: for frames that are not read again soon. Never changes
    // a byte. A store fence is issued, so the frame may go to another thread at once.
    bool streaming = false;
};

// Some rows of both images, counted from the top; all of them by default.
struct RowRange {
    std::uint32_t first = 0;
    std::uint32_t count = UINT32_MAX;  // is cut to the rows below `first`
};

// Converts the source into the destination, which has the same size. Every byte of the
// destination's rows is written, and nothing outside them.
//
// Refuses, before it touches memory, whatever it cannot convert rightly; Result tells why. It calls
// the export of the two formats where that gives the right picture and other exports where those
// do, so these hold for every pair and every address that is not refused:
// - alpha that the source does not have is Options::alpha in every pixel, and alpha that it has
//   goes to its own pixel;
// - the picture does not depend on addresses and pitches, with one exception: between different
//   matrices of two YCbCr formats, pixels at which chroma changes may differ where the
//   destination's address divides a row into other blocks;
// - converting the rows in ranges, in any order and on any threads, gives the same bytes as
//   converting them all at once.
//
// Rows of the destination must begin at multiples of 8 bytes from YCbCr to BGR32I, of 4 between
// YCbCr formats of different matrices, and of 2 from YCbCr to BGR24I. Otherwise any address and
// pitch will do, at best multiples of 64 as in Image.
//
// Does not allocate. An empty image or row range is done at once.
Result convert(const ConstImageView& source, const ImageView& destination,
               const Options& options = {}, RowRange rows = {}) noexcept;

// A pair of formats that convert() knows.
struct Conversion {
    Format source;
    Format destination;
};

// Every pair, in the order of the library's export list.
std::vector<Conversion> conversions();

// Whether convert() knows the pair.
bool canConvert(Format source, Format destination) noexcept;

}  // namespace orva
