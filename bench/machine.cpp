// Linux's ways to learn about the machine.
#include "machine.hpp"

#include <sched.h>
#include <sys/mman.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <new>
#include <thread>
#include <utility>

namespace bench {

bool pinTo(int core) {
    if (core < 0)
        core = sched_getcpu();
    cpu_set_t set;
    CPU_ZERO(&set);
    CPU_SET(core, &set);
    return sched_setaffinity(0, sizeof set, &set) == 0;
}

std::string processorName() {
    std::ifstream info("/proc/cpuinfo");
    std::string name = "unknown processor", family, model;
    for (std::string line; std::getline(info, line) && !line.empty();)
        for (const auto& [key, value] :
             {std::pair("model name\t", &name), {"cpu family\t", &family}, {"model\t", &model}})
            if (const size_t colon = line.find(": "); line.starts_with(key))
                *value = line.substr(colon + 2);
    if (!family.empty())
        name += " (family " + family + ", model " + model + ")";
    return std::to_string(std::thread::hardware_concurrency()) + " x " + name;
}

size_t cacheBytes() {
    // sysconf() adds up the caches of cores that are not there in some virtual machines.
    std::ifstream info("/sys/devices/system/cpu/cpu0/cache/index3/size");
    size_t kilobytes = 0;
    info >> kilobytes;
    return (kilobytes > 0 ? kilobytes : 32768) * 1024;
}

// A 32-bit process has no room for eight times some servers' caches.
static size_t ringBytes() {
    const uint64_t wanted = std::max<uint64_t>(uint64_t(256) << 20, uint64_t(8) * cacheBytes());
    return size_t(sizeof(void*) == 4 ? std::min(wanted, uint64_t(1) << 30) : wanted);
}

Ring::Ring() : size(ringBytes()) {
    void* const pages =
        mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pages == MAP_FAILED)
        throw std::bad_alloc();
    memory = static_cast<uint8_t*>(pages);
    uint64_t noise = 1;
    for (size_t i = 0; i < size; i += sizeof noise) {
        noise = noise * 6364136223846793005u + 1442695040888963407u;
        const uint64_t mixed = noise ^ noise >> 32;
        memcpy(memory + i, &mixed, sizeof mixed);
    }
}

Ring::~Ring() { munmap(memory, size); }

uint8_t* Ring::next(size_t slotBytes, bool reuse) {
    if (reuse)
        return memory;
    if (position + slotBytes > size)
        position = 0;
    return memory + std::exchange(position, position + slotBytes);
}

}  // namespace bench
