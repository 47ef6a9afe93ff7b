// What a long run is at.
#pragma once

#include <cstddef>
#include <string>

namespace bench {

// One line of a terminal, and nothing where there is none.
class Progress {
public:
    explicit Progress(size_t steps) : steps(steps) {}
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void next(const std::string& what);

private:
    size_t steps, step = 0;
};

}  // namespace bench
