// The list of conversions, read off the names of the library's exports: a new export is known here
// as soon as it is exported.
#include "conversions.hpp"

#include <algorithm>
#include <array>

namespace orva {
namespace {

struct Entry {
    Format source = Format::A8C;
    Format destination = Format::A8C;
    Export function = nullptr;  // null for the exports that take no descriptor
};

constexpr std::string_view prefix = "ORVA_SSE2_", suffix = "_EX";

Entry entryOf(std::string_view name, Export function) {
    name.remove_prefix(prefix.size());
    name.remove_suffix(suffix.size());
    const auto middle = name.find('_');
    const auto source = formatNamed(name.substr(0, middle));
    const auto destination = formatNamed(name.substr(middle + 1));
    return source && destination ? Entry{*source, *destination, function} : Entry{};
}

template <class... Arguments> Entry entryOf(std::string_view, void(ORVA_CALL*)(Arguments...)) {
    return {};
}

const auto& table() {
    static const std::array entries = {
#define ORVA_EXPORT_NAME(name) entryOf(#name, &name),
#include "export_list.inc"
#undef ORVA_EXPORT_NAME
    };
    return entries;
}

}  // namespace

Export exportFor(Format source, Format destination) noexcept {
    const auto found = std::ranges::find_if(table(), [&](const Entry& entry) {
        return entry.function && entry.source == source && entry.destination == destination;
    });
    return found == table().end() ? nullptr : found->function;
}

std::vector<Conversion> conversions() {
    std::vector<Conversion> pairs;
    for (const Entry& entry : table()) {
        if (entry.function) {
            pairs.push_back({entry.source, entry.destination});
        }
    }
    return pairs;
}

bool canConvert(Format source, Format destination) noexcept {
    return exportFor(source, destination) != nullptr;
}

}  // namespace orva
