# deskloom_plugin(PROGRAM IDENTIFIER identifier NAME name VERSION version SOURCES file...
#                 [LICENSE license] [WEBSITE url] [ICON file.svg] [COMMENT text [language text]...]
#                 [FEED_URL url [PUBLIC_KEY key]] [LIBRARIES target...] [LOCALE folder])
#
# Makes the plug-in PROGRAM from its sources and links it with the runtime and the platform for Linux.
#
#   IDENTIFIER  the name of the bundle, and of the plug-in on the bus: com.example.RecentFiles
#   NAME        the name that users read; COMMENT is the line below it in the desktop entry, in English and other languages
#   ICON        an SVG file
#   FEED_URL    the https: URL of the feed that announces newer versions; the bundle then contains the program update-check.
#               With a PUBLIC_KEY (Ed25519, in base64), the feed must be signed: its signature is at the feed's URL with ".sig"
#               at its end
#   LIBRARIES   further libraries to link with
#   LOCALE      a folder of catalogues, LANGUAGE/LC_MESSAGES/IDENTIFIER.mo; their texts replace the runtime's
#
# The bundle is lib/deskloom/plugins/IDENTIFIER in the top build folder, with a link to the program in bin/. The files that a
# desktop needs to know about it are in share/. All of that is installed in the component "plugin", to any prefix.
include("${CMAKE_CURRENT_LIST_DIR}/plugin/Entries.cmake")
include("${CMAKE_CURRENT_LIST_DIR}/plugin/Bundle.cmake")

# Stops the configuration if the identifier is not a D-Bus name.
function(_deskloom_check_identifier call identifier)
  set(element "[A-Za-z_][A-Za-z0-9_-]*")
  string(LENGTH "${identifier}" length)
  if(NOT identifier MATCHES "^${element}(\\.${element})+$" OR length GREATER 255)
    message(FATAL_ERROR "${call} IDENTIFIER is not a D-Bus name, such as com.example.RecentFiles: ${identifier}")
  endif()
endfunction()

# Stops the configuration if one of the files is missing and no rule of the build makes it.
function(_deskloom_check_files call)
  foreach(file IN LISTS ARGN)
    cmake_path(ABSOLUTE_PATH file OUTPUT_VARIABLE path)
    get_source_file_property(generated "${path}" GENERATED)
    if(NOT EXISTS "${path}" AND NOT generated)
      message(FATAL_ERROR "${call} no such file: ${path}")
    endif()
  endforeach()
endfunction()

# Adds the program, in the bundle, and the link to it. The bundle's path is relative to the build folder.
function(_deskloom_add_program program bundle sources libraries)
  add_executable(${program} ${sources})
  set_target_properties(${program} PROPERTIES CXX_EXTENSIONS OFF RUNTIME_OUTPUT_DIRECTORY "$<1:${CMAKE_BINARY_DIR}/${bundle}>")
  target_link_libraries(${program} PRIVATE ${libraries} DeskloomSDK::DeskloomSDK DeskloomSDK::Linux)
  # All symbols are bound at the start. After that the tables of their addresses are read-only.
  target_link_options(${program} PRIVATE -Wl,-z,relro -Wl,-z,now)
  # A launch takes a few milliseconds. Loading the C++ library and binding its symbols would take one of them.
  target_link_options(${program} PRIVATE "$<$<CONFIG:Release>:-static-libstdc++;-static-libgcc>")
  # Unused functions and the table of symbols are left out, since KWin reads the whole file before it permits
  # the program to see the windows.
  target_link_options(${program} PRIVATE "$<$<CONFIG:Release>:-Wl,--gc-sections;-s>")
  file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
  file(CREATE_LINK "../${bundle}/${program}" "${CMAKE_BINARY_DIR}/bin/${program}" SYMBOLIC)
endfunction()

# Adds the desktop entry, the D-Bus service file and the icon, with the paths of this build, and installs them.
function(_deskloom_add_entries program identifier name comment icon)
  _deskloom_key_file_text(name "${name}")
  _deskloom_desktop_description(description "${identifier}" "${comment}" "${icon}")
  # The templates for `deskloom_write_entries`, which replaces this once more.
  set(programs "@programs@")
  set(templates "${CMAKE_CURRENT_BINARY_DIR}/${identifier}.entries")
  foreach(kind desktop service)
    configure_file("${_deskloom_templates}/plugin.${kind}.in" "${templates}/${identifier}.${kind}.in" @ONLY)
  endforeach()
  deskloom_write_entries("${identifier}" "${templates}" "${CMAKE_BINARY_DIR}")
  install(CODE "set(APPLICATION \"${identifier}\")\nset(TEMPLATES \"${templates}\")" COMPONENT plugin)
  install(SCRIPT "${_deskloom_templates}/install.cmake" COMPONENT plugin)
  if(NOT icon STREQUAL "")
    set(icons "share/icons/hicolor/scalable/apps")
    configure_file("${icon}" "${CMAKE_BINARY_DIR}/${icons}/${identifier}.svg" COPYONLY)
    install(FILES "${icon}" DESTINATION "${icons}" RENAME "${identifier}.svg" COMPONENT plugin)
  endif()
endfunction()

# Installs the bundle and the link to the program. Neither contains the path that it is installed to.
function(_deskloom_install_bundle program bundle parts icon)
  set(built "${CMAKE_BINARY_DIR}/${bundle}")
  install(TARGETS ${program} RUNTIME DESTINATION "${bundle}" COMPONENT plugin)
  install(FILES "${built}/Info.ini" "${built}/deskloom-windows.so" DESTINATION "${bundle}" COMPONENT plugin)
  if("update-check" IN_LIST parts)
    install(PROGRAMS "${built}/update-check" DESTINATION "${bundle}" COMPONENT plugin)
  endif()
  if(NOT icon STREQUAL "")
    install(FILES "${built}/icon.svg" DESTINATION "${bundle}" COMPONENT plugin)
  endif()
  install(DIRECTORY "${built}/locale" DESTINATION "${bundle}" COMPONENT plugin)
  install(FILES "${CMAKE_BINARY_DIR}/bin/${program}" DESTINATION bin COMPONENT plugin)
endfunction()

function(deskloom_plugin program)
  cmake_parse_arguments(
    PARSE_ARGV 1 PLUGIN "" "IDENTIFIER;NAME;VERSION;LICENSE;WEBSITE;ICON;FEED_URL;PUBLIC_KEY;LOCALE"
    "SOURCES;LIBRARIES;COMMENT")
  set(call "deskloom_plugin(${program}):")
  if(PLUGIN_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "${call} unknown arguments: ${PLUGIN_UNPARSED_ARGUMENTS}")
  endif()
  foreach(argument IDENTIFIER NAME VERSION SOURCES)
    if("${PLUGIN_${argument}}" STREQUAL "")
      message(FATAL_ERROR "${call} ${argument} is missing")
    endif()
  endforeach()
  if(PLUGIN_KEYWORDS_MISSING_VALUES)
    message(FATAL_ERROR "${call} no value after ${PLUGIN_KEYWORDS_MISSING_VALUES}")
  endif()
  _deskloom_check_identifier("${call}" "${PLUGIN_IDENTIFIER}")
  if(DEFINED PLUGIN_ICON AND NOT PLUGIN_ICON MATCHES "\\.svg$")
    message(FATAL_ERROR "${call} ICON is not an SVG file: ${PLUGIN_ICON}")
  endif()
  if(DEFINED PLUGIN_PUBLIC_KEY AND NOT DEFINED PLUGIN_FEED_URL)
    message(FATAL_ERROR "${call} PUBLIC_KEY needs a FEED_URL")
  endif()
  _deskloom_check_files("${call}" ${PLUGIN_SOURCES} ${PLUGIN_ICON} ${PLUGIN_LOCALE})

  # The bundle's path below the build folder and below any prefix. The layout is fixed and does not use GNUInstallDirs: the
  # installed files find each other by relative paths, so that they can be moved.
  set(bundle "lib/deskloom/plugins/${PLUGIN_IDENTIFIER}")
  set(parts deskloom-windows.so)
  if(DEFINED PLUGIN_FEED_URL)
    list(APPEND parts update-check)
  else()
    file(REMOVE "${CMAKE_BINARY_DIR}/${bundle}/update-check")
  endif()
  _deskloom_write_information(
    "${CMAKE_BINARY_DIR}/${bundle}" "${PLUGIN_IDENTIFIER}" "${PLUGIN_NAME}" "${PLUGIN_VERSION}" "${PLUGIN_LICENSE}"
    "${PLUGIN_WEBSITE}" "${PLUGIN_ICON}" "${PLUGIN_FEED_URL}" "${PLUGIN_PUBLIC_KEY}")
  _deskloom_add_program(${program} "${bundle}" "${PLUGIN_SOURCES}" "${PLUGIN_LIBRARIES}")
  _deskloom_add_bundle(${program} "${CMAKE_BINARY_DIR}/${bundle}" "${PLUGIN_IDENTIFIER}" "${parts}" "${PLUGIN_LOCALE}")
  _deskloom_add_entries(${program} "${PLUGIN_IDENTIFIER}" "${PLUGIN_NAME}" "${PLUGIN_COMMENT}" "${PLUGIN_ICON}")
  _deskloom_install_bundle(${program} "${bundle}" "${parts}" "${PLUGIN_ICON}")
endfunction()
