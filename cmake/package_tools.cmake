# Run by CPack before it makes packages for Debian. Without this program it would make them as well, but
# leave out what they depend on.
find_program(DPKG_SHLIBDEPS dpkg-shlibdeps)
if(NOT DPKG_SHLIBDEPS)
  message(FATAL_ERROR "Packages need dpkg-shlibdeps: run scripts/install-deps packages")
endif()
