# 64-bit ARM Linux from another Linux. Tests run under qemu.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)

# Clang will do as well, and with Debian's packages it can lie beside g++-multilib.
find_program(ORVA_ARM64_CXX NAMES aarch64-linux-gnu-g++ clang++ REQUIRED)
if(ORVA_ARM64_CXX MATCHES "clang")
  set(CMAKE_C_COMPILER clang)
  set(CMAKE_C_COMPILER_TARGET aarch64-linux-gnu)
  set(CMAKE_CXX_COMPILER_TARGET aarch64-linux-gnu)
else()
  set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
endif()
set(CMAKE_CXX_COMPILER ${ORVA_ARM64_CXX})

set(CMAKE_FIND_ROOT_PATH /usr/aarch64-linux-gnu)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64 -L /usr/aarch64-linux-gnu)
