# SPDX-License-Identifier: GPL-3.0-or-later
# A module is one folder of src/ built as one library, which names the modules that it includes. The compiler would
# let it include any file of src/: scripts/check-includes is what guards the layers.

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

add_library(korvane_build_options INTERFACE)
if(NOT MSVC)
  target_compile_options(korvane_build_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
endif()
# GCC 12, optimising, warns of overlaps in "text" + std::string that are not there (GCC bug 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13 AND
   (CMAKE_BUILD_TYPE STREQUAL "Release" OR KORVANE_SANITIZE))
  target_compile_options(korvane_build_options INTERFACE -Wno-restrict)
  if(WIN32)  # the same bug under another name
    target_compile_options(korvane_build_options INTERFACE -Wno-stringop-overflow)
  endif()
endif()
if(KORVANE_SANITIZE)
  target_compile_options(korvane_build_options INTERFACE
    -fsanitize=${KORVANE_SANITIZE} -fno-sanitize-recover=all)
  target_link_options(korvane_build_options INTERFACE -fsanitize=${KORVANE_SANITIZE})
endif()
if(KORVANE_FUZZ)
  target_compile_options(korvane_build_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# korvane_module(<name> SOURCES <files>... MODULES <modules below>... LIBS <outside libraries>...)
# A module that uses Qt gets its meta-object code made.
function(korvane_module name)
  cmake_parse_arguments(MODULE "" "" "SOURCES;MODULES;LIBS" ${ARGN})
  set(target korvane_${name})
  add_library(${target} STATIC ${MODULE_SOURCES})
  target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  list(TRANSFORM MODULE_MODULES PREPEND korvane_)
  target_link_libraries(${target} PUBLIC ${MODULE_MODULES} ${MODULE_LIBS} PRIVATE korvane_build_options)
  if(MODULE_LIBS MATCHES "Qt6")
    set_target_properties(${target} PROPERTIES AUTOMOC ON AUTORCC ON)
    target_compile_definitions(${target} PUBLIC QT_NO_CAST_TO_ASCII QT_NO_FOREACH)
  endif()
endfunction()
