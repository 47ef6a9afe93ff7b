# Installation, and packages made of it: `cmake --install`, and `cpack` for .deb files (Linux) or a
# .zip (Windows). Hosts find the libraries with find_package(orva) or pkg-config; their files work
# out their prefix from where they lie, so an installed tree may be moved.
#
# Components are the packages for Debian: runtime (liborva0), development (liborva-dev), tools
# (orva-tools) and gstreamer (gstreamer1.0-orva). A further package is a component in
# debian_packages.cmake and in its install rules.

# Where Debian keeps libraries, so that those of several architectures can be installed at once.
if(NOT CMAKE_CROSSCOMPILING AND NOT DEFINED CMAKE_INSTALL_LIBDIR AND EXISTS /etc/debian_version)
  separate_arguments(flags NATIVE_COMMAND "${CMAKE_CXX_FLAGS}")
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} ${flags} -print-multiarch
    OUTPUT_VARIABLE multiarch OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(CMAKE_INSTALL_LIBDIR lib/${multiarch} CACHE PATH "Object code libraries")
endif()
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_dir ${PROJECT_BINARY_DIR}/package)
set(config_dir ${CMAKE_INSTALL_LIBDIR}/cmake/orva)

install(TARGETS orva orva-static orva-convert orva-convert-static EXPORT orva-targets
  RUNTIME COMPONENT runtime
  LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
  ARCHIVE COMPONENT development
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT orva-targets NAMESPACE orva:: DESTINATION ${config_dir} COMPONENT development)
configure_package_config_file(cmake/orva-config.cmake.in ${package_dir}/orva-config.cmake
  INSTALL_DESTINATION ${config_dir})
# As the SONAME says: nothing that a version 0 can do is lost in a later one.
write_basic_package_version_file(${package_dir}/orva-config-version.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${package_dir}/orva-config.cmake ${package_dir}/orva-config-version.cmake
  DESTINATION ${config_dir} COMPONENT development)

# orva_install_pkgconfig(<library> <macro> <description>): <macro> is what hosts of the static
# library define.
function(orva_install_pkgconfig library macro description)
  file(RELATIVE_PATH to_include
    ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_FULL_INCLUDEDIR})
  set(static_libs "")
  if(WIN32)
    set(static_libs -fstack-protector-all)
  endif()
  configure_file(cmake/library.pc.in ${package_dir}/${library}.pc @ONLY)
  install(FILES ${package_dir}/${library}.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endfunction()
orva_install_pkgconfig(orva ORVA_STATIC
  "Pixel-format conversions whose bytes never change, for hosts that bind to them")
orva_install_pkgconfig(orva-convert ORVA_CONVERT_STATIC
  "Any pixel format of uncompressed video to any other, with every argument checked")

install(DIRECTORY include/orva DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
install(FILES README.md CHANGELOG.md CONTRIBUTING.md COPYRIGHT
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)
# Examples may have been built where they lie.
install(DIRECTORY docs examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development
  PATTERN build EXCLUDE PATTERN __pycache__ EXCLUDE)
if(WIN32)
  install(FILES ${ORVA_EXPORT_DEF_exports} ${ORVA_EXPORT_DEF_convert}
    DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
  if(ORVA_DLLTOOL)
    install(FILES ${PROJECT_BINARY_DIR}/orva.lib ${PROJECT_BINARY_DIR}/orva-convert.lib
      DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
  endif()
endif()

if(TARGET orva-cli)
  install(TARGETS orva-cli COMPONENT tools)
  if(TARGET orva-manual)
    install(FILES ${PROJECT_BINARY_DIR}/tools/orva/orva.1.gz
      DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tools)
  endif()
  if(NOT WIN32)
    install(FILES tools/orva/completion.bash RENAME orva
      DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT tools)
  endif()
endif()
if(TARGET gstorva)
  install(TARGETS gstorva DESTINATION ${CMAKE_INSTALL_LIBDIR}/gstreamer-1.0 COMPONENT gstreamer)
endif()

set(CPACK_PACKAGE_NAME orva)
set(CPACK_PACKAGE_VENDOR "The ORVA maintainers")
set(CPACK_PACKAGE_CONTACT ${CPACK_PACKAGE_VENDOR})
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/package_permissions.cmake)
set(CPACK_VERBATIM_VARIABLES ON)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
  if(ORVA_32BIT)
    set(CPACK_SYSTEM_NAME windows-x86)
  else()
    set(CPACK_SYSTEM_NAME windows-x64)
  endif()
else()
  include(cmake/debian_packages.cmake)
  list(APPEND CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/package_tools.cmake)
endif()
include(CPack)
