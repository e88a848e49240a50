# deskloom_plugin(PROGRAM IDENTIFIER identifier NAME name VERSION version SOURCES file...
#                 [LICENSE license] [WEBSITE url] [ICON file.svg] [COMMENT text [language text]...]
#                 [FEED_URL url [PUBLIC_KEY key]] [LIBRARIES target...] [LOCALE folder])
#
# Makes the plug-in PROGRAM from its sources and links it with the runtime and this desktop's platform.
#
#   IDENTIFIER  what the bundle, and the plug-in on the bus, is called: com.example.RecentFiles
#   NAME        what users read; COMMENT is the line below it in the desktop entry, in English and in other languages
#   ICON        a picture, as SVG
#   FEED_URL    where newer versions are announced; with a PUBLIC_KEY nothing is that this Ed25519 key, in base64, did not sign
#   LIBRARIES   what it is linked with besides
#   LOCALE      a folder of catalogues, LANGUAGE/LC_MESSAGES/IDENTIFIER.mo; their texts come before the runtime's own
#
# The bundle is lib/deskloom/plugins/IDENTIFIER in the top build folder, with a link to the program in bin/; share/ has what a
# desktop knows it by. All of that is installed in the component "plugin", to any prefix.
include("${CMAKE_CURRENT_LIST_DIR}/plugin/Entries.cmake")
include("${CMAKE_CURRENT_LIST_DIR}/plugin/Bundle.cmake")

# Ends the configuration where a call makes no plug-in.
function(_deskloom_check_plugin program)
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
    message(FATAL_ERROR "${call} nothing behind ${PLUGIN_KEYWORDS_MISSING_VALUES}")
  endif()
  set(element "[A-Za-z_][A-Za-z0-9_-]*")
  string(LENGTH "${PLUGIN_IDENTIFIER}" length)
  if(NOT "${PLUGIN_IDENTIFIER}" MATCHES "^${element}(\\.${element})+$" OR length GREATER 255)
    message(FATAL_ERROR "${call} IDENTIFIER is no name on the bus, such as com.example.RecentFiles: ${PLUGIN_IDENTIFIER}")
  endif()
  if(DEFINED PLUGIN_ICON AND NOT "${PLUGIN_ICON}" MATCHES "\\.svg$")
    message(FATAL_ERROR "${call} ICON is no SVG file: ${PLUGIN_ICON}")
  endif()
  if(DEFINED PLUGIN_PUBLIC_KEY AND NOT DEFINED PLUGIN_FEED_URL)
    message(FATAL_ERROR "${call} PUBLIC_KEY has no FEED_URL that it is for")
  endif()
  foreach(file IN LISTS PLUGIN_SOURCES PLUGIN_ICON PLUGIN_LOCALE)
    cmake_path(ABSOLUTE_PATH file OUTPUT_VARIABLE path)
    get_source_file_property(generated "${path}" GENERATED)
    if(NOT EXISTS "${path}" AND NOT generated)
      message(FATAL_ERROR "${call} no such file: ${path}")
    endif()
  endforeach()
endfunction()

# The program, and the link to it.
function(_deskloom_add_program program)
  add_executable(${program} ${PLUGIN_SOURCES})
  set_target_properties(${program} PROPERTIES CXX_EXTENSIONS OFF RUNTIME_OUTPUT_DIRECTORY "$<1:${bundle}>")
  target_link_libraries(${program} PRIVATE ${PLUGIN_LIBRARIES} DeskloomSDK::DeskloomSDK DeskloomSDK::Linux)
  # All symbols are bound at the start, and then the tables of their addresses are read-only.
  target_link_options(${program} PRIVATE -Wl,-z,relro -Wl,-z,now)
  # A launch is a few milliseconds long; loading the C++ library and binding its symbols would be one of them.
  target_link_options(${program} PRIVATE "$<$<CONFIG:Release>:-static-libstdc++;-static-libgcc>")
  file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
  file(CREATE_LINK "../${bundle_directory}/${program}" "${CMAKE_BINARY_DIR}/bin/${program}" SYMBOLIC)
endfunction()

# What the desktop knows it by, with the paths of this build.
function(_deskloom_add_entries program)
  _deskloom_key_file_text("${PLUGIN_NAME}" name)
  _deskloom_desktop_description(description)
  set(programs "@programs@")
  set(templates "${CMAKE_CURRENT_BINARY_DIR}/${identifier}.entries")
  foreach(kind desktop service)
    configure_file("${_deskloom_templates}/plugin.${kind}.in" "${templates}/${identifier}.${kind}.in" @ONLY)
  endforeach()
  deskloom_write_entries("${identifier}" "${templates}" "${CMAKE_BINARY_DIR}")
  install(CODE "set(APPLICATION \"${identifier}\")\nset(TEMPLATES \"${templates}\")" COMPONENT plugin)
  install(SCRIPT "${_deskloom_templates}/install.cmake" COMPONENT plugin)
  if(DEFINED PLUGIN_ICON)
    set(icons "share/icons/hicolor/scalable/apps")
    configure_file("${PLUGIN_ICON}" "${CMAKE_BINARY_DIR}/${icons}/${identifier}.svg" COPYONLY)
    install(FILES "${PLUGIN_ICON}" DESTINATION "${icons}" RENAME "${identifier}.svg" COMPONENT plugin)
  endif()
endfunction()

# Nothing in the bundle, nor in the link to it, names the place that it is installed to.
function(_deskloom_install_bundle program)
  install(PROGRAMS "${bundle}/update-check" DESTINATION "${bundle_directory}" COMPONENT plugin)
  install(TARGETS ${program} RUNTIME DESTINATION "${bundle_directory}" COMPONENT plugin)
  install(FILES "${bundle}/deskloom-windows.so" "${bundle}/Info.ini" DESTINATION "${bundle_directory}" COMPONENT plugin)
  if(DEFINED PLUGIN_ICON)
    install(FILES "${bundle}/icon.svg" DESTINATION "${bundle_directory}" COMPONENT plugin)
  endif()
  install(DIRECTORY "${bundle}/locale" DESTINATION "${bundle_directory}" COMPONENT plugin)
  install(FILES "${CMAKE_BINARY_DIR}/bin/${program}" DESTINATION bin COMPONENT plugin)
endfunction()

function(deskloom_plugin program)
  cmake_parse_arguments(
    PARSE_ARGV 1 PLUGIN "" "IDENTIFIER;NAME;VERSION;LICENSE;WEBSITE;ICON;FEED_URL;PUBLIC_KEY;LOCALE"
    "SOURCES;LIBRARIES;COMMENT")
  _deskloom_check_plugin(${program})
  set(identifier "${PLUGIN_IDENTIFIER}")
  set(bundle_directory "lib/deskloom/plugins/${identifier}")
  set(bundle "${CMAKE_BINARY_DIR}/${bundle_directory}")
  _deskloom_add_program(${program})
  _deskloom_add_bundle(${program})
  _deskloom_add_entries(${program})
  _deskloom_install_bundle(${program})
endfunction()
