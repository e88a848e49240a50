# The Debian packages, which script/package makes with CPack. Each is a group of the installation's components.
set(CPACK_GENERATOR DEB)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_SET_DESTDIR ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_NAME deskloom)
set(CPACK_PACKAGE_VENDOR "The Deskloom developers")
set(CPACK_PACKAGE_CONTACT "The Deskloom developers <developers@quillary.com>")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://quillary.com/gleanery")
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

find_program(GZIP gzip REQUIRED)
set(_changelog "${CMAKE_CURRENT_BINARY_DIR}/packaging/debian/changelog")
configure_file(packaging/debian/changelog.in "${_changelog}" @ONLY)
add_custom_command(
  OUTPUT "${_changelog}.gz"
  COMMAND "${GZIP}" --best --no-name --force --keep changelog
  WORKING_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/packaging/debian"
  DEPENDS packaging/debian/changelog.in
  VERBATIM)
add_custom_target(changelog ALL DEPENDS "${_changelog}.gz")

# deskloom_package(NAME COMPONENTS component... SECTION section SUMMARY text DESCRIPTION text [ALL] [DEPENDS text]
#                  [RECOMMENDS text] [CONTROL file...])
#
# ALL is for a package without machine code. CONTROL are files for dpkg, such as conffiles.
macro(deskloom_package name)
  cmake_parse_arguments(PACKAGE "ALL" "SECTION;SUMMARY;DESCRIPTION;DEPENDS;RECOMMENDS" "COMPONENTS;CONTROL" ${ARGN})
  install(FILES packaging/debian/copyright "${_changelog}.gz" DESTINATION "share/doc/${name}" COMPONENT "${name}-documents"
          EXCLUDE_FROM_ALL)
  foreach(component IN ITEMS ${PACKAGE_COMPONENTS} "${name}-documents")
    list(APPEND CPACK_COMPONENTS_ALL "${component}")
    string(TOUPPER "${component}" component)
    set(CPACK_COMPONENT_${component}_GROUP "${name}")
  endforeach()
  if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/packaging/debian/${name}.lintian-overrides")
    install(FILES "packaging/debian/${name}.lintian-overrides" DESTINATION share/lintian/overrides RENAME "${name}"
            COMPONENT "${name}-documents" EXCLUDE_FROM_ALL)
  endif()
  string(TOUPPER "${name}" group)
  set(CPACK_DEBIAN_${group}_PACKAGE_NAME "${name}")
  set(CPACK_DEBIAN_${group}_PACKAGE_SECTION "${PACKAGE_SECTION}")
  set(CPACK_DEBIAN_${group}_DESCRIPTION "${PACKAGE_SUMMARY}\n${PACKAGE_DESCRIPTION}")
  set(CPACK_DEBIAN_${group}_PACKAGE_DEPENDS "${PACKAGE_DEPENDS}")
  set(CPACK_DEBIAN_${group}_PACKAGE_RECOMMENDS "${PACKAGE_RECOMMENDS}")
  set(CPACK_DEBIAN_${group}_PACKAGE_CONTROL_EXTRA "${PACKAGE_CONTROL}")
  if(PACKAGE_ALL)
    set(CPACK_DEBIAN_${group}_PACKAGE_ARCHITECTURE all)
  endif()
endmacro()

deskloom_package(
  gleanery
  COMPONENTS plugin
  SECTION utils
  SUMMARY "plug-in for Deskloom that collects what is open on the desktop"
  DESCRIPTION "Deskloom keeps files, folders, websites and applications together. When it
asks, Gleanery lists the applications, folders or browser tabs that are open
at the moment, hands the list over and quits, all in a few milliseconds."
  # Launches that need these load them by name, so the dependencies that are found in the programs lack them.
  DEPENDS "libxcb1, libxcb-res0, libwayland-client0, libsqlite3-0, liblz4-1"
  RECOMMENDS "gleanery-browser, gleanery-gnome-shell")
deskloom_package(
  gleanery-browser
  COMPONENTS browser
  SECTION web
  SUMMARY "companion of Gleanery in Chromium and Firefox"
  DESCRIPTION "An extension tells Gleanery which windows and tabs are open at this moment.
Without it, Gleanery reads the files that browsers save for themselves, which
are some seconds late. Private windows are never told of.
.
Chromium and Firefox ESR load the extension at their next start."
  CONTROL "${CMAKE_CURRENT_SOURCE_DIR}/packaging/debian/conffiles")
deskloom_package(
  gleanery-gnome-shell
  COMPONENTS gnome-shell
  SECTION gnome
  SUMMARY "companion of Gleanery in GNOME Shell"
  DESCRIPTION "An extension of GNOME Shell tells Gleanery which windows are open. On Wayland
no other program is told."
  ALL
  RECOMMENDS "gnome-shell (>= 43)")
deskloom_package(
  deskloom-sdk-dev
  COMPONENTS sdk
  SECTION libdevel
  SUMMARY "runtime for Deskloom's plug-ins, and tools to develop them"
  DESCRIPTION "Headers, static libraries and the CMake package with which plug-ins for
Deskloom are written, and applescript, which runs a script in a terminal."
  DEPENDS "libglib2.0-dev, libgtk-4-dev, liburiparser-dev, nlohmann-json3-dev, libcurl4-openssl-dev, libexpat1-dev, libsodium-dev"
  RECOMMENDS "deskloom-host")
deskloom_package(
  deskloom-host
  COMPONENTS host development
  SECTION devel
  SUMMARY "small host for those who develop plug-ins for Deskloom"
  DESCRIPTION "Receives what plug-ins send to Deskloom and prints it, and answers their
requests. It becomes the handler of Deskloom's URLs if there is no other one.")

include(CPack)
