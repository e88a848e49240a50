# The warnings for the project's own code. They are errors only if CMAKE_COMPILE_WARNING_AS_ERROR says so, as the presets for
# developers do: a newer compiler that warns about more does not keep a user from building.
add_library(DeskloomWarnings INTERFACE)
target_compile_options(
  DeskloomWarnings
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wconversion
            -Wshadow
            -Wcast-align
            -Wcast-qual
            -Wformat=2
            -Wundef
            "$<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor;-Woverloaded-virtual;-Wold-style-cast;-Wextra-semi;-Wsuggest-override>")

# GCC 12 warns about overlapping copies where optimised code prepends to a string, and there are none; GCC 13 does not.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(DeskloomWarnings INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:-Wno-restrict>")
endif()
