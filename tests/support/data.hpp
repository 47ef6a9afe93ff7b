// Sample bytes that find faults: runs of extremes, alternations and noise rather than noise alone.
#pragma once

#include <algorithm>
#include <cstdint>
#include <random>
#include <span>
#include <vector>

namespace test {

using Random = std::mt19937;

inline uint32_t pick(Random& random, uint32_t count) { return random() % count; }

// A stretch of such bytes from somewhere in a large pool of them.
inline std::span<const uint8_t> runs(size_t size, Random& random) {
    static const std::vector<uint8_t> pool = [] {
        Random random(20);
        std::vector<uint8_t> bytes(1 << 20);
        for (size_t i = 0; i < bytes.size();) {
            const uint32_t kind = pick(random, 6);
            const size_t end = std::min<size_t>(bytes.size(), i + 1 + pick(random, 40));
            for (; i < end; ++i) {
                const uint8_t noise = uint8_t(random());
                const uint8_t low = noise % 24;
                const uint8_t alternating = i & 1 ? 255 : 0;
                const uint8_t byKind[] = {0, 255, noise, low, uint8_t(255 - low), alternating};
                bytes[i] = byKind[kind];
            }
        }
        return bytes;
    }();
    return std::span(pool).subspan(pick(random, uint32_t(pool.size() - size)), size);
}

}  // namespace test
