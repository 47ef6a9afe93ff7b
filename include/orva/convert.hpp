// ORVA for C++20: any pixel format to any other, on images that know their size, every argument
// checked before a byte is touched.
//
//     orva::Image frame = ...;                                    // UYVY16I, filled by a decoder
//     auto screen = orva::Image::create(orva::Format::BGR32I, frame.width(), frame.height());
//     if (orva::Result result = orva::convert(frame.view(), screen->view()); !result)
//         std::cerr << result.describe() << '\n';
//
// No function here throws or allocates unless it returns a string, a vector or an Image. convert()
// takes less than 64 KB of stack.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace orva {

// ---- Formats ------------------------------------------------------------------------------------

// Letters name the samples in memory order, numbers their bits or those of a pixel; P ends a plane,
// I a plane in which samples are interleaved. A trailing A8P is an alpha plane beside the image.
enum class Format : std::uint8_t {
    UYVY16I,  // 4:2:2 in one plane: Cb Y Cr Y
    YUYV16I,  // Y Cb Y Cr
    UVYY16I,  // Cb Cr Y Y
    Y8PUV8I,  // a plane of Y, a plane of Cb Cr pairs
    BGR32I,   // B G R A
    BGR24I,   // B G R
    A8P,      // alpha alone
    UYVY16IA8P,
    YUYV16IA8P,
    UVYY16IA8P,
    Y8PUV8IA8P,
    BGR24IA8P,
    A8C,           // a source without planes: every pixel's alpha is Options::alpha
    RGB24I,        // R G B
    RGB32I,        // R G B A
    ARGB32I,       // A R G B
    ABGR32I,       // A B G R
    Y8PU8PV8P,     // 4:2:2 in planes of Y, Cb and Cr
    V210,          // 4:2:2 of 10 bits, 6 pixels in four little-endian 32-bit words
    Y10PUV10I,     // as Y8PUV8I in 16-bit little-endian words whose upper 10 bits are used
    Y10PU10PV10P,  // as Y8PU8PV8P in 16-bit little-endian words whose lower 10 bits are used
    RGB24IA8P,
};

// What the samples of a format mean.
enum class Model : std::uint8_t { alpha, rgb, ycbcr };

// The planes that an image may have.
enum PlaneIndex : std::uint8_t { mainPlane, chromaPlane, crPlane, alphaPlane, planeCount };

// A plane's row is a run of units, each of which holds whole pixels.
struct PlaneInfo {
    std::uint8_t unitBytes = 0;   // 0: the format does not have this plane
    std::uint8_t unitPixels = 0;  // 2 in 4:2:2, 6 in V210, else 1
};

// What a format stores.
struct FormatInfo {
    Format format;
    std::string_view name;
    std::string_view otherNames;  // what other programs call it, separated by spaces; may be empty
    Format colour;                // the same without its alpha plane
    Model model;
    std::uint8_t bits;  // of a sample: 8 or 10
    bool hasAlpha;      // in the pixels, as a plane, or alone
    std::array<PlaneInfo, planeCount> planes;
};

// Never fails for an enumerator of Format; any other value gets A8C.
const FormatInfo& formatInfo(Format format) noexcept;

// Every format, in the order of the enumeration.
std::span<const FormatInfo> formats() noexcept;

// The format with this name or other name, upper or lower case; empty if there is none.
std::optional<Format> formatNamed(std::string_view name) noexcept;

// Bytes of a row without any gap behind it: whole units, of which the last may be partly used. 0
// for a plane that the format does not have.
std::uint64_t rowBytes(Format format, PlaneIndex plane, std::uint32_t width) noexcept;

// ---- Images -------------------------------------------------------------------------------------

// One plane in memory that somebody else owns. `bytes` is all of the plane's memory from its lowest
// address on, row gaps included; only the last row's gap may be missing.
//
// `pitch` is the distance in bytes from a row to the next one below it, at least a row long. A
// negative pitch is a bottom-up image: its first row is the last one in `bytes`.
template <class Byte> struct BasicPlane {
    std::span<Byte> bytes;
    std::ptrdiff_t pitch = 0;
};

// An image in memory that somebody else owns, at any addresses and with any pitches. Planes that
// the format does not have stay empty.
//
// The first pixel of a row is where the plane's row begins: a crop begins at any pixel of RGB and
// alpha, at an even one of 4:2:2, at a multiple of 6 of V210. A width may be odd in every format;
// what a last unit holds beyond it is not part of the picture.
template <class Byte> struct BasicImageView {
    Format format = Format::A8C;
    std::uint32_t width = 0;   // pixels
    std::uint32_t height = 0;  // rows
    BasicPlane<Byte> main;     // packed samples, luma, or alpha alone
    BasicPlane<Byte> chroma;   // pairs of Cb and Cr, or Cb where Cr has a plane of its own
    BasicPlane<Byte> cr;
    BasicPlane<Byte> alpha;  // of formats whose name ends in A8P

    operator BasicImageView<const Byte>() const noexcept requires(!std::is_const_v<Byte>) {
        const auto readOnly = [](const BasicPlane<Byte>& plane) {
            return BasicPlane<const Byte>{plane.bytes, plane.pitch};
        };
        return {format,           width,        height,         readOnly(main),
                readOnly(chroma), readOnly(cr), readOnly(alpha)};
    }
};

using Plane = BasicPlane<std::byte>;
using ConstPlane = BasicPlane<const std::byte>;
using ImageView = BasicImageView<std::byte>;
using ConstImageView = BasicImageView<const std::byte>;

// The plane with this index.
template <class Byte>
BasicPlane<Byte>& planeOf(BasicImageView<Byte>& image, PlaneIndex plane) noexcept {
    return plane == mainPlane     ? image.main
           : plane == chromaPlane ? image.chroma
           : plane == crPlane     ? image.cr
                                  : image.alpha;
}
template <class Byte>
const BasicPlane<Byte>& planeOf(const BasicImageView<Byte>& image, PlaneIndex plane) noexcept {
    return planeOf(const_cast<BasicImageView<Byte>&>(image), plane);
}

// An image that owns its memory: planes begin at multiples of 64 bytes, and pitches are such
// multiples. The memory is zero at first. Moving keeps the planes where they are and leaves an
// empty A8C image.
class Image {
public:
    // Empty if the format has no planes or is none, or if there is not enough memory.
    static std::optional<Image> create(Format format, std::uint32_t width,
                                       std::uint32_t height) noexcept;

    Image(Image&& other) noexcept
        : memory(std::exchange(other.memory, nullptr)), planes(std::exchange(other.planes, {})) {}
    Image& operator=(Image&& other) noexcept {
        Image taken(std::move(other));
        std::swap(memory, taken.memory);
        std::swap(planes, taken.planes);
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
    badFormat,         // a value that is no format
    noSuchConversion,  // colour of alpha alone, alpha of colour without it, or into A8C
    badOption,         // an option outside its range
    sizeMismatch,      // the images differ in width or height
    nullPlane,         // a plane that the format has is not there
    pitchBelowRow,     // rows would overlap one another
    shortPlane,        // a plane is shorter than its rows
    overlap,           // two planes share bytes, gaps between rows included, and one is written
    badRows,           // rows outside the image
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

// How YCbCr is made of R'G'B': ITU-R BT.601, BT.709, BT.2020 with non-constant luminance.
enum class Matrix : std::uint8_t { bt601, bt709, bt2020 };

// Which codes mean black to white, and the least to the greatest chroma: of 8 bits, 16 to 235 and
// 16 to 240 (studio), or 0 to 255 and 0.5 to 255.5 (full). RGB is always full.
enum class Range : std::uint8_t { studio, full };

// Where 4:2:2 chroma lies. Cosited: on the even pixels; an odd pixel takes the mean of its
// neighbours' (the last one its left neighbour's), and what is made of RGB is filtered by 1/4 1/2
// 1/4 around the even pixel, with the row's first and last pixel repeated beyond its ends. Nearest:
// both pixels of a pair take the pair's, and the even pixel's is kept.
enum class Chroma : std::uint8_t { cosited, nearest };

// Whether frames are written past the cache, which is faster where they are not read again soon.
// Never changes a byte. Automatic: what only moves, in pictures of 2 MB and more, source and
// destination together.
enum class Streaming : std::uint8_t { automatic, never, always };

struct Options {
    Matrix srcMatrix = Matrix::bt709;  // of a YCbCr source
    Matrix dstMatrix = Matrix::bt709;  // of a YCbCr destination
    Range srcRange = Range::studio;    // of a YCbCr source
    Range dstRange = Range::studio;    // of a YCbCr destination
    Chroma chroma = Chroma::cosited;
    int alpha = 255;  // 0..255: alpha of a destination whose source has none
    Streaming streaming = Streaming::automatic;
};

// Some rows of both images, counted from the top; all of them by default.
struct RowRange {
    std::uint32_t first = 0;
    std::uint32_t count = UINT32_MAX;  // is cut to the rows below `first`
};

// Converts the source into the destination, which has the same size. Every byte of the
// destination's rows is written and nothing outside them, nothing outside the source's rows is
// read, and what was stored past the cache is seen by every thread afterwards.
//
// No sample is further than 0.6 of a code from the real value that the standards define; samples
// outside their nominal range keep their value and saturate only where the destination ends (in
// V210 at 4 and 1019: its other codes are reserved). Same format but for an alpha plane, same
// matrix and range: rows are copied. Else 4:2:2 repeats the luma of an odd row's last pixel behind
// it, and V210 is zero beyond the last pair.
//
// Alpha that the source has goes to its own pixel, or is dropped where the destination has none;
// alpha that it does not have is Options::alpha in every pixel.
//
// The two images may share the same one of their planes where both divide it into the same units
// (PlaneInfo): first rows at the same address, with the same pitch. Any other overlap is refused.
//
// Converting the rows in ranges, in any order and on any threads, gives the same bytes as
// converting them all at once. Does not allocate. An empty image or row range is done at once.
Result convert(const ConstImageView& source, const ImageView& destination,
               const Options& options = {}, RowRange rows = {}) noexcept;

// A pair of formats that convert() knows.
struct Conversion {
    Format source;
    Format destination;
};

// Every pair, by source and then destination in the order of the enumeration.
std::vector<Conversion> conversions();

// Whether convert() knows the pair: every colour to every colour, and what has alpha, A8C included,
// to A8P.
bool canConvert(Format source, Format destination) noexcept;

}  // namespace orva
