# 64-bit Windows. Tests run under Wine.
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(ORVA_MINGW x86_64-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)

# Debian keeps it where no path leads, unless 32-bit programs run as well.
find_program(ORVA_WINE64 NAMES wine64 HINTS /usr/lib/wine)
if(ORVA_WINE64)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${ORVA_WINE64})
  # Recent kernels place a program's heap at random within a gigabyte, and one start in two thousand
  # it lies where Wine has to place a page of Windows. Containers may refuse to switch that off.
  execute_process(COMMAND setarch -R true RESULT_VARIABLE refused OUTPUT_QUIET ERROR_QUIET)
  if(refused EQUAL 0)
    list(PREPEND CMAKE_CROSSCOMPILING_EMULATOR setarch -R)
  endif()
endif()
