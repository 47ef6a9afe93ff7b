# 32-bit Windows. Tests run under Wine, or under the program that the environment variable ORVA_WINE
# names.
set(CMAKE_SYSTEM_PROCESSOR i686)
set(ORVA_MINGW i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)

if(DEFINED ENV{ORVA_WINE})
  set(CMAKE_CROSSCOMPILING_EMULATOR $ENV{ORVA_WINE})
else()
  set(CMAKE_CROSSCOMPILING_EMULATOR wine)
endif()
