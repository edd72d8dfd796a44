# SPDX-License-Identifier: GPL-3.0-or-later
# read.pl TABLE FOLDER: writes the memo of each record to a file of the record's name in the folder.
use strict;
use XBase;

my ($table, $folder) = @ARGV;
my $opened = XBase->new($table) or die XBase->errstr;
for my $record (0 .. $opened->last_record) {
    my ($deleted, $path, $text) = $opened->get_record($record);
    open my $out, ">:raw", "$folder/$path" or die $path;
    print $out $text // "";
}
