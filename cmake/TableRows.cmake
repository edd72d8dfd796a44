# SPDX-License-Identifier: GPL-3.0-or-later
# cmake -DTABLE=<file.tsv> -DROWS=<file.inc> -P TableRows.cmake
# Turns a table (one row a line, fields between tabs, the first row names them) into C++ initialisers of strings.
file(READ "${TABLE}" text)
if(text MATCHES "[\"\\\\]")
  message(FATAL_ERROR "${TABLE}: quotation marks and backslashes have no place in a table")
endif()
string(REGEX REPLACE "\r" "" text "${text}")
string(FIND "${text}" "\n" head)
math(EXPR head "${head} + 1")
string(SUBSTRING "${text}" ${head} -1 text)
string(REGEX REPLACE "\n+$" "" text "${text}")
string(REPLACE "\t" "\", \"" text "${text}")
string(REPLACE "\n" "\"},\n{\"" text "${text}")
file(WRITE "${ROWS}" "{\"${text}\"},\n")
