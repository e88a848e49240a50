# deskloom_wayland_protocol(TARGET description...)
#
# Compiles the tables of the interfaces in these descriptions, XML files, into TARGET. Interfaces that they mention must be in
# other descriptions of TARGET.
function(deskloom_wayland_protocol target)
  foreach(description IN LISTS ARGN)
    get_filename_component(name "${description}" NAME_WE)
    get_filename_component(description "${description}" ABSOLUTE)
    set(tables "${CMAKE_CURRENT_BINARY_DIR}/${name}-protocol.c")
    add_custom_command(
      OUTPUT "${tables}"
      COMMAND "${WAYLAND_SCANNER}" private-code "${description}" "${tables}"
      DEPENDS "${description}"
      VERBATIM)
    # Generated, and C: the checks are for what is written here.
    set_source_files_properties("${tables}" PROPERTIES COMPILE_OPTIONS "-w;-Wno-error" SKIP_LINTING ON)
    target_sources(${target} PRIVATE "${tables}")
  endforeach()
endfunction()
