// Who competes over a pair of formats.
#include "pair_competitors.hpp"

#include "picture/active_kernels.hpp"

#include <array>
#include <stdexcept>

namespace bench {
namespace {

using orva::kernelTables, orva::picture::tables;

// Indices into the exports' tables and the engine's, which are in the same order.
std::vector<unsigned> measuredTables() {
    std::vector<unsigned> list;
    for (unsigned i = orva::kernelTableCount; i-- > 0;) {
        const std::string_view name = tables[i].instructionSet;
        if (tables[i].isSupported() && (name == bestTable() || name == "AVX2"))
            list.push_back(i);
    }
    return list;
}

void addChecked(std::vector<Competitor>& list, const orva::picture::Table& table, const Pair& pair,
                Size size, Form form) {
    const ImageLayout layout(pair, size, form);
    const orva::Options options{.dstMatrix =
                                    pair.matrix ? orva::Matrix::bt601 : orva::Matrix::bt709};
    list.push_back({.name = table.instructionSet,
                    .form = form,
                    .size = layout.size(),
                    .frame = layout.frame(),
                    .prepare = [&table] { orva::picture::activeKernels = table.kernels; },
                    .convert =
                        [layout, options](uint8_t* memory) {
                            const orva::Result result = orva::convert(
                                layout.source(memory), layout.destination(memory), options);
                            if (!result)
                                throw std::logic_error(result.describe());
                        }});
}

}  // namespace

std::vector<std::string> pairTables() {
    std::vector<std::string> names;
    for (const unsigned i : measuredTables())
        names.emplace_back(tables[i].instructionSet);
    return names;
}

bool standsForItsKind(const Pair& pair) {
    constexpr std::array names{"UYVY16I_BGR32I",   "Y8PUV8I_BGR32I",  "UYVY16I_BGR24I",
                               "BGR32I_UYVY16I",   "BGR32I_Y8PUV8I",  "UYVY16I_YUYV16I",
                               "UYVY16I_Y8PUV8I",  "UYVY16I_UYVY16I", "UYVY16I_UYVY16I matrix",
                               "V210_UYVY16I",     "UYVY16I_V210",    "V210_BGR32I",
                               "Y10PUV10I_BGR32I", "BGR32I_RGB32I",   "BGR24I_RGB24I"};
    return std::ranges::find(names, pair.name()) != names.end();
}

std::vector<Competitor> competitors(const Pair& pair, Size size) {
    const ImageLayout layout(pair, size, Form::fast);
    std::vector<Competitor> list{memoryCopy(size, layout.frame())};
    const auto exported = pair.exported();
    for (const unsigned i : measuredTables()) {
        addChecked(list, tables[i], pair, size, Form::fast);
        if (size == hd && standsForItsKind(pair))
            for (const Form form : {Form::odd, Form::crop})
                addChecked(list, tables[i], pair, size, form);
        if (exported)
            addKernels(list, exportName(tables[i].instructionSet), kernelTables[i], *exported, size,
                       Form::fast);
    }
    if (size == hd && pair.name() == "Y10PUV10I_BGR32I")
        for (const auto& [name, convert] : swscalePeers(pair))
            list.push_back({.name = name,
                            .size = size,
                            .frame = layout.frame(),
                            .convert = [layout, convert = convert](uint8_t* memory) {
                                convert(layout.source(memory), layout.destination(memory));
                            }});
    return list;
}

}  // namespace bench
