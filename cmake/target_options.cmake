# Compiler and linker options: what every target gets, and what only the library gets.

if(CMAKE_SYSTEM_PROCESSOR MATCHES "^([Xx]86|i.86|x86_64|AMD64|amd64)$")
  set(ORVA_X86 TRUE)
elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "^(aarch64|arm64|ARM64)$")
  set(ORVA_X86 FALSE)
else()
  message(FATAL_ERROR "There are kernels for x86 and 64-bit ARM only, not for ${CMAKE_SYSTEM_PROCESSOR}.")
endif()

if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  set(ORVA_32BIT TRUE)
else()
  set(ORVA_32BIT FALSE)
endif()

# What the linker notes when all objects were made with control-flow protection. It marks where
# indirect branches may go. Linux protects 64-bit processes only.
if(CMAKE_SYSTEM_NAME STREQUAL "Linux" AND ORVA_X86 AND NOT ORVA_32BIT)
  set(ORVA_CONTROL_FLOW_MARKS "IBT, SHSTK")
else()
  set(ORVA_CONTROL_FLOW_MARKS "")
endif()

# Time stamps would make every build another file, and stripping later would bring them back.
set(ORVA_REPRODUCIBLE_LINK "")
if(WIN32)
  set(ORVA_REPRODUCIBLE_LINK LINKER:--no-insert-timestamp $<$<CONFIG:Release>:-s>)
endif()

# C++20 with warnings on, and SSE arithmetic on 32-bit targets too. The same bytes from any folder.
function(orva_target_options target)
  target_compile_features(${target} PRIVATE cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
  if(ORVA_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(ORVA_32BIT)
    target_compile_options(${target} PRIVATE -msse2 -mfpmath=sse)
  endif()
  if(ORVA_CONTROL_FLOW_MARKS)
    target_compile_options(${target} PRIVATE -fcf-protection=full)
  endif()
endfunction()

# Code that ends up in the shared library: it runs in hosts of any language, so it needs no C++
# runtime and shows no symbol of its own. Position independent even where it is linked statically,
# because both libraries are made from the same objects.
function(orva_library_options target)
  orva_target_options(${target})
  set_target_properties(${target} PROPERTIES
    POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/src)
  target_compile_options(${target} PRIVATE
    -fno-exceptions -fno-rtti -fno-threadsafe-statics -fstack-protector-all)
  if(ORVA_32BIT)
    # 32-bit callers may enter with a stack that is aligned to 4 bytes only.
    target_compile_options(${target} PRIVATE -mstackrealign)
  endif()
endfunction()

# The sanitizers have to see every object, third-party test code included.
if(ORVA_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
