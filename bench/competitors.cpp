// Our own kernels, and memory moved.
#include "competitors.hpp"

#include "frame/active_kernels.hpp"

#include <emmintrin.h>

#include <cstring>

namespace bench {

const char* bestTable() {
    const char* best = "";
    for (const orva::KernelTable& table : orva::kernelTables)
        if (table.isSupported())
            best = table.instructionSet;
    return best;
}

// With streaming stores it writes something shorter than the format.
static bool reducedWhenStreaming(const test::Export& conversion) {
    return conversion.source.main == "BGR24I" && conversion.destination.main == "UVYY16I";
}

static void addKernels(std::vector<Competitor>& list, const orva::KernelTable& table, const Case& c,
                       Size size, Form form) {
    for (const bool streaming : {false, true}) {
        if (streaming && reducedWhenStreaming(*c.conversion))
            continue;
        list.push_back({
            .name = table.instructionSet,
            .streaming = streaming,
            .form = form,
            .size = size,
            .layout = Layout(c, size, {.offset = form == Form::offset, .streaming = streaming}),
            .prepare = [&table] { orva::activeKernels = table.kernels; },
            .convert =
                [call = c.conversion->call, streaming](const Descriptor& d) {
                    call(&d);
                    // What a host needs before it hands the frame on is part of the price.
                    if (streaming)
                        _mm_sfence();
                },
        });
    }
}

std::vector<Competitor> competitors(const Case& c, Size size, const Selection& selection) {
    std::vector<Competitor> list;
    const Layout layout(c, size, {});

    // As many bytes read and written together: half of them copied.
    const size_t half = layout.bytesMoved() / 2;
    const auto copy = [half](const Descriptor& d) {
        auto* const from = static_cast<const uint8_t*>(d.srcData);
        memcpy(const_cast<uint8_t*>(from) + toPage(half), from, half);
    };
    list.push_back({memoryName, false, Form::fast, size, layout, [] {}, copy});

    for (const orva::KernelTable& table : orva::kernelTables) {
        if (!table.isSupported() ||
            !(selection.allTables || table.instructionSet == std::string_view(bestTable())))
            continue;
        addKernels(list, table, c, size, Form::fast);
        if (!selection.generalForms || c.mode != 0)
            continue;
        addKernels(list, table, c, size, Form::offset);
        if (size == hd)
            addKernels(list, table, c, hdAndPair, Form::unevenly);
    }
    for (const auto& peers : {libyuvPeers(c), swscalePeers(c)})
        for (const Peer& peer : peers)
            list.push_back(
                {peer.name, false, Form::fast, size, layout, peer.prepare, peer.convert});
    return list;
}

}  // namespace bench
