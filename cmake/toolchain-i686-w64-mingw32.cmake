# 32-bit Windows from Linux, with MinGW-w64. Tests run under Wine, or under the program that the
# environment variable ORVA_WINE names.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)

# Where a distribution offers both thread models, the tests want the one with std::thread.
find_program(ORVA_MINGW_CC NAMES i686-w64-mingw32-gcc-posix i686-w64-mingw32-gcc REQUIRED)
find_program(ORVA_MINGW_CXX NAMES i686-w64-mingw32-g++-posix i686-w64-mingw32-g++ REQUIRED)
set(CMAKE_C_COMPILER ${ORVA_MINGW_CC})
set(CMAKE_CXX_COMPILER ${ORVA_MINGW_CXX})
set(CMAKE_RC_COMPILER i686-w64-mingw32-windres)

set(CMAKE_FIND_ROOT_PATH /usr/i686-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

if(DEFINED ENV{ORVA_WINE})
  set(CMAKE_CROSSCOMPILING_EMULATOR $ENV{ORVA_WINE})
else()
  set(CMAKE_CROSSCOMPILING_EMULATOR wine)
endif()
