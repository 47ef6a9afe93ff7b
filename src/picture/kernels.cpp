// One instruction set's table: which passes there are.
#include "picture/colour_passes.hpp"
#include "picture/move_passes.hpp"
#include "picture/v210_passes.hpp"

#include <utility>

namespace orva::ORVA_ISA {
namespace {

void stream(uint8_t* to, const uint8_t* from, size_t bytes) {
    size_t at = -reinterpret_cast<uintptr_t>(to) % cacheLine;
    if (bytes < at + cacheLine) {
        __builtin_memcpy(to, from, bytes);
        return;
    }
    __builtin_memcpy(to, from, at);
    for (; at + cacheLine <= bytes; at += cacheLine)
        for (size_t i = at; i < at + cacheLine; i += Wide::bytes)
            Wide::load(from + i).stream(to + i);
    __builtin_memcpy(to + at, from + at, bytes - at);
}

// Whether a format of this layout may have an alpha plane beside it.
constexpr bool mayHaveAlpha(Layout layout) { return layout <= Layout::semiPlanar8; }

template <Layout layout, class Up, PixelKind kind>
constexpr void addToPixels(picture::Kernels& k, size_t chroma) {
    k.toPixels[layout][chroma][kind][false] = toPixels<layout, Up, kind, false>;
    if constexpr (mayHaveAlpha(layout) && kind != PixelKind::noAlpha)
        k.toPixels[layout][chroma][kind][true] = toPixels<layout, Up, kind, true>;
}

template <PixelKind kind, class Down, Layout layout>
constexpr void addFromPixels(picture::Kernels& k, size_t chroma) {
    k.fromPixels[kind][chroma][layout][false] = fromPixels<kind, Down, layout, false>;
    if constexpr (mayHaveAlpha(layout) && kind != PixelKind::noAlpha)
        k.fromPixels[kind][chroma][layout][true] = fromPixels<kind, Down, layout, true>;
}

template <Layout layout, class Up, class Down, size_t... to>
constexpr void addLayout(picture::Kernels& k, size_t chroma, std::index_sequence<to...>) {
    addToPixels<layout, Up, PixelKind::alphaLast>(k, chroma);
    addToPixels<layout, Up, PixelKind::noAlpha>(k, chroma);
    addToPixels<layout, Up, PixelKind::alphaFirst>(k, chroma);
    addFromPixels<PixelKind::alphaLast, Down, layout>(k, chroma);
    addFromPixels<PixelKind::noAlpha, Down, layout>(k, chroma);
    addFromPixels<PixelKind::alphaFirst, Down, layout>(k, chroma);
    ((k.toYcbcr[layout][chroma][to] = toYcbcr<layout, Up, Layout(to)>), ...);
}

template <Layout from, Layout to> constexpr void addToTenBits(picture::Kernels& k) {
    if constexpr (from != to && to >= Layout::byteLayouts)
        k.toTenBits[from][to] = toTenBits<from, to>;
}
template <Layout from, size_t... to>
constexpr void addToTenBitsFrom(picture::Kernels& k, std::index_sequence<to...>) {
    (addToTenBits<from, Layout(to)>(k), ...);
}

template <Layout from, Layout to> constexpr void addMove(picture::Kernels& k) {
    constexpr bool packed = from <= Layout::uvyy && to <= Layout::uvyy;
    if constexpr (from != to && !packed)
        k.move[from][to] = move<from, to>;
}
template <Layout from, size_t... to>
constexpr void addMovesFrom(picture::Kernels& k, std::index_sequence<to...>) {
    (addMove<from, Layout(to)>(k), ...);
}

template <size_t... all, size_t... bytes>
constexpr picture::Kernels makeKernels(std::index_sequence<all...>, std::index_sequence<bytes...>) {
    picture::Kernels k{};
    k.block = block;
    k.useWideRegisters = Wide::lanes > 1;
    constexpr std::index_sequence<all...> layouts;
    k.unpackV210 = unpackV210;
    k.packV210 = packV210;
    (addLayout<Layout(all), CositedUp, CositedDown>(k, size_t(Chroma::cosited), layouts), ...);
    (addLayout<Layout(all), NearestUp, NearestDown>(k, size_t(Chroma::nearest), layouts), ...);
    (addToTenBitsFrom<Layout(all)>(k, layouts), ...);
    (addMovesFrom<Layout(bytes)>(k, std::index_sequence<bytes...>()), ...);
    k.reorderPairs = reorderPairs;
    k.repack[0][0][0] = repack<3, 3, false>;
    k.repack[0][1][0] = repack<3, 4, false>;
    k.repack[0][1][1] = repack<3, 4, true>;
    k.repack[1][0][0] = repack<4, 3, false>;
    k.repack[1][0][1] = repack<4, 3, true>;
    k.repack[1][1][0] = repack<4, 4, false>;
    k.extractAlpha[0] = extractAlpha<false>;
    k.extractAlpha[1] = extractAlpha<true>;
    k.stream = stream;
    k.fence = fence;
    return k;
}

}  // namespace

extern const picture::Kernels pictureKernels;
constinit const picture::Kernels pictureKernels =
    makeKernels(std::make_index_sequence<Layout::layoutCount>(),
                std::make_index_sequence<Layout::byteLayouts>());

}  // namespace orva::ORVA_ISA
