// Formats and the sizes of what they store, as the C interface tells them.
#include "picture/formats.hpp"
#include "picture/units.hpp"

#include <cstring>

namespace orva {
namespace {

using picture::formatCount;
using picture::formatTable;

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool sameName(const char* a, const char* b, std::size_t length) {
    for (std::size_t i = 0; i < length; ++i) {
        if (lower(a[i]) != lower(b[i])) {
            return false;
        }
    }
    return true;
}

// Whether the name is one of a list that spaces separate.
bool listHolds(const char* list, const char* name) {
    const std::size_t length = std::strlen(name);
    while (*list) {
        const std::size_t item = std::strcspn(list, " ");
        if (item == length && sameName(list, name, length)) {
            return true;
        }
        list += item + (list[item] == ' ' ? 1 : 0);
    }
    return false;
}

}  // namespace
}  // namespace orva

using namespace orva;

uint32_t orva_format_count(void) { return formatCount; }

const OrvaFormatInfo* orva_format_info(OrvaFormat format) {
    return format < formatCount ? &formatTable[format] : nullptr;
}

OrvaFormat orva_format_named(const char* name) {
    for (const OrvaFormatInfo& info : formatTable) {
        if (name && (listHolds(info.name, name) || listHolds(info.otherNames, name))) {
            return info.format;
        }
    }
    return ORVA_FORMAT_NONE;
}

int32_t orva_can_convert(OrvaFormat source, OrvaFormat destination) {
    const OrvaFormatInfo *from = orva_format_info(source), *to = orva_format_info(destination);
    if (!from || !to || destination == ORVA_FORMAT_A8C) {
        return 0;
    }
    return to->model == ORVA_MODEL_ALPHA ? from->hasAlpha != 0 : from->model != ORVA_MODEL_ALPHA;
}

uint64_t orva_row_bytes(OrvaFormat format, uint32_t plane, uint32_t width) {
    const OrvaFormatInfo* const info = orva_format_info(format);
    return info && plane < ORVA_PLANE_COUNT
               ? bytesOfUnits<std::uint64_t>(info->planes[plane], width)
               : 0;
}

uint64_t orva_frame_pitch(OrvaFormat format, uint32_t plane, uint32_t width) {
    const std::uint64_t row = orva_row_bytes(format, plane, width);
    return format == ORVA_FORMAT_V210 ? roundUp<std::uint64_t>(row, 128) : row;
}

uint64_t orva_frame_bytes(OrvaFormat format, uint32_t width, uint32_t height) {
    std::uint64_t rows = 0;  // one of each plane: all planes have as many
    for (std::uint32_t plane = 0; plane < ORVA_PLANE_COUNT; ++plane) {
        rows += orva_frame_pitch(format, plane, width);
    }
    return height > 0 && rows > UINT64_MAX / height ? UINT64_MAX : rows * height;
}
