// The hash of golden bytes: FNV-1a, 64 bits.
#pragma once

#include <cstddef>
#include <cstdint>

namespace orva::golden {

struct Fnv {
    uint64_t value = 0xCBF29CE484222325;

    void add(const uint8_t* bytes, size_t count) {
        for (size_t i = 0; i < count; ++i)
            value = (value ^ bytes[i]) * 0x100000001B3;
    }
};

}  // namespace orva::golden
