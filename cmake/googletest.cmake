# GoogleTest, built from source within this build tree so that it fits every target. Debian's
# package googletest brings the sources; ORVA_GOOGLETEST_DIR may name others.
set(ORVA_GOOGLETEST_DIR /usr/src/googletest CACHE PATH "GoogleTest's sources")
if(NOT EXISTS ${ORVA_GOOGLETEST_DIR}/CMakeLists.txt)
  message(FATAL_ERROR "No GoogleTest sources in ${ORVA_GOOGLETEST_DIR}: install the package "
    "googletest, set ORVA_GOOGLETEST_DIR, or turn ORVA_BUILD_TESTS off.")
endif()
set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
add_subdirectory(${ORVA_GOOGLETEST_DIR} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
include(GoogleTest)
