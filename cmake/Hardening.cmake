# How programs defend themselves against memory errors: what Debian's hardening=+all asks for, checks of stack allocations that
# skip the guard page, and the C++ library's assertions. It holds for whatever is compiled below the folder that includes it.
# Included before any target is made.
include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)
include(CheckPIESupported)

# Programs are loaded at random addresses.
check_pie_supported(LANGUAGES C CXX)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# Nothing is visible to other modules unless it says so.
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

add_compile_definitions(_GLIBCXX_ASSERTIONS)
add_compile_options(-fstack-protector-strong)
check_cxx_compiler_flag(-fstack-clash-protection DESKLOOM_HAS_STACK_CLASH_PROTECTION)
if(DESKLOOM_HAS_STACK_CLASH_PROTECTION)
  add_compile_options(-fstack-clash-protection)
endif()

# The checked functions of the C library need the optimiser, and the sanitizers don't know them.
if(NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
  add_compile_options("$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=3>")
endif()

# All symbols are bound at the start, and then the tables of their addresses are read-only.
add_link_options(-Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)

# What can be loaded anywhere has thousands of addresses to adjust at each start. Packed, their list takes a fiftieth of the space.
check_linker_flag(CXX -Wl,-z,pack-relative-relocs DESKLOOM_PACKS_RELOCATIONS)
if(DESKLOOM_PACKS_RELOCATIONS)
  add_link_options(-Wl,-z,pack-relative-relocs)
endif()
