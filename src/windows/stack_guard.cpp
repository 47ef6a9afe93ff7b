// The stack protector's guard and what happens when it was overwritten, for the DLLs. The
// compiler's own would open a cryptographic provider while the DLL loads, which reads the registry
// and loads other DLLs under the loader's lock.
#include <windows.h>

#include <cstdint>
#include <initializer_list>

extern "C" {

std::uintptr_t __stack_chk_guard = 0;

// Ends the process without running any more of its code: nothing on its stack can be trusted.
[[noreturn]] void __stack_chk_fail() {
    constexpr UINT stackBufferOverrun = 0xc0000409;
    TerminateProcess(GetCurrentProcess(), stackBufferOverrun);
    __builtin_trap();
}

}  // extern "C"

// Before any other constructor, when no function that looks at the guard is running, nor does this
// one. What is mixed differs between processes and moments, and multiplications spread it over all
// bits. The lowest byte is 0, so that no overlong string can write the guard.
[[gnu::constructor(101), gnu::no_stack_protector]] static void chooseGuard() {
    FILETIME time;
    LARGE_INTEGER ticks;
    GetSystemTimeAsFileTime(&time);
    QueryPerformanceCounter(&ticks);
    std::uint64_t mix = 0;
    for (const std::uint64_t part :
         {std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime,
          static_cast<std::uint64_t>(ticks.QuadPart), std::uint64_t{GetCurrentProcessId()},
          std::uint64_t{GetCurrentThreadId()},
          std::uint64_t{reinterpret_cast<std::uintptr_t>(&time)}}) {
        mix = (mix ^ part) * 0x9e3779b97f4a7c15;
        mix ^= mix >> 29;
    }
    __stack_chk_guard = static_cast<std::uintptr_t>(mix) & ~std::uintptr_t{0xff};
}
