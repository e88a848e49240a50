# The files in a plug-in's bundle besides the program.
set(_deskloom_templates "${CMAKE_CURRENT_LIST_DIR}")

# Sets RESULT to the text as a value in a key file, which is one line.
function(_deskloom_key_file_text result text)
  string(REPLACE "\\" "\\\\" text "${text}")
  string(REPLACE "\n" "\\n" text "${text}")
  set(${result} "${text}" PARENT_SCOPE)
endfunction()

# Appends the line KEY=TEXT to the variable, unless the text is empty.
function(_deskloom_append_key variable key text)
  if(NOT text STREQUAL "")
    _deskloom_key_file_text(value "${text}")
    set(${variable} "${${variable}}${key}=${value}\n" PARENT_SCOPE)
  endif()
endfunction()

# Sets RESULT to the lines of a desktop entry with the comment in all its languages, and with the icon.
function(_deskloom_desktop_description result identifier comment icon)
  set(lines "")
  set(key "Comment")
  foreach(word IN LISTS comment)
    if(key STREQUAL "")
      set(key "Comment[${word}]")
    else()
      _deskloom_append_key(lines "${key}" "${word}")
      set(key "")
    endif()
  endforeach()
  if(NOT icon STREQUAL "")
    string(APPEND lines "Icon=${identifier}\n")
  endif()
  set(${result} "${lines}" PARENT_SCOPE)
endfunction()

# Writes the bundle's Info.ini and its icon. All but the first three texts may be empty.
function(_deskloom_write_information bundle identifier name version license website icon feed_url public_key)
  set(description "")
  _deskloom_append_key(description Identifier "${identifier}")
  _deskloom_append_key(description Name "${name}")
  _deskloom_append_key(description Version "${version}")
  _deskloom_append_key(description License "${license}")
  _deskloom_append_key(description Website "${website}")
  if(NOT icon STREQUAL "")
    _deskloom_append_key(description Icon icon.svg)
    configure_file("${icon}" "${bundle}/icon.svg" COPYONLY)
  endif()
  set(updates "")
  _deskloom_append_key(updates FeedURL "${feed_url}")
  _deskloom_append_key(updates PublicKey "${public_key}")
  if(NOT updates STREQUAL "")
    string(PREPEND updates "\n[Updates]\n" "# AutomaticChecks=false switches the checks off.\n"
           "# Interval is the time between two checks in seconds, by default 86400.\n")
  endif()
  file(WRITE "${bundle}/Info.ini" "[Bundle]\n${description}${updates}")
endfunction()

# Adds the bundle's catalogue of one language: the plug-in's own, the runtime's, or both merged, in which the plug-in's texts
# replace the runtime's. At most one of the two may be empty.
function(_deskloom_add_catalogue catalogue own runtime)
  set(sources ${own} ${runtime})
  list(LENGTH sources count)
  if(count EQUAL 1)
    set(command "${CMAKE_COMMAND}" -E copy "${sources}" "${catalogue}")
  else()
    find_program(MSGUNFMT msgunfmt REQUIRED)
    find_program(MSGCAT msgcat REQUIRED)
    find_program(MSGFMT msgfmt REQUIRED)
    set(command "${CMAKE_COMMAND}" "-DOWN=${own}" "-DRUNTIME=${runtime}" "-DCATALOGUE=${catalogue}" "-DMSGUNFMT=${MSGUNFMT}"
                "-DMSGCAT=${MSGCAT}" "-DMSGFMT=${MSGFMT}" -P "${_deskloom_templates}/merge-catalogues.cmake")
  endif()
  cmake_path(GET catalogue PARENT_PATH folder)
  file(MAKE_DIRECTORY "${folder}")
  add_custom_command(
    OUTPUT "${catalogue}"
    COMMAND ${command}
    DEPENDS ${sources}
    VERBATIM)
endfunction()

# Adds the bundle's catalogues and sets RESULT to their paths. OWN is the folder of the plug-in's own catalogues, or empty.
function(_deskloom_add_catalogues result bundle identifier own)
  set(own_catalogues "")
  if(NOT own STREQUAL "")
    cmake_path(ABSOLUTE_PATH own)
    file(GLOB own_catalogues CONFIGURE_DEPENDS "${own}/*/LC_MESSAGES/${identifier}.mo")
    if(NOT own_catalogues)
      message(FATAL_ERROR "deskloom_plugin: no LANGUAGE/LC_MESSAGES/${identifier}.mo in ${own}")
    endif()
  endif()
  set(languages "")
  foreach(catalogue IN LISTS own_catalogues DeskloomSDK_CATALOGUES)
    string(REGEX REPLACE ".*/([^/]*)/LC_MESSAGES/[^/]*$" "\\1" language "${catalogue}")
    list(APPEND languages "${language}")
  endforeach()
  list(REMOVE_DUPLICATES languages)
  set(catalogues "")
  foreach(language IN LISTS languages)
    set(own_catalogue "${own}/${language}/LC_MESSAGES/${identifier}.mo")
    set(runtime_catalogue "${DeskloomSDK_LOCALE}/${language}/LC_MESSAGES/DeskloomSDK.mo")
    if(NOT own_catalogue IN_LIST own_catalogues)
      set(own_catalogue "")
    endif()
    if(NOT runtime_catalogue IN_LIST DeskloomSDK_CATALOGUES)
      set(runtime_catalogue "")
    endif()
    set(catalogue "${bundle}/locale/${language}/LC_MESSAGES/${identifier}.mo")
    _deskloom_add_catalogue("${catalogue}" "${own_catalogue}" "${runtime_catalogue}")
    list(APPEND catalogues "${catalogue}")
  endforeach()
  set(${result} "${catalogues}" PARENT_SCOPE)
endfunction()

# Adds PROGRAM-bundle, which fills the bundle with the catalogues and with PARTS, programs and modules of the runtime.
function(_deskloom_add_bundle program bundle identifier parts own_catalogues)
  set(files "")
  foreach(part IN LISTS parts)
    cmake_path(GET part STEM target)
    add_custom_command(
      OUTPUT "${bundle}/${part}"
      COMMAND "${CMAKE_COMMAND}" -E copy "$<TARGET_FILE:DeskloomSDK::${target}>" "${bundle}/${part}"
      DEPENDS DeskloomSDK::${target}
      VERBATIM)
    list(APPEND files "${bundle}/${part}")
  endforeach()
  _deskloom_add_catalogues(catalogues "${bundle}" "${identifier}" "${own_catalogues}")
  add_custom_target(${program}-bundle DEPENDS ${files} ${catalogues})
  add_dependencies(${program} ${program}-bundle)
endfunction()
