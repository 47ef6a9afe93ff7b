# What is made from the lists of names that the libraries export, exports/<library>.def. For each
# list, `exports` of liborva and `convert` of liborva-convert:
#
#   ORVA_EXPORT_DEF_<list>       the list itself, which Windows links with
#   ORVA_VERSION_SCRIPT_<list>   its ELF form
#   ORVA_SYMBOL_LIST_<list>      its form for macOS
#   orva-export-list             a target that lets C++ include "export_list.inc", one line
#                                ORVA_EXPORT_NAME(name) for each export of liborva

set(generated ${PROJECT_BINARY_DIR}/generated)

# orva_read_export_list(<list> <def> <variable>) sets the variable to the names.
function(orva_read_export_list list def variable)
  set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${def})
  file(STRINGS ${def} lines)
  set(names "")
  set(globals "")
  set(symbols "")
  foreach(line IN LISTS lines)
    string(REGEX REPLACE ";.*" "" line "${line}")
    string(REGEX REPLACE "@.*" "" line "${line}")
    string(STRIP "${line}" name)
    if(name STREQUAL "" OR name STREQUAL "EXPORTS")
      continue()
    endif()
    if(NOT name MATCHES "^[A-Za-z_][A-Za-z0-9_]*$")
      message(FATAL_ERROR "${def}: not a plain name: '${name}'")
    endif()
    list(APPEND names ${name})
    string(APPEND globals "    ${name};\n")
    string(APPEND symbols "_${name}\n")
  endforeach()
  # An anonymous node: it defines no version symbol of its own.
  file(CONFIGURE OUTPUT ${generated}/${list}.map @ONLY
    CONTENT "{\n  global:\n@globals@  local:\n    *;\n};\n")
  file(CONFIGURE OUTPUT ${generated}/${list}.symbols @ONLY CONTENT "@symbols@")
  set(ORVA_EXPORT_DEF_${list} ${def} PARENT_SCOPE)
  set(ORVA_SYMBOL_LIST_${list} ${generated}/${list}.symbols PARENT_SCOPE)
  set(ORVA_VERSION_SCRIPT_${list} ${generated}/${list}.map PARENT_SCOPE)
  set(${variable} ${names} PARENT_SCOPE)
endfunction()

orva_read_export_list(convert ${PROJECT_SOURCE_DIR}/exports/orva-convert.def names)
orva_read_export_list(exports ${PROJECT_SOURCE_DIR}/exports/orva.def names)

list(TRANSFORM names REPLACE "(.+)" "ORVA_EXPORT_NAME(\\1)\n" OUTPUT_VARIABLE macros)
list(JOIN macros "" macros)
file(CONFIGURE OUTPUT ${generated}/include/export_list.inc @ONLY CONTENT "@macros@")

add_library(orva-export-list INTERFACE)
target_include_directories(orva-export-list INTERFACE ${generated}/include)
