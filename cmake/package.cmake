# Installation, and packages made of it: `cmake --install`, and `cpack` for a .deb (Linux) or a .zip
# (Windows). Hosts find the library with find_package(orva) or pkg-config; both files work out their
# prefix from where they lie, so an installed tree may be moved.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_dir ${PROJECT_BINARY_DIR}/package)
set(config_dir ${CMAKE_INSTALL_LIBDIR}/cmake/orva)

install(TARGETS orva orva-static orva-convert orva-convert-static EXPORT orva-targets
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT orva-targets NAMESPACE orva:: DESTINATION ${config_dir})
configure_package_config_file(cmake/orva-config.cmake.in ${package_dir}/orva-config.cmake
  INSTALL_DESTINATION ${config_dir})
write_basic_package_version_file(${package_dir}/orva-config-version.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${package_dir}/orva-config.cmake ${package_dir}/orva-config-version.cmake
  DESTINATION ${config_dir})

file(RELATIVE_PATH pkgconfig_to_include
  ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_FULL_INCLUDEDIR})
configure_file(cmake/orva.pc.in ${package_dir}/orva.pc @ONLY)
install(FILES ${package_dir}/orva.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(DIRECTORY include/orva DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR})

if(TARGET orva-cli)
  if(NOT WIN32)
    file(RELATIVE_PATH bin_to_lib ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
    set_target_properties(orva-cli PROPERTIES INSTALL_RPATH "$ORIGIN/${bin_to_lib}")
  endif()
  install(TARGETS orva-cli)
endif()

set(CPACK_PACKAGE_NAME orva)
set(CPACK_PACKAGE_VENDOR "The ORVA maintainers")
set(CPACK_PACKAGE_CONTACT ${CPACK_PACKAGE_VENDOR})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_PACKAGE_DESCRIPTION "Converts between YCbCr 4:2:2, BGR and alpha planes. Holds the shared
 library, its C and C++ headers and the program orva.")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME orva-${PROJECT_VERSION}-windows-x86)
else()
  set(CPACK_GENERATOR DEB)
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
  if(ORVA_32BIT)
    # Asked on a 64-bit system, dpkg-shlibdeps names that system's packages of 32-bit libraries.
    set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE i386)
    set(CPACK_DEBIAN_PACKAGE_DEPENDS "libc6, libgcc-s1, libstdc++6")
  else()
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
  endif()
endif()
include(CPack)
