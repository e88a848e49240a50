# Every warning of GCC is an error: what is switched on here holds for all of the project's own code. Clang, which makes the
# fuzzers, has warnings of its own, and some are about GCC's library.
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
            "$<$<CXX_COMPILER_ID:GNU>:-Werror>"
            "$<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor;-Woverloaded-virtual;-Wold-style-cast;-Wextra-semi;-Wsuggest-override>")

# GCC 12 sees overlapping copies where optimised code prepends to a string, and there are none; GCC 13 does not.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(DeskloomWarnings INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:-Wno-restrict>")
endif()
