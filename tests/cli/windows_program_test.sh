#!/usr/bin/env bash
# windows_program_test.sh PROGRAM DATA FOLDER: runs kestrunectl.exe under Wine as a person would, on
# a computer without a card, and prints a line "ok: ..." or "failed: ..." for each check. What
# it needs is laid into FOLDER, a new one. The caller sets Wine's variables and a UTF-8 locale.
set -u
exe=$1 data=$2 folder=$3
tweak='HKLM\SOFTWARE\NVIDIA Corporation\Global\NVTweak'
key='HKCU\Software\KestruneTests\Program'
page=control-panel.settings.enable-additional-info-page
mkdir -p "$folder" && cd "$folder" || exit 1

# What an earlier run left.
for left in 'HKCU\Software\Kestrune' 'HKCU\Software\KestruneTests' "$tweak"; do
  "$WINELOADER" reg delete "$left" /f </dev/null >/dev/null 2>&1
done

# run WORDS: leaves status, out and err. A run that hangs ends with status 124.
run() {
  timeout -k 5 60 "$WINELOADER" "$program" "$@" >out 2>err </dev/null
  status=$?
}

check() {
  local name=$1
  shift
  if "$@"; then
    echo "ok: $name"
  else
    echo "failed: $name (status $status, $(head -c 300 err | tr '\r\n' '  '))"
  fi
}

is_status() { [ "$status" -eq "$1" ]; }
# done_with TEXT: the run succeeded and printed this.
done_with() { is_status 0 && [ "$(cat out)" = "$1" ]; }
has() { is_status 0 && grep -qF -- "$2" "$1"; }
# One sentence for a person, and nothing on standard output.
is_refused() { is_status 2 && [ ! -s out ] && [ "$(wc -l <err)" -eq 1 ] && grep -qF -- "$1" err; }
# exported KEY LINE: another program's export of the same registry has that line.
exported() {
  "$WINELOADER" regedit /E 'C:\exported.reg' "$1" </dev/null >/dev/null 2>&1
  iconv -f UTF-16 -t UTF-8 "$WINEPREFIX/drive_c/exported.reg" 2>/dev/null | tr -d '\r' |
    grep -qxF -- "$2"
}
all() {
  local part
  for part in "$@"; do
    eval "$part" || return 1
  done
}

mkdir -p program
cp -r "$data/DATA" "$exe" program/
program=$folder/program/$(basename "$exe")

run state
check "the state is that of a computer without a card" has out DeviceIdNumber=0
run pages
check "the pages are listed" has out info.basic
run --json pages
check "a document is printed" has out '"id": "info.basic"'
run languages
check "a pipe takes UTF-8 without carriage returns" \
  all 'has out Čeština' 'has out Русский' '! grep -q $'"'\r'"' out'

run registry write "$key" 'nä' REG_SZ 'wért and more'
check "a value is stored" is_status 0
run registry read "$key" 'NÄ'
check "it is read in any case" done_with 'REG_SZ wért and more'
check "another program sees it" exported 'HKEY_CURRENT_USER\Software\KestruneTests\Program' \
  '"nä"="wért and more"'
run registry list "$key"
check "it is listed" done_with $'nä\tREG_SZ wért and more'
run registry export "$key" 'C:\kept.reg'
run registry delete "$key" 'nä'
run registry read "$key" 'nä'
check "it is deleted" is_status 1
run registry import 'C:\kept.reg'
run registry read "$key" 'nä'
check "an export is imported" done_with 'REG_SZ wért and more'

run --dry-run --trace set $page=on
check "a dry run shows its changes" has err "write"
run registry read "$tweak" NvCplEnableAdditionalInfoPage
check "it leaves none" is_status 1
run --trace set $page=on
check "a switch of the control panel is traced" \
  has err "write"$'\t'"$tweak"$'\t'"NvCplEnableAdditionalInfoPage"$'\t'"REG_DWORD 1"
check "another program sees the switch" \
  exported 'HKEY_LOCAL_MACHINE\SOFTWARE\NVIDIA Corporation\Global\NVTweak' \
  '"NvCplEnableAdditionalInfoPage"=dword:00000001'
run get $page
check "the next run sees it" done_with on
run set main.language=Deutsch
check "an option of the program's own is stored" \
  exported 'HKEY_CURRENT_USER\Software\Kestrune' '"Language"="de"'

run --store x state
check "there is no store to choose" is_refused '--store'
run --machine x state
check "there is no machine to choose" is_refused '--machine'
run machine
check "there are no descriptions" is_refused 'machine'
run no-such-command
check "a wrong command is told" is_refused 'no-such-command'
run get no.such.control
check "a wrong control is told" is_refused 'no.such.control'

timeout -k 5 60 "$WINELOADER" "$program" pages >&- 2>err </dev/null
status=$?
check "a closed standard output ends no run by force" [ $status -le 3 ]

# What is written goes beside the program; NT takes any letter, 9x those of its code page.
letter=é
"$WINELOADER" reg query 'HKCU\Software\Wine' /v Version 2>/dev/null | grep -q win98 || letter='ā Ω'
mkdir "a folder $letter"
cp -r program/. "a folder $letter/"
program="$folder/a folder $letter/$(basename "$exe")"
run profile save --clean Mine
check "a profile stands in a folder with blanks and any letter" \
  all 'is_status 0' '[ -s "a folder $letter/DATA/Presets/Mine.ksp" ]'
run profile list
check "its name is listed" done_with Mine
