// What is at work. Libraries that are loaded with the program tell their versions themselves.
#include "version.hpp"

#include <orva/convert.hpp>

#include <CLI/Version.hpp>

#if ORVA_HAVE_PNG
#include <png.h>
#include <zlib.h>
#endif

namespace orva::tool {
namespace {

constexpr const char* systemName =
#if defined(_WIN32)
    "Windows";
#elif defined(__APPLE__)
    "macOS";
#elif defined(__linux__)
    "Linux";
#else
    "another system";
#endif

std::string compiler() {
#if defined(__clang__)
    return "Clang " + std::to_string(__clang_major__) + "." + std::to_string(__clang_minor__) +
           "." + std::to_string(__clang_patchlevel__);
#else
    return "GCC " __VERSION__;
#endif
}

std::string pictureLibraries() {
#if ORVA_HAVE_PNG
    return std::string(", libpng ") + png_get_libpng_ver(nullptr) + ", zlib " + zlibVersion();
#else
    return "; built without libpng";
#endif
}

}  // namespace

std::string versionText() {
    return std::string("orva ") + orva_version() + " for " + std::to_string(sizeof(void*) * 8) +
           "-bit " + systemName + ", built with " + compiler() +
           "\nInstruction set in use: " + orva_instruction_set() +
           "\nLibraries: CLI11 " CLI11_VERSION + pictureLibraries();
}

}  // namespace orva::tool
