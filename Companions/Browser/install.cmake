# The part of the companion's installation that depends on its prefix. TEMPLATE is that of the native messaging host's description.
include("${CMAKE_CURRENT_LIST_DIR}/NativeHosts.cmake")

# Browsers read the system's configuration in /etc alone.
set(configuration "${CMAKE_INSTALL_PREFIX}/etc")
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
  set(configuration "/etc")
endif()
deskloom_write_native_hosts("${TEMPLATE}" "${CMAKE_INSTALL_PREFIX}" "${configuration}" "$ENV{DESTDIR}")
foreach(file IN LISTS native_hosts)
  message(STATUS "Installing: $ENV{DESTDIR}${file}")
  list(APPEND CMAKE_INSTALL_MANIFEST_FILES "${file}")
endforeach()
