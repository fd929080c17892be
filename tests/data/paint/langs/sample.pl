#!/usr/bin/perl
# Counts the words of its input; it doesn't fold case.
use strict;
use warnings;

my %count;
my $title = "Word count";

while (my $line = <STDIN>) {
    chomp $line;
    # Empty lines aren't counted.
    next if $line eq '';
    foreach my $word (split /\s+/, $line) {
        $count{$word}++;
    }
}

print "$title\n";
foreach my $word (sort keys %count) {
    printf "%-20s %d\n", $word, $count{$word};
}

=pod

The script's output is sorted by word. Don't pipe binary files in.

=cut
