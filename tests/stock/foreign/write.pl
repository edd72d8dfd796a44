# SPDX-License-Identifier: GPL-3.0-or-later
# write.pl TABLE VERSION FILE...: makes a table (".dbf") with one record for each file: its name, its contents.
use strict;
use XBase;

my ($table, $version, @files) = @ARGV;
my $made = XBase->create(
    name => $table, memofile => $table =~ s/dbf$/dbt/r, version => hex $version,
    field_names => ["PATH", "TEXT"], field_types => ["C", "M"],
    field_lengths => [254, 10], field_decimals => [undef, undef]) or die XBase->errstr;
my $record = 0;
for my $file (@files) {
    open my $in, "<:raw", $file or die $file;
    local $/;
    $made->set_record($record++, $file =~ s/.*\///r, scalar <$in> // "") or die XBase->errstr;
}
