# SPDX-License-Identifier: GPL-3.0-or-later
# write.py TABLE FILE...: makes a type III table with one record for each file (its name, its contents), and a
# deleted record before each.
import sys

import dbf

table = dbf.Table(sys.argv[1], "path C(254); text M", codepage="cp1252", dbf_type="db3")
table.open(mode=dbf.READ_WRITE)
for file in sys.argv[2:]:
    table.append(("deleted", "deleted"))
    dbf.delete(table[-1])
    with open(file, encoding="cp1252", newline="") as contents:
        table.append((file.rsplit("/", 1)[1], contents.read()))
table.close()
