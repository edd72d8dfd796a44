# SPDX-License-Identifier: GPL-3.0-or-later
# Builds for 64-bit Windows with Debian's GCC for MinGW; the programs need no libraries but Windows' own.
include(${CMAKE_CURRENT_LIST_DIR}/Compiler.cmake)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp")

# Only the windows need these.
set(KORVANE_WINDOWS_PREFIX "" CACHE PATH "Where Qt and QScintilla for Windows are")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KORVANE_WINDOWS_PREFIX)
if(KORVANE_WINDOWS_PREFIX)
  list(APPEND CMAKE_FIND_ROOT_PATH ${KORVANE_WINDOWS_PREFIX})
  list(APPEND CMAKE_PREFIX_PATH ${KORVANE_WINDOWS_PREFIX})
  set(QT_HOST_PATH /usr CACHE PATH "")
  set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake CACHE PATH "")
endif()

# What needs no building for a system of its own is this machine's. Its headers are copied: /usr/include itself
# would bring those of another system.
get_property(korvane_trying GLOBAL PROPERTY IN_TRY_COMPILE)
if(NOT korvane_trying)
  set(korvane_plain ${CMAKE_BINARY_DIR}/plain-libraries)
  foreach(korvane_folder include/CLI share/cmake/CLI11 include/dtl)
    if(EXISTS /usr/${korvane_folder})
      get_filename_component(korvane_parent ${korvane_folder} DIRECTORY)
      file(COPY /usr/${korvane_folder} DESTINATION ${korvane_plain}/${korvane_parent})
    endif()
  endforeach()
  # No path of this machine gets into the programs.
  set(CMAKE_CXX_FLAGS_INIT
    "-isystem ${korvane_plain}/include -ffile-prefix-map=${CMAKE_SOURCE_DIR}=. -ffile-prefix-map=${CMAKE_BINARY_DIR}=.")
  list(APPEND CMAKE_FIND_ROOT_PATH ${korvane_plain})
  list(APPEND CMAKE_PREFIX_PATH ${korvane_plain})
  list(APPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR})  # finds GoogleTest
endif()

# Tests, and the tools that the build runs, start under Wine, with a folder of its own and without .NET and a browser.
find_program(KORVANE_WINE wine)
if(KORVANE_WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_COMMAND} -E env WINEPREFIX=${CMAKE_BINARY_DIR}/wine WINEDEBUG=-all
    WINEDLLOVERRIDES=mscoree,mshtml= ${KORVANE_WINE})
endif()
