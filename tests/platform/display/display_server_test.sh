# The display modes of a real server are listed, changed, and put back unless somebody keeps them.
#     display_server_test.sh KESTRUNECTL PROGRAM-FOLDER
set -eu
work=$(mktemp -d)
server=
trap '[ -z "$server" ] || kill "$server"; rm -rf "$work"' EXIT
unset WAYLAND_DISPLAY

machine=host
kestrunectl() {
  "$program" --store "$work/$machine.store" --machine "$machine" --program-folder "$folder" "$@" 2>&1
}
expect() {
  [ "$2" = "$3" ] || {
    printf '%s:\n%s\nexpected:\n%s\n' "$1" "$2" "$3"
    exit 1
  }
}
size() { xrandr | sed -n 's/.*current \([0-9]*\) x \([0-9]*\),.*/\1x\2/p'; }
apply() {
  kestrunectl --trace "$1" do page:control-panel.resolution \
    "control-panel.resolution.select-resolution=$2" control-panel.resolution.apply
}

program=$1
folder=$2
expect 'modes without a display' "$(DISPLAY= kestrunectl modes)" ''
expect 'modes of a display that is not there' "$(DISPLAY=:4711 kestrunectl modes)" ''

# It says the number of its display when it is ready.
mkfifo "$work/number"
Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp -noreset 3>"$work/number" 2>/dev/null &
server=$!
DISPLAY=:$(head -n 1 "$work/number")
export DISPLAY
xrandr --newmode 800x600 40.0 800 840 968 1056 600 601 605 628
xrandr --addmode screen 800x600
xrandr --newmode 640x480 25.18 640 656 752 800 480 490 492 525
xrandr --addmode screen 640x480

expect 'the list' "$(kestrunectl modes)" '1024x768x32 0Hz
800x600x32 60Hz
640x480x32 60Hz'
expect 'under a Wayland compositor' "$(WAYLAND_DISPLAY=wayland-0 kestrunectl modes)" ''
expect 'a described machine' "$(machine=winxp-geforce6800 && kestrunectl modes | wc -l)" 35

tab=$(printf '\t')
expect 'a change that is kept' "$(apply --answer=ok '800x600x32 60Hz')" "mode${tab}800x600x32${tab}saved
message: Keep this display mode?"
expect 'its size' "$(size)" 800x600
expect 'a change that is not kept' "$(apply --answer=cancel '640x480x32 60Hz')" \
  "mode${tab}640x480x32${tab}saved
message: Keep this display mode?
mode${tab}800x600x32${tab}saved"
expect 'its size' "$(size)" 800x600
expect 'a dry run' "$(apply --dry-run '640x480x32 60Hz')" "mode${tab}640x480x32${tab}saved"
expect 'its size' "$(size)" 800x600
expect 'the quick choice' "$(kestrunectl --trace set control-panel.resolution.select-from-list=1024x768)" \
  "mode${tab}1024x768${tab}unsaved"
expect 'its size' "$(size)" 1024x768
expect 'a size that there is not' "$(kestrunectl --trace set control-panel.resolution.select-from-list=1600x1200)" ''
expect 'its size' "$(size)" 1024x768
