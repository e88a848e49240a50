# The part of an installation that depends on its prefix. APPLICATION is the application whose entries are written, TEMPLATES the
# folder with their templates.
#
# With DESTDIR, the files are only staged. Installing the package later brings the desktop's caches up to date: in Debian,
# desktop-file-utils and hicolor-icon-theme have triggers on the folders.
include("${CMAKE_CURRENT_LIST_DIR}/Entries.cmake")

# Runs a program if it is installed.
function(run_if_found program)
  find_program(found_${program} ${program})
  if(found_${program})
    execute_process(COMMAND "${found_${program}}" ${ARGN})
  endif()
endfunction()

set(prefix "${CMAKE_INSTALL_PREFIX}")
set(stage "$ENV{DESTDIR}")
deskloom_write_entries("${APPLICATION}" "${TEMPLATES}" "${prefix}" "${stage}")
foreach(entry "applications/${APPLICATION}.desktop" "dbus-1/services/${APPLICATION}.service")
  message(STATUS "Installing: ${stage}${prefix}/share/${entry}")
  list(APPEND CMAKE_INSTALL_MANIFEST_FILES "${prefix}/share/${entry}")
endforeach()

if(stage STREQUAL "")
  run_if_found(update-desktop-database --quiet "${prefix}/share/applications")
  # Without a theme there is no cache that could be out of date: icons are then looked up in the folders.
  if(EXISTS "${prefix}/share/icons/hicolor/index.theme")
    run_if_found(gtk-update-icon-cache --quiet --force "${prefix}/share/icons/hicolor")
  endif()
endif()
