# Every warning is an error: what is switched on here holds for all of the project's own code.
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
            -Werror
            "$<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor;-Woverloaded-virtual;-Wold-style-cast;-Wextra-semi;-Wsuggest-override>")
