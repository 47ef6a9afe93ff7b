// The tables.
#include "report.hpp"

#include "competitors.hpp"
#include "text.hpp"

#include <algorithm>

namespace bench {

namespace {

constexpr const char* references[] = {memoryName, libyuvName, libyuvSsse3Name, swscaleName};

bool isReference(const Competitor& competitor) {
    return std::ranges::find(references, competitor.name) != std::end(references);
}

const char* stores(const Competitor& competitor) {
    return competitor.streaming ? "streaming" : "ordinary";
}

std::string ratios(const Row& row, const Competitor& ours, const char* separator) {
    std::string line;
    for (const char* name : references) {
        const auto times = row.against(ours, name);
        line += separator + (times ? text("%.3f", *times) : "");
    }
    return line;
}

void writeLine(std::ostream& out, const Row& row, const Competitor& ours, bool withForm) {
    out << "| " << row.measured.name() << " | " << label(row.size) << " | " << ours.name << " | "
        << stores(ours) << (withForm ? text(", %s", label(ours.form)) : "")
        << text(" | %.4f | %.1f", median(ours.samples), gigabytesPerSecond(ours))
        << ratios(row, ours, " | ") << " |\n";
}

// The middle and the worst multiple of memcpy that each table needs for conversions that cost
// alike.
void writeSummary(std::ostream& out, const std::vector<Row>& rows) {
    std::string columns, rule;
    for (const orva::KernelTable& table : orva::kernelTables) {
        columns += text(" %s |", table.instructionSet);
        rule += "---|";
    }
    out << "\n1920x1080, the better kind of stores: times of memcpy, median and worst\n\n"
        << "| conversions |" << columns << "\n|---|" << rule << "\n";
    for (int family = 0; family <= int(Family::mode); ++family) {
        std::string line;
        for (const orva::KernelTable& table : orva::kernelTables) {
            std::vector<double> times;
            for (const Row& row : rows)
                if (row.size == hd && row.measured.family() == Family(family))
                    if (const Competitor* ours = row.better(table.instructionSet))
                        times.push_back(*row.against(*ours, memoryName));
            line += times.empty() ? " |"
                                  : text(" %.2f, %.2f |", median(times), std::ranges::max(times));
        }
        if (line.find_first_of("0123456789") != std::string::npos)
            out << "| " << label(Family(family)) << " |" << line << "\n";
    }
}

}  // namespace

void writeMarkdown(std::ostream& out, const std::vector<Row>& rows, bool everything,
                   const std::string& conditions) {
    out << conditions << "\n"
        << "| conversion | size | table | stores | ns per pixel | GB/s | / memcpy | / libyuv | "
           "/ libyuv SSSE3 | / swscale |\n|---|---|---|---|--:|--:|--:|--:|--:|--:|\n";
    for (const Row& row : rows) {
        if (!everything)
            writeLine(out, row, *row.better(bestTable()), false);
        for (const Competitor& competitor : row.competitors)
            if (everything && !isReference(competitor))
                writeLine(out, row, competitor, true);
    }
    writeSummary(out, rows);
}

void writeCsv(std::ostream& out, const std::vector<Row>& rows) {
    out << "conversion,size,table,stores,form,ns_per_pixel,gb_per_s,to_memcpy,to_libyuv,"
           "to_libyuv_ssse3,to_swscale\n";
    for (const Row& row : rows)
        for (const Competitor& c : row.competitors)
            out << row.measured.name() << "," << label(row.size) << "," << c.name << ","
                << stores(c) << "," << label(c.form) << ","
                << text("%.5f,%.2f", median(c.samples), gigabytesPerSecond(c))
                << ratios(row, c, ",") << "\n";
}

void writeChart(std::ostream& out, const std::vector<Row>& rows) {
    struct Bar {
        const char *name, *colour;
    };
    const Bar bars[] = {
        {bestTable(), "#1b6ca8"}, {libyuvName, "#e0a030"}, {swscaleName, "#b0b0b0"}};
    constexpr int left = 250, unit = 180, longest = 4, bar = 9, gap = 4, top = 40;
    std::string body;
    int y = top;
    for (const Row& row : rows) {
        if (row.size != hd)
            continue;
        const int begin = y;
        for (const Bar& kind : bars) {
            const Competitor* const measured = row.better(kind.name);
            if (!measured)
                continue;
            const double times = *row.against(*measured, memoryName);
            const double shown = std::min<double>(times, longest);
            body += text("<rect x='%d' y='%d' width='%.1f' height='%d' fill='%s'/>"
                         "<text x='%.1f' y='%d'>%.2f</text>\n",
                         left, y, shown * unit, bar, kind.colour, left + shown * unit + 3,
                         y + bar - 1, times);
            y += bar;
        }
        body += text("<text x='%d' y='%d' text-anchor='end'>%s</text>\n", left - 6,
                     (begin + y) / 2 + 3, row.measured.name().c_str());
        y += gap;
    }
    out << text("<svg xmlns='http://www.w3.org/2000/svg' width='%d' height='%d' "
                "font-family='sans-serif' font-size='8'>\n<rect width='100%%' height='100%%' "
                "fill='white'/>\n",
                left + longest * unit + 40, y + 10);
    out << "<text x='10' y='14' font-size='12'>Time for a frame of 1920x1080 divided by memcpy's "
           "for as many bytes</text>\n";
    for (size_t i = 0; i < std::size(bars); ++i)
        out << text("<rect x='%zu' y='22' width='10' height='10' fill='%s'/>"
                    "<text x='%zu' y='30' font-size='10'>%s</text>\n",
                    10 + 80 * i, bars[i].colour, 24 + 80 * i, bars[i].name);
    out << text("<line x1='%d' y1='%d' x2='%d' y2='%d' stroke='black'/>\n", left + unit, top - 4,
                left + unit, y)
        << body << "</svg>\n";
}

}  // namespace bench
