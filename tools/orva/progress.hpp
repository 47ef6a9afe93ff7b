// A line on the terminal that counts frames.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace orva::tool {

class Progress {
public:
    explicit Progress(std::optional<std::uint64_t> total);
    ~Progress();  // clears the line
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // Shows how many frames are done, now and then; nothing for a single frame or no terminal.
    void show(std::uint64_t done);

private:
    std::optional<std::uint64_t> total;
    bool terminal;
    bool shown = false;
    std::chrono::steady_clock::time_point last;
};

}  // namespace orva::tool
