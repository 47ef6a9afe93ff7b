// ORVA for C++20: any pixel format to any other, on images that know their size, every argument
// checked before a byte is touched.
//
//     orva::Image frame = ...;                                    // UYVY16I, filled by a decoder
//     auto screen = orva::Image::create(orva::Format::BGR32I, frame.width(), frame.height());
//     if (orva::Result result = orva::convert(frame.view(), screen->view()); !result)
//         std::cerr << result << '\n';
//
// All of this is inline and stands on <orva/convert.h>, so that any compiler can use the same
// library. No function here throws or allocates unless it returns a string, a vector or an Image.
#pragma once

#if !(__cplusplus >= 202002L || (defined(_MSVC_LANG) && _MSVC_LANG >= 202002L))
#error "<orva/convert.hpp> needs C++20; <orva/convert.h> serves C and older C++"
#endif

#include <orva/convert.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <iosfwd>
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

// Letters name the samples in memory order, numbers their bits or those of a pixel; P ends a plane,
// I a plane in which samples are interleaved. A trailing A8P is an alpha plane beside the image.
enum class Format : std::uint32_t {
    UYVY16I = ORVA_FORMAT_UYVY16I,  // 4:2:2 in one plane: Cb Y Cr Y
    YUYV16I = ORVA_FORMAT_YUYV16I,  // Y Cb Y Cr
    UVYY16I = ORVA_FORMAT_UVYY16I,  // Cb Cr Y Y
    Y8PUV8I = ORVA_FORMAT_Y8PUV8I,  // a plane of Y, a plane of Cb Cr pairs
    BGR32I = ORVA_FORMAT_BGR32I,    // B G R A
    BGR24I = ORVA_FORMAT_BGR24I,    // B G R
    A8P = ORVA_FORMAT_A8P,          // alpha alone
    UYVY16IA8P = ORVA_FORMAT_UYVY16IA8P,
    YUYV16IA8P = ORVA_FORMAT_YUYV16IA8P,
    UVYY16IA8P = ORVA_FORMAT_UVYY16IA8P,
    Y8PUV8IA8P = ORVA_FORMAT_Y8PUV8IA8P,
    BGR24IA8P = ORVA_FORMAT_BGR24IA8P,
    A8C = ORVA_FORMAT_A8C,        // a source without planes: every pixel's alpha is Options::alpha
    RGB24I = ORVA_FORMAT_RGB24I,  // R G B
    RGB32I = ORVA_FORMAT_RGB32I,  // R G B A
    ARGB32I = ORVA_FORMAT_ARGB32I,      // A R G B
    ABGR32I = ORVA_FORMAT_ABGR32I,      // A B G R
    Y8PU8PV8P = ORVA_FORMAT_Y8PU8PV8P,  // 4:2:2 in planes of Y, Cb and Cr
    V210 = ORVA_FORMAT_V210,  // 4:2:2 of 10 bits, 6 pixels in four little-endian 32-bit words
    Y10PUV10I = ORVA_FORMAT_Y10PUV10I,  // as Y8PUV8I: upper 10 bits of 16-bit little-endian words
    Y10PU10PV10P = ORVA_FORMAT_Y10PU10PV10P,  // as Y8PU8PV8P: lower 10 bits of such words
    RGB24IA8P = ORVA_FORMAT_RGB24IA8P,
};

// What the samples of a format mean.
enum class Model : std::uint32_t {
    alpha = ORVA_MODEL_ALPHA,
    rgb = ORVA_MODEL_RGB,
    ycbcr = ORVA_MODEL_YCBCR,
};

// The planes that an image may have.
enum PlaneIndex : std::uint8_t {
    mainPlane = ORVA_PLANE_MAIN,
    chromaPlane = ORVA_PLANE_CHROMA,
    crPlane = ORVA_PLANE_CR,
    alphaPlane = ORVA_PLANE_ALPHA,
    planeCount = ORVA_PLANE_COUNT,
};

// A plane's row is a run of units, each of which holds whole pixels.
using PlaneInfo = OrvaPlaneInfo;

// What a format stores.
struct FormatInfo {
    Format format;
    std::string_view name;
    std::string_view otherNames;  // what other programs call it, separated by spaces; may be empty
    Format colour;                // the same without its alpha plane
    Model model;
    int bits;       // of a sample: 8 or 10
    bool hasAlpha;  // in the pixels, as a plane, or alone
    std::array<PlaneInfo, planeCount> planes;
};

// Whether the library knows the value, which is always so for Format's enumerators unless this
// header is newer than the library.
inline bool isFormat(Format format) noexcept {
    return static_cast<OrvaFormat>(format) < orva_format_count();
}

// A8C's for a value that is no format.
inline FormatInfo formatInfo(Format format) noexcept {
    const OrvaFormatInfo& info =
        *orva_format_info(static_cast<OrvaFormat>(isFormat(format) ? format : Format::A8C));
    return {Format{info.format}, info.name,
            info.otherNames,     Format{info.colour},
            Model{info.model},   static_cast<int>(info.bits),
            info.hasAlpha != 0,  {info.planes[0], info.planes[1], info.planes[2], info.planes[3]}};
}

// Every format, in the order of the enumeration.
inline std::vector<FormatInfo> formats() {
    std::vector<FormatInfo> all;
    for (std::uint32_t i = 0; i < orva_format_count(); ++i) {
        all.push_back(formatInfo(Format{i}));
    }
    return all;
}

// The format with this name or other name, upper or lower case; empty if there is none.
inline std::optional<Format> formatNamed(std::string_view name) noexcept {
    std::array<char, 64> text{};  // ends with a 0, and no name is nearly as long
    if (name.size() >= text.size() || name.find('\0') != name.npos) {
        return std::nullopt;
    }
    std::ranges::copy(name, text.begin());
    const OrvaFormat format = orva_format_named(text.data());
    return format == ORVA_FORMAT_NONE ? std::nullopt : std::optional(Format{format});
}

// Bytes of a row without any gap behind it: whole units, of which the last may be partly used. 0
// for a plane that the format does not have.
inline std::uint64_t rowBytes(Format format, PlaneIndex plane, std::uint32_t width) noexcept {
    return orva_row_bytes(static_cast<OrvaFormat>(format), plane, width);
}

// Bytes from a row to the next one in a raw frame, as files and pipes hold it: a row without a gap,
// but in V210 the next multiple of 128.
inline std::uint64_t framePitch(Format format, PlaneIndex plane, std::uint32_t width) noexcept {
    return orva_frame_pitch(static_cast<OrvaFormat>(format), plane, width);
}

// Bytes of a raw frame: its planes in the order of PlaneIndex, one behind the other. UINT64_MAX if
// there are more than that.
inline std::uint64_t frameBytes(Format format, std::uint32_t width, std::uint32_t height) noexcept {
    return orva_frame_bytes(static_cast<OrvaFormat>(format), width, height);
}

// ---- Results ------------------------------------------------------------------------------------

enum class ErrorCode : std::int32_t {
    none = ORVA_DONE,
    badFormat = ORVA_BAD_FORMAT,                 // a value that is no format
    noSuchConversion = ORVA_NO_SUCH_CONVERSION,  // colour of alpha alone, alpha of colour without
                                                 // it, or into A8C
    badOption = ORVA_BAD_OPTION,                 // an option outside its range
    sizeMismatch = ORVA_SIZE_MISMATCH,           // the images differ in width or height
    nullPlane = ORVA_NULL_PLANE,                 // a plane that the format has is not there
    pitchBelowRow = ORVA_PITCH_BELOW_ROW,        // rows would overlap one another
    shortPlane = ORVA_SHORT_PLANE,               // a plane is shorter than its rows
    overlap = ORVA_OVERLAP,   // two planes share bytes, gaps between rows included, one is written
    badRows = ORVA_BAD_ROWS,  // rows outside the image
    badSize = ORVA_BAD_SIZE,  // a row, or a plane, longer than half of the address space
    badCrop = ORVA_BAD_CROP,  // a crop outside the image, or not on whole units
    nullArgument = ORVA_NULL_ARGUMENT,
    badStructSize = ORVA_BAD_STRUCT_SIZE,  // this header is newer than the library
};

// How a call went. Tests as true if it was done; else nothing has been read or written.
struct [[nodiscard]] Result {
    ErrorCode code = ErrorCode::none;
    std::string_view field;   // the argument at fault, for example "destination.main.pitch"
    std::int64_t value = 0;   // what it held
    std::string_view advice;  // a sentence: what to change

    explicit operator bool() const noexcept { return code == ErrorCode::none; }

    // "<field> is <value>: <advice>", or "done".
    std::string describe() const {
        if (*this) {
            return "done";
        }
        std::string text(field);
        text += " is " + std::to_string(value) + ": ";
        text += advice;
        return text;
    }
};

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

// Where a plane's first row, the top one, begins, and how far apart its rows are.
template <class Byte> struct BasicRows {
    using Pointer = std::conditional_t<std::is_const_v<Byte>, const void*, void*>;

    Pointer first = nullptr;
    std::ptrdiff_t pitch = 0;
};

template <class Byte> struct BasicImageView;

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

    // Over planes that begin where a decoder or a window has them: those that the format has, in
    // the order of PlaneIndex. The memory must hold all rows, of which the last may lack its gap; a
    // plane that is not given stays empty, and is refused by whoever needs it.
    static BasicImageView overRows(Format format, std::uint32_t width, std::uint32_t height,
                                   std::initializer_list<BasicRows<Byte>> planes) noexcept {
        BasicImageView image{format, width, height, {}, {}, {}, {}};
        const BasicRows<Byte>* rows = planes.begin();
        for (const PlaneIndex p : {mainPlane, chromaPlane, crPlane, alphaPlane}) {
            const auto row = static_cast<std::size_t>(rowBytes(format, p, width));
            if (row == 0 || rows == planes.end()) {
                continue;
            }
            if (rows->first && height > 0) {
                auto* lowest = static_cast<Byte*>(rows->first);
                const std::size_t distance = rows->pitch < 0
                                                 ? 0 - static_cast<std::size_t>(rows->pitch)
                                                 : static_cast<std::size_t>(rows->pitch);
                const std::size_t below = distance * (height - 1);
                planeOf(image, p) = {{rows->pitch < 0 ? lowest - below : lowest, below + row},
                                     rows->pitch};
            }
            ++rows;
        }
        return image;
    }

    // Over one raw frame, as files and pipes hold it (frameBytes); empty if the memory is too short
    // or the format has no planes.
    static std::optional<BasicImageView> overFrame(Format format, std::uint32_t width,
                                                   std::uint32_t height,
                                                   std::span<Byte> frame) noexcept {
        OrvaImage image = ORVA_IMAGE_INIT;
        if (orva_frame_image(&image, static_cast<OrvaFormat>(format), width, height,
                             const_cast<std::byte*>(frame.data()), frame.size(), nullptr)) {
            return std::nullopt;
        }
        return of(image);
    }

    // The pixels from (x, y) on, `width` times `height` of them; empty if they are not all in the
    // image, or x is not on a whole unit: even in 4:2:2, a multiple of 6 in V210.
    std::optional<BasicImageView> cropped(std::uint32_t x, std::uint32_t y, std::uint32_t cropWidth,
                                          std::uint32_t cropHeight) const noexcept {
        OrvaImage image = c();
        if (orva_crop(&image, x, y, cropWidth, cropHeight, nullptr)) {
            return std::nullopt;
        }
        return of(image);
    }

    // The bytes of a row, counted from the top, without the gap behind it; y must be less than the
    // height and the plane one that is there.
    std::span<Byte> row(std::uint32_t y, PlaneIndex plane = mainPlane) const noexcept {
        const auto& [bytes, pitch] = planeOf(*this, plane);
        const auto length = static_cast<std::size_t>(rowBytes(format, plane, width));
        if (length == 0) {
            return {};
        }
        const std::size_t above = pitch < 0 ? height - 1 - y : y;
        const std::size_t distance =
            pitch < 0 ? 0 - static_cast<std::size_t>(pitch) : static_cast<std::size_t>(pitch);
        return bytes.subspan(above * distance, length);
    }

    // The same for the C interface, and from there.
    OrvaImage c() const noexcept {
        const auto plane = [](const BasicPlane<Byte>& from) {
            return OrvaPlane{const_cast<std::byte*>(from.bytes.data()), from.bytes.size(),
                             from.pitch};
        };
        return {sizeof(OrvaImage),
                static_cast<OrvaFormat>(format),
                width,
                height,
                plane(main),
                plane(chroma),
                plane(cr),
                plane(alpha)};
    }
    static BasicImageView of(const OrvaImage& image) noexcept {
        const auto plane = [](const OrvaPlane& from) {
            return BasicPlane<Byte>{{static_cast<Byte*>(from.data), from.size}, from.pitch};
        };
        return {Format{image.format}, image.width,     image.height,      plane(image.main),
                plane(image.chroma),  plane(image.cr), plane(image.alpha)};
    }

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

// An image that owns its memory: planes begin at multiples of 64 bytes, and pitches are such
// multiples, or the next power of two where rows are shorter. The memory is zero at first. Moving
// keeps the planes where they are and leaves an empty A8C image, which a new one is, too.
class Image {
public:
    Image() noexcept = default;

    // Empty if the format has no planes or is none, or if there is not enough memory.
    static std::optional<Image> create(Format format, std::uint32_t width,
                                       std::uint32_t height) noexcept {
        std::array<std::uint64_t, planeCount> pitches{};
        std::uint64_t pitch = 0;  // of all planes
        for (const PlaneIndex p : {mainPlane, chromaPlane, crPlane, alphaPlane}) {
            const std::uint64_t row = rowBytes(format, p, width);
            pitches[p] = row < alignment ? (row ? std::bit_ceil(row) : 0)
                                         : (row + alignment - 1) / alignment * alignment;
            pitch += pitches[p];
        }
        constexpr auto most = static_cast<std::uint64_t>(PTRDIFF_MAX) - planeCount * alignment;
        if (formatInfo(format).planes[mainPlane].unitBytes == 0 ||
            (height > 0 && pitch > most / height)) {
            return std::nullopt;
        }
        const auto size = static_cast<std::size_t>(pitch * height) + planeCount * alignment;

        Image image;
        image.memory = ::operator new (size, std::align_val_t{alignment}, std::nothrow);
        if (!image.memory) {
            return std::nullopt;
        }
        std::memset(image.memory, 0, size);
        image.planes.format = format;
        image.planes.width = width;
        image.planes.height = height;
        auto* next = static_cast<std::byte*>(image.memory);
        for (const PlaneIndex p : {mainPlane, chromaPlane, crPlane, alphaPlane}) {
            if (formatInfo(format).planes[p].unitBytes > 0) {
                const auto bytes = static_cast<std::size_t>(pitches[p] * height);
                planeOf(image.planes, p) = {{next, bytes}, static_cast<std::ptrdiff_t>(pitches[p])};
                next += (bytes + alignment - 1) / alignment * alignment;
            }
        }
        return image;
    }

    Image(Image&& other) noexcept
        : memory(std::exchange(other.memory, nullptr)), planes(std::exchange(other.planes, {})) {}
    Image& operator=(Image&& other) noexcept {
        if (this != &other) {
            free();
            memory = std::exchange(other.memory, nullptr);
            planes = std::exchange(other.planes, {});
        }
        return *this;
    }
    ~Image() { free(); }

    Format format() const noexcept { return planes.format; }
    std::uint32_t width() const noexcept { return planes.width; }
    std::uint32_t height() const noexcept { return planes.height; }

    // Views stay valid as long as the image that now owns the memory lives.
    ImageView view() noexcept { return planes; }
    ConstImageView view() const noexcept { return planes; }

    // As those of the view.
    std::span<std::byte> row(std::uint32_t y, PlaneIndex plane = mainPlane) noexcept {
        return planes.row(y, plane);
    }
    std::span<const std::byte> row(std::uint32_t y, PlaneIndex plane = mainPlane) const noexcept {
        return planes.row(y, plane);
    }

private:
    static constexpr std::size_t alignment = 64;

    void free() noexcept {
        if (memory) {
            ::operator delete (memory, std::align_val_t{alignment});
        }
    }

    void* memory = nullptr;
    ImageView planes;
};

// ---- Conversion ---------------------------------------------------------------------------------

// How YCbCr is made of R'G'B': ITU-R BT.601, BT.709, BT.2020 with non-constant luminance.
enum class Matrix : std::uint32_t {
    bt601 = ORVA_MATRIX_BT601,
    bt709 = ORVA_MATRIX_BT709,
    bt2020 = ORVA_MATRIX_BT2020,
};

// Which codes mean black to white, and the least to the greatest chroma: of 8 bits, 16 to 235 and
// 16 to 240 (studio), or 0 to 255 and 0.5 to 255.5 (full). RGB is always full.
enum class Range : std::uint32_t { studio = ORVA_RANGE_STUDIO, full = ORVA_RANGE_FULL };

// Where 4:2:2 chroma lies. Cosited: on the even pixels; an odd pixel takes the mean of its
// neighbours' (the last one its left neighbour's), and what is made of RGB is filtered by 1/4 1/2
// 1/4 around the even pixel, with the row's first and last pixel repeated beyond its ends. Nearest:
// both pixels of a pair take the pair's, and the even pixel's is kept.
enum class Chroma : std::uint32_t {
    cosited = ORVA_CHROMA_COSITED,
    nearest = ORVA_CHROMA_NEAREST,
};

// Whether frames are written past the cache, which is faster where they are not read again soon.
// Never changes a byte, and takes place where whole cache lines come together: in planes that are
// copied or filled; where rows of the destination begin at multiples of 64 bytes, and are long or
// end near one as well; in a single row, and in rows without gaps if no pixel needs its neighbours.
// Automatic: in pictures of 2 MB and more, source and destination together, what only moves, and
// where the processor gains by it what is computed and takes no fewer bytes than the source.
enum class Streaming : std::uint32_t {
    automatic = ORVA_STREAMING_AUTOMATIC,
    never = ORVA_STREAMING_NEVER,
    always = ORVA_STREAMING_ALWAYS,
};

struct Options {
    Matrix srcMatrix = Matrix::bt709;  // of a YCbCr source
    Matrix dstMatrix = Matrix::bt709;  // of a YCbCr destination
    Range srcRange = Range::studio;    // of a YCbCr source
    Range dstRange = Range::studio;    // of a YCbCr destination
    Chroma chroma = Chroma::cosited;
    int alpha = 255;  // 0..255: alpha of a destination whose source has none
    Streaming streaming = Streaming::automatic;

    // The same for the C interface.
    OrvaOptions c() const noexcept {
        return {sizeof(OrvaOptions),
                static_cast<std::uint32_t>(srcMatrix),
                static_cast<std::uint32_t>(dstMatrix),
                static_cast<std::uint32_t>(srcRange),
                static_cast<std::uint32_t>(dstRange),
                static_cast<std::uint32_t>(chroma),
                static_cast<std::uint32_t>(streaming),
                alpha};
    }
};

// Some rows of both images, counted from the top; all of them by default.
struct RowRange {
    std::uint32_t first = 0;
    std::uint32_t count = UINT32_MAX;  // is cut to the rows below `first`
};

// Converts the source into the destination, which has the same size. Every byte of the
// destination's rows is written and nothing outside them, nothing outside the source's rows is
// read, and what was stored past the cache is seen by every thread afterwards. Takes less than
// 64 KB of stack.
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
// converting them all at once. An empty image or row range is done at once.
inline Result convert(const ConstImageView& source, const ImageView& destination,
                      const Options& options = {}, RowRange rows = {}) noexcept {
    const OrvaImage from = source.c(), to = destination.c();
    const OrvaOptions choices = options.c();
    OrvaError error = ORVA_ERROR_INIT;
    const auto code =
        ErrorCode{orva_convert_rows(&from, &to, &choices, rows.first, rows.count, &error)};
    if (code == ErrorCode::none) {
        return {};
    }
    if (error.code == ORVA_DONE) {  // the library does not know this header's OrvaError
        return {code, "error.structSize", sizeof error, "use a library as new as the header"};
    }
    return {code, error.field, error.value, error.advice};
}

// A pair of formats that convert() knows.
struct Conversion {
    Format source;
    Format destination;
};

// Whether convert() knows the pair: every colour to every colour, and what has alpha, A8C included,
// to A8P.
inline bool canConvert(Format source, Format destination) noexcept {
    return orva_can_convert(static_cast<OrvaFormat>(source),
                            static_cast<OrvaFormat>(destination)) != 0;
}

// Every pair, by source and then destination in the order of the enumeration.
inline std::vector<Conversion> conversions() {
    std::vector<Conversion> pairs;
    for (std::uint32_t from = 0; from < orva_format_count(); ++from) {
        for (std::uint32_t to = 0; to < orva_format_count(); ++to) {
            if (canConvert(Format{from}, Format{to})) {
                pairs.push_back({Format{from}, Format{to}});
            }
        }
    }
    return pairs;
}

// ---- Text ---------------------------------------------------------------------------------------

// "UYVY16I", or "Format(99)" for a value that is no format. Of streams of char.
template <class Traits>
std::basic_ostream<char, Traits>& operator<<(std::basic_ostream<char, Traits>& out, Format format) {
    if (isFormat(format)) {
        return out << formatInfo(format).name;
    }
    return out << "Format(" << static_cast<std::uint32_t>(format) << ")";
}

// What Result::describe() says.
template <class Traits>
std::basic_ostream<char, Traits>& operator<<(std::basic_ostream<char, Traits>& out,
                                             const Result& result) {
    if (result) {
        return out << "done";
    }
    return out << result.field << " is " << result.value << ": " << result.advice;
}

}  // namespace orva
