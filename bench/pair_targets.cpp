// Judges measurements of pairs.
#include "pair_competitors.hpp"
#include "pair_report.hpp"

namespace bench {
namespace {

// What is promised where there is no export to compare with. Nothing is for SSE2.
std::optional<double> timesOfMemcpy(std::string_view table) {
    return table == "AVX-512" ? std::optional(1.25)
           : table == "AVX2"  ? std::optional(1.7)
                              : std::nullopt;
}

// A table's times of one pair at one size.
void judge(Judgement& judgement, const PairRow& row, const std::string& table) {
    const std::string name = row.pair.name(), size = label(row.size);
    const Competitor& ours = *row.find(table);
    const auto expect = [&](const char* kind, const std::string& what, double limit,
                            std::optional<double> measured) {
        judgement.expect(kind, table + ", " + size + ": " + what, limit, measured, name);
    };
    if (const auto toExport = row.against(ours, exportName(table)))
        expect("against the export", "against the export", row.size == inCache ? 1.5 : 1.15,
               toExport);
    else if (const auto limit = timesOfMemcpy(table))
        expect("against memcpy, without an export", "against memcpy, pairs without an export",
               *limit, row.against(ours, memoryName));
    for (const Form form : {Form::odd, Form::crop})
        if (const Competitor* const other = row.find(table, false, form))
            expect("odd addresses and crops",
                   std::string(label(form)) + " against the aligned picture", 1.15,
                   ratio(*other, ours));
    for (const char* peer : {swscaleName, swscaleDefaultName})
        expect("against swscale", std::string("against ") + peer, 0.2, row.against(ours, peer));
}

}  // namespace

Judgement judge(const std::vector<PairRow>& rows) {
    Judgement judgement;
    for (const std::string& table : pairTables())
        for (const PairRow& row : rows)
            judge(judgement, row, table);
    return judgement;
}

}  // namespace bench
