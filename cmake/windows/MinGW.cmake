# SPDX-License-Identifier: GPL-3.0-or-later
# Builds for 64-bit Windows with Debian's GCC for MinGW; the programs need no libraries but Windows' own.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

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
  set(CMAKE_CXX_FLAGS_INIT "-isystem ${korvane_plain}/include")
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
