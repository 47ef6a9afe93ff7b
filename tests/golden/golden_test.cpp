// The library's output on fixed frames: the hashes in hashes.txt, with every table of kernels.
#include "golden/hashes.hpp"
#include "support/tables.hpp"

#include <fstream>
#include <map>

namespace test {
namespace {

TEST(Golden, Hashes) {
    std::map<std::string, std::string> expected;
    std::ifstream file(ORVA_GOLDEN_HASHES);
    for (std::string name, options, hash; file >> name;) {
        if (name.starts_with('#'))
            getline(file, name);
        else if (file >> options >> hash)
            expected[name + " " + options] = hash;
    }
    withEveryTable([&] {
        size_t found = 0;
        for (const Export& conversion : exports()) {
            for (const OptionSet& options : optionSets) {
                if (!exists(conversion, options))
                    continue;
                char hash[17];
                snprintf(
                    hash, sizeof hash, "%016llx",
                    static_cast<unsigned long long>(hashOf(
                        conversion, options,
                        [](const Export& e, const OrvaConversionDescriptor& d) { e.call(&d); })));
                const std::string key = std::string(conversion.name) + " " + options.name;
                EXPECT_EQ(expected[key], hash) << key;
                ++found;
            }
        }
        EXPECT_EQ(found, expected.size()) << "hashes of conversions that do not exist";
    });
}

}  // namespace
}  // namespace test
