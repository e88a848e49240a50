# Protection against memory errors: the options of Debian's hardening=+all, checks of stack allocations that would skip the guard
# page, and the C++ library's assertions. It applies to all targets of the including folder and its subfolders that are added
# after it.
include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)
include(CheckPIESupported)

# Programs are loaded at random addresses.
check_pie_supported(LANGUAGES C CXX)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# Symbols are hidden from other modules unless they are marked as visible.
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

add_compile_definitions(_GLIBCXX_ASSERTIONS)
add_compile_options(-fstack-protector-strong)
check_cxx_compiler_flag(-fstack-clash-protection DESKLOOM_HAS_STACK_CLASH_PROTECTION)
if(DESKLOOM_HAS_STACK_CLASH_PROTECTION)
  add_compile_options(-fstack-clash-protection)
endif()

# The checked functions of the C library need optimisation, and the sanitizers don't know them.
if(NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
  add_compile_options("$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=3>")
endif()

# All symbols are bound at the start. After that the tables of their addresses are read-only.
add_link_options(-Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)

# A program that can be loaded anywhere has thousands of addresses to adjust at each start. Packed, their list takes a fiftieth
# of the space.
check_linker_flag(CXX -Wl,-z,pack-relative-relocs DESKLOOM_PACKS_RELOCATIONS)
if(DESKLOOM_PACKS_RELOCATIONS)
  add_link_options(-Wl,-z,pack-relative-relocs)
endif()
