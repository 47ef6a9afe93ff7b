# 64-bit Windows. Tests run under Wine.
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(ORVA_MINGW x86_64-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)

# Debian keeps it where no path leads, unless 32-bit programs run as well.
find_program(ORVA_WINE64 NAMES wine64 HINTS /usr/lib/wine)
if(ORVA_WINE64)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${ORVA_WINE64})
endif()
