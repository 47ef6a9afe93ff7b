// Judges measurements.
#include "targets.hpp"

#include "competitors.hpp"
#include "judgement.hpp"
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

double sse2Limit(Family family) {
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
    judgement.expect("1920x1080 against libyuv", 1.03, row.against(best, libyuvName), name);
    const bool colours = row.measured.computesColours();
    judgement.expect(colours ? "1920x1080 against swscale, colours"
                             : "1920x1080 against swscale, no colours",
                     colours ? 0.2 : 1, row.against(best, swscaleName), name);

    const Competitor* const avx2 = row.better("AVX2");
    if (avx2 && name == "UYVY16I_BGR32I")
        judgement.expect("AVX2, 1920x1080 against memcpy", 1.35, row.against(*avx2, memoryName),
                         name);
    const Competitor* const sse2 = row.better("SSE2");
    if (sse2 && family != Family::mode)
        judgement.expect(text("SSE2, 1920x1080 against memcpy: %s", label(family)),
                         sse2Limit(family), row.against(*sse2, memoryName), name);

    for (const orva::KernelTable& table : orva::kernelTables) {
        const Competitor* const fast = row.better(table.instructionSet);
        if (!fast)
            continue;
        const std::string where = name + " " + table.instructionSet;
        for (const bool streaming : {false, true}) {
            const std::string stores = streaming ? ", streaming stores" : ", ordinary stores";
            const auto expectLikeFast = [&](const char* what, Form form) {
                const Competitor* const aligned = row.find(table.instructionSet, streaming);
                const Competitor* const general = row.find(table.instructionSet, streaming, form);
                if (aligned && general)
                    judgement.expect(what + stores, 1.05, ratio(*general, *aligned), where);
            };
            expectLikeFast("1920x1080, offset destination against fast", Form::offset);
            expectLikeFast("1922x1080 against 1920x1080, per pixel", Form::unevenly);
        }
        if (const auto time = other.better(row, table.instructionSet))
            judgement.expect("1920x1080, 32-bit build against this one", 1.15,
                             *time / median(fast->samples), where);
    }
}

}  // namespace

bool writeTargets(std::ostream& out, const std::vector<Row>& rows, const OtherBuild& other) {
    Judgement judgement;
    for (const Row& row : rows) {
        const Competitor& best = *row.better(bestTable());
        const std::string name = row.measured.name();
        if (row.size == hd || row.size == uhd)
            judgement.expect(label(row.size) + " against memcpy" +
                                 (row.measured.mode == 0 ? "" : ", kernel modes"),
                             1.1, row.against(best, memoryName), name);
        if (row.size == inCache)
            judgement.expect("320x64 against libyuv", 1, row.against(best, libyuvName), name);
        if (row.size == hd)
            judgeHd(judgement, row, best, other);
    }
    return judgement.write(out);
}

}  // namespace bench
