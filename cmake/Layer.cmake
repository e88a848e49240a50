# The static libraries are installed for other projects, which may link without link-time optimisation. So they contain machine
# code too.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  set(CMAKE_CXX_COMPILE_OPTIONS_IPO -flto=auto -ffat-lto-objects)
endif()

# deskloom_layer(NAME [FOR_SPEED] [FOLDERS folder...] [USES layer...] [LIBRARIES target...])
#
# Makes the static library NAME from all sources in the current folder and in the subfolders after FOLDERS. The layer may include
# the project's layers after USES and the outside libraries after LIBRARIES; both are part of its interface. An installed layer's
# headers include no library found by pkg-config, so there these are only linked, as PkgConfig::Deskloom_NAME. Includes are written
# from the top of the tree ("Platform/Text/URL.h"), and script/check-layers checks each include against these lists.
# With FOR_SPEED a release is optimised for speed instead of size here: for layers whose code runs for each of many items.
function(deskloom_layer name)
  cmake_parse_arguments(LAYER "FOR_SPEED" "" "FOLDERS;USES;LIBRARIES" ${ARGN})
  set(patterns *.cpp *.h)
  foreach(folder IN LISTS LAYER_FOLDERS)
    list(APPEND patterns ${folder}/*.cpp ${folder}/*.h)
  endforeach()
  file(GLOB sources CONFIGURE_DEPENDS ${patterns})
  list(FILTER sources EXCLUDE REGEX "/(main|module)\\.cpp$")
  add_library(${name} STATIC ${sources})
  target_compile_features(${name} PUBLIC cxx_std_23)
  set_target_properties(${name} PROPERTIES CXX_EXTENSIONS OFF)
  target_include_directories(${name} PUBLIC "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>" $<INSTALL_INTERFACE:include/deskloom>)
  list(TRANSFORM LAYER_LIBRARIES
       REPLACE "^PkgConfig::(.*)" "$<BUILD_INTERFACE:PkgConfig::\\1>;$<INSTALL_INTERFACE:$<LINK_ONLY:PkgConfig::Deskloom_\\1>>")
  target_link_libraries(
    ${name}
    PUBLIC ${LAYER_USES} ${LAYER_LIBRARIES}
    PRIVATE $<BUILD_INTERFACE:DeskloomWarnings>)
  if(LAYER_FOR_SPEED)
    target_compile_options(${name} PRIVATE "$<$<CONFIG:Release>:-O2>")
  endif()
endfunction()

# deskloom_program(NAME [USES layer...] [LIBRARIES target...])
#
# Makes the program NAME from the current folder's main.cpp.
function(deskloom_program name)
  cmake_parse_arguments(PROGRAM "" "" "USES;LIBRARIES" ${ARGN})
  add_executable(${name} main.cpp)
  target_compile_features(${name} PRIVATE cxx_std_23)
  set_target_properties(${name} PROPERTIES CXX_EXTENSIONS OFF)
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}")
  target_compile_definitions(${name} PRIVATE DESKLOOM_VERSION="${PROJECT_VERSION}")
  target_link_libraries(${name} PRIVATE ${PROGRAM_USES} ${PROGRAM_LIBRARIES} DeskloomWarnings)
  if(CMAKE_BUILD_TYPE STREQUAL "Release")
    # A launch takes a few milliseconds. Loading the C++ library and binding its symbols would take one of them.
    target_link_options(${name} PRIVATE -static-libstdc++ -static-libgcc)
  endif()
endfunction()

# deskloom_module(NAME [USES layer...] [LIBRARIES target...])
#
# Makes the module NAME.so, which is loaded at run time, from the current folder's module.cpp. Its symbols are hidden unless they
# are marked as visible.
function(deskloom_module name)
  cmake_parse_arguments(MODULE "" "" "USES;LIBRARIES" ${ARGN})
  add_library(${name} MODULE module.cpp)
  target_compile_features(${name} PRIVATE cxx_std_23)
  set_target_properties(${name} PROPERTIES CXX_EXTENSIONS OFF PREFIX "" CXX_VISIBILITY_PRESET hidden)
  target_link_libraries(${name} PRIVATE ${MODULE_USES} ${MODULE_LIBRARIES} DeskloomWarnings)
  target_link_options(${name} PRIVATE -Wl,--exclude-libs,ALL)
  if(CMAKE_BUILD_TYPE STREQUAL "Release")
    target_link_options(${name} PRIVATE -static-libstdc++ -static-libgcc)
  endif()
endfunction()
