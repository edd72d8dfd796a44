# SPDX-License-Identifier: GPL-3.0-or-later
# cmake -DTOOL=<korvane-stock> -DFOLDER=<where to> -DGAME=<game folder> -DSTAMP=<file> -P PackSample.cmake
# Packs the sample's stock database, unless one lies there that this has not packed: the user's own.
set(memos ${FOLDER}/Data.DBT)
if(EXISTS ${memos} AND EXISTS ${STAMP})
  file(READ ${STAMP} packed)
  file(SHA256 ${memos} found)
  if(NOT found STREQUAL packed)
    message(STATUS "${memos} is not the sample's; it stays")
    file(TOUCH ${STAMP})
    return()
  endif()
endif()
execute_process(COMMAND ${TOOL} pack --output ${FOLDER} ${GAME} COMMAND_ERROR_IS_FATAL ANY)
file(SHA256 ${memos} packed)
file(WRITE ${STAMP} ${packed})
