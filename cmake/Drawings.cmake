# SPDX-License-Identifier: GPL-3.0-or-later
# The drawings of resources/ become resources of a module as they are where Qt Svg is, and elsewhere as pictures in
# several sizes, which a tool of the building system draws: each once with black lines and once with white ones, so that
# the program can give them any colour. src/controls/Drawing.h draws both.

set(KORVANE_DRAWING_SIZES 16 20 24 32 40 48 64 96 128 256)
set(KORVANE_DRAWER "" CACHE FILEPATH "korvane-draw of the building system, where the program itself has no Qt Svg")
if(KORVANE_GUI AND WIN32 AND NOT KORVANE_DRAWER)
  message(FATAL_ERROR "KORVANE_DRAWER must name korvane-draw of this system, see packaging/draw")
endif()

# korvane_draw(<variable for the pictures> <svg file> <folder> <colour of its lines> <sizes>...)
function(korvane_draw variable drawing folder colour)
  list(TRANSFORM ARGN PREPEND ${folder}/ OUTPUT_VARIABLE pictures)
  list(TRANSFORM pictures APPEND .png)
  file(MAKE_DIRECTORY ${folder})
  set(tool ${KORVANE_DRAWER})
  if(NOT tool)
    set(tool korvane-draw)
  endif()
  add_custom_command(
    OUTPUT ${pictures}
    COMMAND ${tool} ${drawing} ${folder} ${colour} ${ARGN}
    DEPENDS ${tool} ${drawing}
    COMMENT "Drawing ${drawing}"
    VERBATIM)
  set(${variable} ${pictures} PARENT_SCOPE)
endfunction()

# korvane_drawings(<variable for the sources> <qrc file of drawings>)
function(korvane_drawings variable list)
  if(NOT WIN32)
    set(${variable} ${list} PARENT_SCOPE)
    return()
  endif()
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list})
  get_filename_component(name ${list} NAME_WE)
  get_filename_component(from ${list} DIRECTORY)
  file(STRINGS ${list} drawings REGEX "<file>")
  set(entries "")
  foreach(line IN LISTS drawings)
    string(REGEX REPLACE ".*<file>(.*)\\.svg</file>.*" "\\1" drawing ${line})
    foreach(colour black white)
      set(folder ${CMAKE_CURRENT_BINARY_DIR}/drawings/${drawing}/${colour})
      korvane_draw(pictures ${from}/${drawing}.svg ${folder} ${colour} ${KORVANE_DRAWING_SIZES})
      foreach(size IN LISTS KORVANE_DRAWING_SIZES)
        string(APPEND entries "<file alias=\"${drawing}/${colour}/${size}.png\">${folder}/${size}.png</file>\n")
      endforeach()
    endforeach()
  endforeach()
  set(pictures_list ${CMAKE_CURRENT_BINARY_DIR}/${name}.qrc)
  file(CONFIGURE OUTPUT ${pictures_list} CONTENT "<RCC><qresource prefix=\"/\">\n${entries}</qresource></RCC>\n")
  qt6_add_resources(sources ${pictures_list})
  set(${variable} ${sources} PARENT_SCOPE)
endfunction()
