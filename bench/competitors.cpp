// Our own kernels, and memory moved.
#include "competitors.hpp"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include <cstring>

namespace bench {

const char* bestTable() {
    const char* best = "";
    for (const orva::KernelTable& table : orva::kernelTables)
        if (table.isSupported())
            best = table.instructionSet;
    return best;
}

// What a host needs after streaming stores before it hands the frame on.
static void storeFence() {
#if defined(__SSE2__)
    _mm_sfence();
#endif
}

// SSE4.1 and AVX-VNNI change how kernels compute, not how those of SSE2 and AVX2 read and write.
static bool hasAccessesOfItsOwn(std::string_view table) {
    return table == bestTable() || (table != "SSE4.1" && table != "AVX-VNNI");
}

// With streaming stores it writes something shorter than the format.
static bool reducedWhenStreaming(const golden::Export& conversion) {
    return conversion.source.main == "BGR24I" && conversion.destination.main == "UVYY16I";
}

Competitor memoryCopy(Size size, const FrameMemory& frame) {
    // As many bytes read and written together: half of them copied.
    const size_t half = frame.moved / 2;
    return {.name = memoryName, .size = size, .frame = frame, .convert = [half](uint8_t* memory) {
                memcpy(memory + toPage(half), memory, half);
            }};
}

void addKernels(std::vector<Competitor>& list, const std::string& name,
                const orva::KernelTable& table, const Case& c, Size size, Form form) {
    for (const bool streaming : {false, true}) {
        if (streaming && reducedWhenStreaming(*c.conversion))
            continue;
        const Layout layout(c, size, {.offset = form == Form::offset, .streaming = streaming});
        list.push_back({
            .name = name,
            .streaming = streaming,
            .form = form,
            .size = size,
            .frame = layout.frame(),
            .prepare = [&table] { orva::activeKernels = table.kernels; },
            .convert =
                [call = c.conversion->call, layout, streaming](uint8_t* memory) {
                    const Descriptor d = layout.at(memory);
                    call(&d);
                    if (streaming)
                        storeFence();
                },
        });
    }
}

std::vector<Competitor> competitors(const Case& c, Size size, const Selection& selection) {
    std::vector<Competitor> list;
    const Layout layout(c, size, {});
    list.push_back(memoryCopy(size, layout.frame()));

    for (const orva::KernelTable& table : orva::kernelTables) {
        if (!table.isSupported() ||
            !(selection.allTables || table.instructionSet == std::string_view(bestTable())))
            continue;
        const char* const name = table.instructionSet;
        addKernels(list, name, table, c, size, Form::fast);
        if (!selection.generalForms || c.mode != 0 || !hasAccessesOfItsOwn(name))
            continue;
        addKernels(list, name, table, c, size, Form::offset);
        if (size == hd)
            addKernels(list, name, table, c, hdAndPair, Form::unevenly);
    }
    for (const auto& peers : {libyuvPeers(c), swscalePeers(c)})
        for (const Peer& peer : peers)
            list.push_back({.name = peer.name,
                            .size = size,
                            .frame = layout.frame(),
                            .prepare = peer.prepare,
                            .convert = [layout, convert = peer.convert](uint8_t* memory) {
                                convert(layout.at(memory));
                            }});
    return list;
}

}  // namespace bench
