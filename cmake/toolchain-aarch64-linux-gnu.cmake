# 64-bit ARM Linux from another Linux. Tests run under qemu.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)

# Debian's packages without a version in their names cannot lie beside g++-multilib.
find_program(ORVA_ARM64_CC NAMES aarch64-linux-gnu-gcc aarch64-linux-gnu-gcc-12 REQUIRED)
find_program(ORVA_ARM64_CXX NAMES aarch64-linux-gnu-g++ aarch64-linux-gnu-g++-12 REQUIRED)
set(CMAKE_C_COMPILER ${ORVA_ARM64_CC})
set(CMAKE_CXX_COMPILER ${ORVA_ARM64_CXX})

set(CMAKE_FIND_ROOT_PATH /usr/aarch64-linux-gnu)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64 -L /usr/aarch64-linux-gnu)
