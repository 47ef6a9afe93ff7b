// Memory between two inaccessible pages.
#pragma once

#include <cstdint>

#ifdef _WIN32
#include <windows.h>
#else
#include <sys/mman.h>
#endif

namespace test {

class GuardedPages {
public:
    GuardedPages() : start(reserve()) {}
    ~GuardedPages() { release(start); }
    GuardedPages(const GuardedPages&) = delete;
    GuardedPages& operator=(const GuardedPages&) = delete;

    // Room for size bytes right behind the first inaccessible page or right before the second.
    uint8_t* place(uint32_t size, bool atEnd) const {
        return start + page + (atEnd ? accessible - size : 0);
    }

private:
    static constexpr uint32_t page = 65536;
    static constexpr uint32_t accessible = 4 * page;

#ifdef _WIN32
    static uint8_t* reserve() {
        auto* const memory = static_cast<uint8_t*>(
            VirtualAlloc(nullptr, accessible + 2 * page, MEM_RESERVE, PAGE_NOACCESS));
        VirtualAlloc(memory + page, accessible, MEM_COMMIT, PAGE_READWRITE);
        return memory;
    }
    static void release(uint8_t* memory) { VirtualFree(memory, 0, MEM_RELEASE); }
#else
    static uint8_t* reserve() {
        void* const memory =
            mmap(nullptr, accessible + 2 * page, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        mprotect(static_cast<uint8_t*>(memory) + page, accessible, PROT_READ | PROT_WRITE);
        return static_cast<uint8_t*>(memory);
    }
    static void release(uint8_t* memory) { munmap(memory, accessible + 2 * page); }
#endif

    uint8_t* start;
};

}  // namespace test
