#!/bin/sh
# Usage: hive_text_test.sh KESTRUNECTL DATA
# Imports what hivexregedit exports of a hive with odd names, types and empty keys, and fails unless
# exports have all of it, also after an import of their own. DATA is the program's folder.
set -u
kestrunectl=$1
data=$2
here=$(cd "$(dirname "$0")" && pwd)
prefix='HKEY_CURRENT_USER\Software\Hive'
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
  echo "$1" >&2
  exit 1
}
command -v hivexregedit >/dev/null || fail "hivexregedit is missing: install libwin-hivex-perl"

perl "$here/empty_hive.pl" >"$work/hive" &&
  hivexregedit --merge --prefix "$prefix" "$work/hive" "$here/merged.reg" &&
  hivexregedit --export --prefix "$prefix" "$work/hive" '\' >"$work/hive.reg" 2>"$work/warnings" ||
  fail "the hive can't be made"
printf 'REGEDIT4\n[-%s]\n' "$prefix" >"$work/nothing.reg"

registry() {
  "$kestrunectl" --store "$work/store" --machine winxp-geforce6800 --program-folder "$data" \
    registry "$@"
}
# The second round reads what the first one wrote.
for text in hive.reg own.reg; do
  registry import "$work/nothing.reg" >"$work/counts" || fail "the key can't be deleted"
  registry import "$work/$text" >"$work/counts" || fail "$text can't be imported"
  read -r counted <"$work/counts"
  [ "$counted" = "6 keys, 22 values" ] || fail "$text: $counted were imported"
  registry export "$prefix" >"$work/exported.reg" || fail "the key can't be exported"
  diff -u --strip-trailing-cr "$here/exported.reg" "$work/exported.reg" || fail "$text lost something"
  registry export "$prefix" "$work/own.reg" || fail "the key can't be exported into a file"
done
