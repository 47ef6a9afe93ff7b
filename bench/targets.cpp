// Judges measurements.
#include "targets.hpp"

#include "competitors.hpp"
#include "text.hpp"

#include <fstream>
#include <stdexcept>

namespace bench {

OtherBuild::OtherBuild(const std::string& csvFile) {
    std::ifstream file(csvFile);
    if (!file)
        throw std::runtime_error("cannot read " + csvFile);
    std::string line;
    for (std::getline(file, line); std::getline(file, line);) {
        size_t key = 0;
        for (int field = 0; field < 5; ++field)
            key = line.find(',', key) + 1;
        times.emplace_back(line.substr(0, key), std::stod(line.substr(key)));
    }
}

std::optional<double> OtherBuild::better(const Row& row, std::string_view table) const {
    const std::string prefix =
        row.measured.name() + "," + label(row.size) + "," + std::string(table) + ",";
    std::optional<double> best;
    for (const auto& [key, time] : times)
        if (key.starts_with(prefix) && key.ends_with(",fast,"))
            best = std::min(best.value_or(time), time);
    return best;
}

namespace {

constexpr const char *memoryKind = "best table against memcpy",
                     *olderKind = "older tables against memcpy", *libyuvKind = "against libyuv",
                     *swscaleKind = "against swscale";

double limitOf128Bits(Family family) {
    switch (family) {
    case Family::yuvToBgr32:
        return 2.5;
    case Family::yuvToBgr24:
        return 3.5;
    case Family::bgr32ToYuv:
        return 2;
    case Family::bgr24ToYuv:
        return 3;
    case Family::matrix:
        return 2.7;
    case Family::repack24:
        return 1.5;
    default:
        return 1.1;
    }
}

void judgeHd(Judgement& judgement, const Row& row, const Competitor& best,
             const OtherBuild& other) {
    const std::string name = row.measured.name();
    const Family family = row.measured.family();
    judgement.expect(libyuvKind, "1920x1080 against libyuv", 1.03, row.against(best, libyuvName),
                     name);
    const bool colours = row.measured.computesColours();
    judgement.expect(swscaleKind,
                     colours ? "1920x1080 against swscale, colours"
                             : "1920x1080 against swscale, no colours",
                     colours ? 0.2 : 1, row.against(best, swscaleName), name);

    for (const char* table : {"AVX2", "AVX-VNNI"})
        if (const Competitor* const ours = row.better(table); ours && name == "UYVY16I_BGR32I")
            judgement.expect(olderKind, text("%s, 1920x1080 against memcpy", table), 1.35,
                             row.against(*ours, memoryName), name + " " + table);
    for (const char* table : {"SSE2", "SSE4.1"})
        if (const Competitor* const ours = row.better(table); ours && family != Family::mode)
            judgement.expect(
                olderKind, text("%s, 1920x1080 against memcpy: %s", table, label(family)),
                limitOf128Bits(family), row.against(*ours, memoryName), name + " " + table);

    for (const orva::KernelTable& table : orva::kernelTables) {
        const Competitor* const fast = row.better(table.instructionSet);
        if (!fast)
            continue;
        const std::string where = name + " " + table.instructionSet;
        for (const bool streaming : {false, true}) {
            const std::string stores = streaming ? ", streaming stores" : ", ordinary stores";
            const auto expectLikeFast = [&](const char* kind, const char* what, Form form) {
                const Competitor* const aligned = row.find(table.instructionSet, streaming);
                const Competitor* const general = row.find(table.instructionSet, streaming, form);
                if (aligned && general)
                    judgement.expect(kind, what + stores, 1.05, ratio(*general, *aligned), where);
            };
            expectLikeFast("offset destination against aligned",
                           "1920x1080, offset destination against fast", Form::offset);
            expectLikeFast("1922 pixels against 1920", "1922x1080 against 1920x1080, per pixel",
                           Form::unevenly);
        }
        if (const auto time = other.better(row, table.instructionSet))
            judgement.expect("32-bit build against this one",
                             "1920x1080, 32-bit build against this one", 1.15,
                             *time / median(fast->samples), where);
    }
}

}  // namespace

Judgement judge(const std::vector<Row>& rows, const OtherBuild& other) {
    Judgement judgement;
    for (const Row& row : rows) {
        const Competitor& best = *row.better(bestTable());
        const std::string name = row.measured.name();
        if (row.size == hd || row.size == uhd)
            judgement.expect(row.measured.mode == 0 ? memoryKind : "kernel modes against memcpy",
                             label(row.size) + " against memcpy" +
                                 (row.measured.mode == 0 ? "" : ", kernel modes"),
                             1.1, row.against(best, memoryName), name);
        if (row.size == inCache)
            judgement.expect(libyuvKind, "320x64 against libyuv", 1, row.against(best, libyuvName),
                             name);
        if (row.size == hd)
            judgeHd(judgement, row, best, other);
    }
    return judgement;
}

}  // namespace bench
