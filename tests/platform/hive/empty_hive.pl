#!/usr/bin/perl
# Prints a hive file ("regf") whose only key is its root, without values.
use strict;
use warnings;

use constant {NONE => 0xFFFFFFFF, BIN_SIZE => 0x1000, NK_AT => 0x20, SK_AT => 0x78, FREE_AT => 0xA8};

# Cells in use have a negative size.
sub cell { my ($size, $bytes) = @_; return pack("l< a" . ($size - 4), -$size, $bytes) }

my $root = pack("a2 S< x8 x4 L< L< L< L< L< L< L< L< L< L<5 S< S< a*",
  "nk", 0x2C,          # the root of a hive, whose name has one byte a letter
  NONE,                # parent
  0, 0, NONE, NONE,    # keys below it, and their lists
  0, NONE,             # values, and their list
  SK_AT, NONE,         # security, class
  0, 0, 0, 0, 0,       # longest names and data
  4, 0, "root");
# One security descriptor, without an owner, in a list of its own.
my $security = pack("a2 x2 L< L< L< L< a20", "sk", SK_AT, SK_AT, 1, 20, pack("C C S<", 1, 0, 0x8000));
my $bin = pack("a4 L< L< x8 x8 x4", "hbin", 0, BIN_SIZE)
  . cell(SK_AT - NK_AT, $root)
  . cell(FREE_AT - SK_AT, $security)
  . pack("l<", BIN_SIZE - FREE_AT);

my $head = pack("a4 L< L< x8 L< L< L< L< L< L< L<",
  "regf", 1, 1,        # written once, and to the end
  1, 3, 0, 1,          # version, type, form
  NK_AT, BIN_SIZE, 1);
$head = pack("a508", $head);
my $sum = 0;
$sum ^= $_ for unpack("L<*", $head);

binmode(STDOUT);
print pack("a4096", $head . pack("L<", $sum)), pack("a" . BIN_SIZE, $bin);
