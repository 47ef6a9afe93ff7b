// Words are as far apart as the letters that have to be put in, left out, changed or swapped with
// their neighbour to make one of the other.
#include "suggestions.hpp"

#include <algorithm>
#include <cctype>
#include <utility>

namespace orva::tool {
namespace {

bool same(char a, char b) {
    return std::tolower(static_cast<unsigned char>(a)) ==
           std::tolower(static_cast<unsigned char>(b));
}

std::size_t distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> before, last, row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) {
        row[j] = j;
    }
    for (std::size_t i = 1; i <= a.size(); ++i) {
        before = std::move(last);
        last = row;
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            row[j] = std::min(
                {last[j] + 1, row[j - 1] + 1, last[j - 1] + (same(a[i - 1], b[j - 1]) ? 0u : 1u)});
            if (i > 1 && j > 1 && same(a[i - 1], b[j - 2]) && same(a[i - 2], b[j - 1])) {
                row[j] = std::min(row[j], before[j - 2] + 1);
            }
        }
    }
    return row[b.size()];
}

// How many letters of the one word the other does not have.
std::size_t strangers(std::string_view a, std::string_view b) {
    return static_cast<std::size_t>(std::ranges::count_if(
        a, [b](char x) { return std::ranges::none_of(b, [x](char y) { return same(x, y); }); }));
}

}  // namespace

std::string suggestion(std::string_view typed, const std::vector<std::string>& known) {
    const std::string* nearest = nullptr;
    // More than a third is another word. Of two that are as near, the same letters decide.
    std::pair<std::size_t, std::size_t> least = {(typed.size() + 1) / 3 + 1, 0};
    for (const std::string& word : known) {
        if (const std::pair far = {distance(typed, word), strangers(typed, word)}; far < least) {
            least = far;
            nearest = &word;
        }
    }
    return nearest ? ", did you mean '" + *nearest + "'?" : "";
}

}  // namespace orva::tool
