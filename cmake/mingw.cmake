# Windows from Linux, with MinGW-w64: what the toolchain files have in common. They set the processor,
# ORVA_MINGW, which begins the names of the tools, and what runs the tests.
set(CMAKE_SYSTEM_NAME Windows)

# Where a distribution offers both thread models, the tests want the one with std::thread.
find_program(ORVA_MINGW_CC NAMES ${ORVA_MINGW}-gcc-posix ${ORVA_MINGW}-gcc REQUIRED)
find_program(ORVA_MINGW_CXX NAMES ${ORVA_MINGW}-g++-posix ${ORVA_MINGW}-g++ REQUIRED)
set(CMAKE_C_COMPILER ${ORVA_MINGW_CC})
set(CMAKE_CXX_COMPILER ${ORVA_MINGW_CXX})
set(CMAKE_RC_COMPILER ${ORVA_MINGW}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${ORVA_MINGW})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
