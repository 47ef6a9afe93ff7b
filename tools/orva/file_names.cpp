// Names of files in the program's arguments and messages, and what the system takes for them.
#include "file_names.hpp"

#if defined(_WIN32)
#include <windows.h>

#include <shellapi.h>
#endif

namespace orva::tool {

std::filesystem::path pathOf(const std::string& name) {
    return std::u8string(name.begin(), name.end());
}

#if defined(_WIN32)

// The C library's arguments have lost what the code page does not have.
std::vector<std::string> argumentsOf(int, char**) {
    int count = 0;
    wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) {
        const int size = WideCharToMultiByte(CP_UTF8, 0, wide[i], -1, nullptr, 0, nullptr, nullptr);
        std::string argument(static_cast<std::size_t>(size), '\0');
        WideCharToMultiByte(CP_UTF8, 0, wide[i], -1, argument.data(), size, nullptr, nullptr);
        argument.pop_back();  // the end of the text
        arguments.push_back(std::move(argument));
    }
    LocalFree(wide);
    return arguments;
}

std::FILE* openForReading(const std::string& name) { return _wfopen(pathOf(name).c_str(), L"rb"); }

#else

std::vector<std::string> argumentsOf(int argc, char** argv) {
    return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

std::FILE* openForReading(const std::string& name) { return std::fopen(name.c_str(), "rb"); }

#endif

}  // namespace orva::tool
