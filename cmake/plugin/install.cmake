# The part of an installation that depends on its prefix. APPLICATION is the application whose entries are to be made, from
# what is in the folder TEMPLATES.
#
# Under DESTDIR, files are only put together for somewhere else, where a package's installation brings the desktop's caches
# up to date: Debian's desktop-file-utils and hicolor-icon-theme do so by themselves, by triggers on the folders.
include("${CMAKE_CURRENT_LIST_DIR}/Entries.cmake")

# Runs a program that may be missing, and then is not needed.
function(run_if_there program)
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
  run_if_there(update-desktop-database --quiet "${prefix}/share/applications")
  # Without a theme there is no cache to go stale: icons are looked for in the folders.
  if(EXISTS "${prefix}/share/icons/hicolor/index.theme")
    run_if_there(gtk-update-icon-cache --quiet --force "${prefix}/share/icons/hicolor")
  endif()
endif()
