# SPDX-License-Identifier: GPL-3.0-or-later
# read.py TABLE FOLDER: writes the memo of each record to a file of the record's name in the folder.
import sys

import dbfread

for record in dbfread.DBF(sys.argv[1], encoding="cp1252"):
    with open(sys.argv[2] + "/" + record["PATH"], "w", encoding="cp1252", newline="") as out:
        out.write(record["TEXT"] or "")
