# SPDX-License-Identifier: GPL-3.0-or-later
# Run with -P: packs the Markdown files in PAGES into the help file OUTPUT, in the order given.
string(ASCII 12 PAGE_MARK)
file(WRITE ${OUTPUT} "Korvane help file, version 1\n")
foreach(PAGE IN LISTS PAGES)
  get_filename_component(NAME ${PAGE} NAME)
  file(READ ${PAGE} TEXT)
  file(APPEND ${OUTPUT} "${PAGE_MARK}${NAME}\n${TEXT}")
endforeach()
