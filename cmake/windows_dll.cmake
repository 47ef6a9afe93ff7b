# orva_windows_dll(<target> <def>): what a shared library needs to be a DLL that any host can load,
# whatever compiler made it: no DLL of MinGW's beside it, undecorated names with the ordinals of the
# list, details for Explorer, and <target>.lib for linkers that do not take MinGW's import library.
function(orva_windows_dll target def)
  set(file ${target}.dll)
  string(REPLACE "." "," version_numbers ${PROJECT_VERSION})
  set(resource ${PROJECT_BINARY_DIR}/generated/${target}.rc)
  configure_file(${PROJECT_SOURCE_DIR}/src/windows/version.rc.in ${resource} @ONLY)

  set_target_properties(${target} PROPERTIES PREFIX "")
  target_sources(${target} PRIVATE
    ${def} ${resource} ${PROJECT_SOURCE_DIR}/src/windows/stack_guard.cpp)
  target_link_options(${target} PRIVATE -static ${ORVA_REPRODUCIBLE_LINK})

  find_program(ORVA_DLLTOOL NAMES llvm-dlltool
    DOC "llvm-dlltool, which makes import libraries for other linkers than MinGW's")
  if(NOT ORVA_DLLTOOL)
    message(STATUS "No llvm-dlltool, and so no ${target}.lib")
    return()
  endif()
  if(ORVA_32BIT)
    set(machine i386)
  else()
    set(machine i386:x86-64)
  endif()
  set(import_library ${PROJECT_BINARY_DIR}/${target}.lib)
  add_custom_command(OUTPUT ${import_library}
    COMMAND ${ORVA_DLLTOOL} -m ${machine} -d ${def} -D ${file} -l ${import_library}
    DEPENDS ${def} VERBATIM)
  add_custom_target(${target}-import-library ALL DEPENDS ${import_library})
endfunction()
