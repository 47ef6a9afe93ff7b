// Runs all cases with each table of kernels and compares their hashes with the documented ones.
#include "golden/check.hpp"

#include "frame/active_kernels.hpp"
#include "golden/conversion_cases.hpp"
#include "golden/export_cases.hpp"
#include "picture/active_kernels.hpp"

#include <sstream>

namespace orva::golden {
namespace {

constexpr const char* exportHashes =
#include "golden/export_hashes.inc"
    ;
constexpr const char* conversionHashes =
#include "golden/conversion_hashes.inc"
    ;

// A line is a case and its hash; those that begin with # say what they are.
Hashes parse(const char* text) {
    Hashes hashes;
    std::istringstream lines(text);
    for (std::string line; getline(lines, line);) {
        const size_t space = line.rfind(' ');
        if (!line.empty() && line.front() != '#')
            hashes[line.substr(0, space)] = std::stoull(line.substr(space + 1), nullptr, 16);
    }
    return hashes;
}

// Runs `cases` with each table in place of the active one. They give name and hash to what they are
// called with.
template <class Table, size_t count, class Kernels, class Cases>
std::vector<Outcome> checkEach(const Table (&tables)[count], const Kernels*& active,
                               const Hashes& documented, Cases cases) {
    std::vector<Outcome> outcomes;
    const Kernels* const chosen = active;
    for (const Table& table : tables) {
        Outcome& outcome =
            outcomes.emplace_back(Outcome{table.instructionSet, table.isSupported(), 0, {}});
        if (!outcome.supported)
            continue;
        active = table.kernels;
        cases([&](const std::string& name, uint64_t hash) {
            const auto expected = documented.find(name);
            if (expected != documented.end() && expected->second == hash)
                ++outcome.right;
            else
                outcome.wrong.push_back(name);
        });
    }
    active = chosen;
    return outcomes;
}

}  // namespace

Hashes documentedExports() { return parse(exportHashes); }
Hashes documentedConversions() { return parse(conversionHashes); }

std::vector<Outcome> checkExports(const Hashes& documented) {
    return checkEach(kernelTables, activeKernels, documented, [](const auto& take) {
        for (const Export& conversion : exports())
            for (const OptionSet& options : optionSets)
                if (exists(conversion, options))
                    take(std::string(conversion.name) + " " + options.name,
                         hashOf(conversion, options,
                                [](const Export& e, const OrvaConversionDescriptor& d) {
                                    e.call(&d);
                                }));
        for (const PositionalExport& conversion : positionalExports())
            take(std::string(conversion.name) + " positional", hashOf(conversion));
    });
}

std::vector<Outcome> checkConversions(const Hashes& documented) {
    return checkEach(picture::tables, picture::activeKernels, documented, [](const auto& take) {
        for (const Pair& pair : pairs())
            take(pair.name(), hashOf(pair));
    });
}

}  // namespace orva::golden
