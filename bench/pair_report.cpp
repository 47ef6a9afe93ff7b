// The tables of pairs.
#include "pair_report.hpp"

#include "pair_competitors.hpp"
#include "text.hpp"

namespace bench {
namespace {

std::string times(std::optional<double> ratio) { return ratio ? text("%.3f", *ratio) : ""; }

// Of one table's times: nanoseconds, against memory, against the export.
std::string cells(const PairRow& row, const std::string& table) {
    const Competitor& ours = *row.find(table);
    return text(" %.4f | %.1f | ", median(ours.samples), gigabytesPerSecond(ours)) +
           times(row.against(ours, memoryName)) + " | " +
           times(row.against(ours, exportName(table))) + " |";
}

void writeSize(std::ostream& out, const std::vector<PairRow>& rows, Size size) {
    if (std::ranges::find(rows, size, &PairRow::size) == rows.end())
        return;
    const auto tables = pairTables();
    std::string columns, rule;
    for (const std::string& table : tables) {
        columns += text(" %s: ns per pixel | GB/s | / memcpy | / export |", table.c_str());
        rule += "--:|--:|--:|--:|";
    }
    out << "\n" << label(size) << "\n\n| conversion |" << columns << "\n|---|" << rule << "\n";
    for (const PairRow& row : rows) {
        if (row.size != size)
            continue;
        out << "| " << row.pair.name() << " |";
        for (const std::string& table : tables)
            out << cells(row, table);
        out << "\n";
    }
}

void writeForms(std::ostream& out, const std::vector<PairRow>& rows) {
    std::string lines;
    for (const PairRow& row : rows)
        for (const std::string& table : pairTables())
            if (const Competitor* const odd = row.find(table, false, Form::odd)) {
                const Competitor &aligned = *row.find(table),
                                 &crop = *row.find(table, false, Form::crop);
                lines += text("| %s | %s | %.3f | %.3f | %.3f | %.3f |\n", row.pair.name().c_str(),
                              table.c_str(), ratio(*odd, aligned), ratio(crop, aligned),
                              *row.against(*odd, memoryName), *row.against(crop, memoryName));
            }
    if (!lines.empty())
        out << "\nOdd addresses and crops: times of the aligned picture\n\n| conversion | table | "
            << label(Form::odd) << " | " << label(Form::crop) << " | " << label(Form::odd)
            << " / memcpy | " << label(Form::crop) << " / memcpy |\n|---|---|--:|--:|--:|--:|\n"
            << lines;
}

}  // namespace

void writePairs(std::ostream& out, const std::vector<PairRow>& rows) {
    for (const Size size : {hd, uhd, inCache})
        writeSize(out, rows, size);
    writeForms(out, rows);
}

void writePairsCsv(std::ostream& out, const std::vector<PairRow>& rows) {
    out << "conversion,size,table,form,ns_per_pixel,gb_per_s,to_memcpy,to_export,to_swscale,"
           "to_swscale_default\n";
    for (const PairRow& row : rows)
        for (const Competitor& c : row.competitors)
            if (std::ranges::count(pairTables(), c.name) > 0) {
                out << row.pair.name() << "," << label(row.size) << "," << c.name << ","
                    << label(c.form)
                    << text(",%.5f,%.2f", median(c.samples), gigabytesPerSecond(c));
                for (const std::string& other :
                     {std::string(memoryName), exportName(c.name), std::string(swscaleName),
                      std::string(swscaleDefaultName)})
                    out << "," << times(row.against(c, other));
                out << "\n";
            }
}

}  // namespace bench
