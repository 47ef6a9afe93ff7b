# Everything that is made from exports/orva.def, the one list of the library's exports:
#
#   ORVA_EXPORT_DEF         the list itself, which Windows links with
#   ORVA_VERSION_SCRIPT     its ELF form
#   orva-export-list        a target that lets C++ include "export_list.inc", one line
#                           ORVA_EXPORT_NAME(name) for each export

set(ORVA_EXPORT_DEF ${PROJECT_SOURCE_DIR}/exports/orva.def)
set(ORVA_VERSION_SCRIPT ${PROJECT_BINARY_DIR}/generated/orva.map)
set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
  ${ORVA_EXPORT_DEF})

block()
  file(STRINGS ${ORVA_EXPORT_DEF} lines)
  set(globals "")
  set(macros "")
  foreach(line IN LISTS lines)
    string(REGEX REPLACE ";.*" "" line "${line}")
    string(STRIP "${line}" name)
    if(name STREQUAL "" OR name STREQUAL "EXPORTS")
      continue()
    endif()
    if(NOT name MATCHES "^[A-Za-z_][A-Za-z0-9_]*$")
      message(FATAL_ERROR "${ORVA_EXPORT_DEF}: not a plain name: '${name}'")
    endif()
    string(APPEND globals "    ${name};\n")
    string(APPEND macros "ORVA_EXPORT_NAME(${name})\n")
  endforeach()
  # An anonymous node: it defines no version symbol of its own.
  file(CONFIGURE OUTPUT ${ORVA_VERSION_SCRIPT} @ONLY
    CONTENT "{\n  global:\n@globals@  local:\n    *;\n};\n")
  file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/generated/include/export_list.inc @ONLY
    CONTENT "@macros@")
endblock()

add_library(orva-export-list INTERFACE)
target_include_directories(orva-export-list INTERFACE ${PROJECT_BINARY_DIR}/generated/include)
