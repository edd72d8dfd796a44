# SPDX-License-Identifier: GPL-3.0-or-later
# korvane_windows_program(<program> <what it does> [<icon file>]): the version, the manifest and the icon inside it.
function(korvane_windows_program program description)
  if(NOT WIN32)
    return()
  endif()
  set(KORVANE_PROGRAM ${program})
  set(KORVANE_DESCRIPTION ${description})
  set(KORVANE_ICON_LINE "")
  if(ARGC GREATER 2)
    set(KORVANE_ICON_LINE "1 ICON \"${ARGV2}\"")
  endif()
  set(resources ${CMAKE_CURRENT_BINARY_DIR}/${program}.rc)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/program.rc.in ${resources} @ONLY)
  set_source_files_properties(${resources} PROPERTIES
    OBJECT_DEPENDS "${PROJECT_SOURCE_DIR}/packaging/windows/program.manifest;${ARGN}")
  target_sources(${program} PRIVATE ${resources})
endfunction()

# korvane_windows_icon(<variable for the file> <svg file>)
function(korvane_windows_icon variable drawing)
  find_program(ICOTOOL icotool REQUIRED)
  set(icon ${CMAKE_CURRENT_BINARY_DIR}/korvane.ico)
  korvane_draw(pictures ${drawing} ${CMAKE_CURRENT_BINARY_DIR}/icon black 16 20 24 32 40 48 64 256)
  list(POP_BACK pictures largest)  # stays a PNG file, far smaller
  add_custom_command(
    OUTPUT ${icon}
    COMMAND ${ICOTOOL} --create --output=${icon} ${pictures} --raw=${largest}
    DEPENDS ${pictures} ${largest}
    VERBATIM)
  set(${variable} ${icon} PARENT_SCOPE)
endfunction()
