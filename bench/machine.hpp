// The processor that measurements run on and the memory that frames lie in.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace bench {

// Keeps this thread on one core, the present one if core is negative. False if it is not allowed.
bool pinTo(int core);

// With family, model and how many there are: virtual machines often leave out the rest of the name.
std::string processorName();

// Of the last-level cache, in bytes.
size_t cacheBytes();

// One stretch of memory, all of its pages touched, that is cut into slots for frames. It is several
// times as large as the cache: a frame in the next slot has left the cache since it was last used.
class Ring {
public:
    Ring();
    ~Ring();
    Ring(const Ring&) = delete;
    Ring& operator=(const Ring&) = delete;

    size_t bytes() const { return size; }
    // The next of the slots that frames of this size make; with reuse always the first.
    uint8_t* next(size_t slotBytes, bool reuse);

private:
    size_t size;
    uint8_t* memory;
    size_t position = 0;
};

}  // namespace bench
