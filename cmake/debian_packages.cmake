# The packages for Debian, one for each component. Packages of libraries can be installed for several
# architectures at once.
set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_COMPONENTS_ALL "")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY >=)

# Asked on a 64-bit system, dpkg-shlibdeps names that system's packages of 32-bit libraries. Those
# are of the same versions as the system's own libraries, which are then good enough.
if(ORVA_32BIT)
  set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE i386)
else()
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
endif()
function(orva_depends_on_system variable)
  set(depends "")
  if(ORVA_32BIT)
    execute_process(COMMAND dpkg-query --show --showformat "\${Package} (>= \${source:Upstream-Version}), "
      ${ARGN} OUTPUT_VARIABLE depends ERROR_QUIET)
    string(REGEX REPLACE ", $" "" depends "${depends}")
  endif()
  set(${variable} "${depends}" PARENT_SCOPE)
endfunction()

# orva_debian_package(<component> <package> <section> <multiarch> <description>): the description
# follows the project's, which is every package's summary.
macro(orva_debian_package component package section multiarch description)
  list(APPEND CPACK_COMPONENTS_ALL ${component})
  string(TOUPPER ${component} prefix)
  set(CPACK_DEBIAN_${prefix}_PACKAGE_NAME ${package})
  # CPack has no variable for the field Multi-Arch, but copies this one's value as it is.
  set(CPACK_DEBIAN_${prefix}_PACKAGE_SECTION "${section}\nMulti-Arch: ${multiarch}")
  set(CPACK_DEBIAN_${prefix}_DESCRIPTION ${description})
  # Debian wants it in every package; an installation without packages has it once.
  install(FILES COPYRIGHT DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} RENAME copyright
    COMPONENT ${component} EXCLUDE_FROM_ALL)
endmacro()

orva_debian_package(runtime liborva0 libs same
  "Libraries that convert between YCbCr 4:2:2 of 8 and 10 bits, RGB and alpha planes: one with
every argument checked, one of unchecked functions for hosts that bind to them.")
orva_depends_on_system(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS libc6)

orva_debian_package(development liborva-dev libdevel same
  "Headers for C and C++, static libraries, what CMake and pkg-config need, documents and examples.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "liborva0 (= ${PROJECT_VERSION})")

if(TARGET orva-cli)
  orva_debian_package(tools orva-tools video foreign
    "The program orva, which converts, compares and describes raw video files, and makes test
patterns and pictures.")
  orva_depends_on_system(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS libc6 libgcc-s1 libstdc++6)
endif()

if(TARGET gstorva)
  orva_debian_package(gstreamer gstreamer1.0-orva libs same
    "The element orvaconvert for GStreamer, which converts between YCbCr 4:2:2 of 8 and 10 bits
and RGB.")
  # Where its dependencies are looked up, the library that is not installed yet.
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
  set(CPACK_DEBIAN_GSTREAMER_PACKAGE_DEPENDS "liborva0 (= ${PROJECT_VERSION})")
endif()
