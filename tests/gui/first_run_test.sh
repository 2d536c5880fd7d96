#!/usr/bin/env bash
# The README's first run, as a new user meets it, on a virtual X display with a window manager
# (run under xvfb-run): the shaped window, hints, rolling up, mail lists, the main window dragged to the top-left, the sample folder,
# selecting and adding, info mode, the handle and id tags boxes and the contact box, a run,
# Alt+F4, and a second start. Checked by what the program
# shows (its control dump, QC_CONTROL_DUMP) and by screenshots. Screenshots stay in $OUT.
set -euo pipefail
BIN=${1:?path to quillcast}
SAMPLES=${2:?path to the sample folder}
OUT=${3:-$(mktemp -d)}
mkdir -p "$OUT"
WORK=$(mktemp -d)
export HOME=$WORK/home XDG_CONFIG_HOME=$WORK/config XDG_DATA_HOME=$WORK/data
export XDG_RUNTIME_DIR=$WORK/run TMPDIR=$WORK QT_QPA_PLATFORM=xcb
export QC_CONTROL_DUMP=$WORK/controls.txt
mkdir -p "$HOME" "$XDG_RUNTIME_DIR" && chmod 700 "$XDG_RUNTIME_DIR"
DUMP=$QC_CONTROL_DUMP
PID= WM=
cleanup() {
  [ -n "$PID" ] && kill "$PID" 2>/dev/null
  [ -n "$WM" ] && kill "$WM" 2>/dev/null
  rm -rf "$WORK"
}
trap cleanup EXIT
fail() {
  echo "FAIL: $*" >&2
  [ -f "$DUMP" ] && cp "$DUMP" "$OUT/controls-at-failure.txt"
  import -window root "$OUT/at-failure.png" 2>/dev/null || true
  exit 1
}
step() { echo "-- $*"; }

# Waits for a condition (a command run anew at each poll), polling; the budget in seconds fails
# the test instead of hanging it.
wait_until() {
  local what=$1 budget=$2
  shift 2
  local end=$((SECONDS + budget))
  until "$@"; do
    [ $SECONDS -lt $end ] || fail "timed out waiting for: $what"
    sleep 0.1
  done
}
dump_has() { [ -f "$DUMP" ] && grep -qF -- "$1" "$DUMP"; }
dump_lacks() { [ -f "$DUMP" ] && ! grep -qF -- "$1" "$DUMP"; }
# "x y w h" of a named control shown now.
geometry_of() { awk -v n="$1" '$1 == n && $7 != "hidden" { print $3, $4, $5, $6; exit }' "$DUMP"; }
row_of() { awk -v n="$1" '$1 == n { print $2, $3, $4, $5; exit }' "$DUMP"; }
click_at() {
  xdotool mousemove "$1" "$2"
  sleep 0.05
  xdotool click 1
}
click_control() {
  local g
  g=$(geometry_of "$1")
  [ -n "$g" ] || fail "no control $1 on screen"
  set -- $g
  click_at $(($1 + $3 / 2)) $(($2 + $4 / 2))
}
window_line() { grep -E "^window $1 " "$DUMP" | grep -v ' hidden$' | head -1 || true; }
window_shown() { [ -n "$(window_line "$1")" ]; }
window_gone() { [ -z "$(window_line "$1")" ]; }
window_of_title() { xdotool search --onlyvisible --name "$1" 2>/dev/null | head -1 || true; }
title_shown() { [ -n "$(window_of_title "^$1\$")" ]; }
title_gone() { [ -z "$(window_of_title "^$1\$")" ]; }
main_at_corner() { [ "$(window_line frmMain | sed 's/.*" //' | cut -d' ' -f1-2)" = "0 0" ]; }
ended() { ! kill -0 "$PID" 2>/dev/null; }
shot() { import -window root "$OUT/$1.png"; }
pixel() {
  convert "$OUT/$1.png" -format '%[fx:int(255*r)],%[fx:int(255*g)],%[fx:int(255*b)]' \
    -crop "1x1+$2+$3" info:
}
dark_pixels() {  # shot, geometry WxH+X+Y: pixels darker than mid grey
  convert "$OUT/$1.png" -crop "$2" +repage -colorspace Gray -threshold 50% -negate \
    -format '%[fx:int(mean*w*h+0.5)]' info:
}
# Stacking order of the window manager, bottom to top, as decimal ids.
stacking() {
  xprop -root _NET_CLIENT_LIST_STACKING | sed 's/.*# //; s/,//g' |
    tr ' ' '\n' | while read -r id; do [ -n "$id" ] && printf '%d\n' "$id"; done
}
on_top() { [ "$(stacking | tail -1)" = "$1" ]; }
# A dialog of the given title: on top of every window and wholly on the 1024x768 screen.
check_in_front() {
  local title=$1 id line
  wait_until "the '$title' dialog" 30 title_shown "$title"
  id=$(window_of_title "^$title\$")
  wait_until "'$title' on top of every window" 10 on_top "$id"
  wait_until "'$title' in the control dump" 10 dump_has "\"$title\""
  line=$(grep -F "\"$title\"" "$DUMP" | head -1)
  set -- $(echo "$line" | sed 's/.*" //')
  [ "$1" -ge 0 ] && [ "$2" -ge 0 ] && [ $(($1 + $3)) -le 1024 ] && [ $(($2 + $4)) -le 768 ] ||
    fail "'$title' is not wholly on the screen: $1 $2 $3 $4"
  DIALOG_X=$1 DIALOG_Y=$2 DIALOG_W=$3 DIALOG_H=$4
}

step "window manager"
openbox --sm-disable >"$OUT/openbox.log" 2>&1 &
WM=$!
wm_running() { xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; }
wait_until "openbox" 60 wm_running

start_program() {
  rm -f "$DUMP"
  "$BIN" >>"$OUT/program.log" 2>&1 &
  PID=$!
  wait_until "the main window" 60 dump_has 'window frmMain "quill cast"'
  wait_until "the main window shown" 30 window_shown frmMain
  MAIN=$(xdotool search --onlyvisible --name '^quill cast$' | while read -r w; do
    eval "$(xdotool getwindowgeometry --shell "$w")"
    [ "$WIDTH" = 245 ] && [ "$HEIGHT" = 136 ] && echo "$w"
  done | head -1)
  [ -n "$MAIN" ] || fail "no main window of the skin's size"
}

step "start: the shaped window, a hover hint, the client viewer, roll up and down"
start_program
xdotool mousemove 1000 5
set -- $(window_line frmMain | sed 's/.*" //')
WX=$1 WY=$2
sleep 0.5
shot start
# The skin's top-left corner is cut away (it shows what lies left of the window); the face is
# painted.
[ "$(pixel start $((WX + 1)) $((WY + 1)))" = "$(pixel start $((WX - 3)) $((WY + 1)))" ] ||
  fail "the window is not cut to its outline"
[ "$(pixel start $((WX + 120)) $((WY + 60)))" != "0,0,0" ] || fail "the face is not painted"
# Hovering the stats button puts its hint into the status strip.
xdotool mousemove $((WX + 202)) $((WY + 123)) sleep 0.2 mousemove $((WX + 203)) $((WY + 124))
sleep 0.4
shot hover
changed=$(compare -metric AE -crop "165x14+$((WX + 41))+$((WY + 99))" "$OUT/start.png" \
  "$OUT/hover.png" null: 2>&1 || true)
[ "${changed%%.*}" -gt 20 ] || fail "status strip did not change on hover ($changed pixels)"
title_shown "simulated AOL client" || fail "no client viewer on screen"
# The roll button slides the window up to its own row at the screen's top, and back.
click_at $((WX + 212)) $((WY + 16))
rolled() { set -- $(window_line frmMain | sed 's/.*" //'); [ "$2" -lt 0 ] && [ "$2" -ge -12 ]; }
wait_until "rolled up" 10 rolled
set -- $(window_line frmMain | sed 's/.*" //')
click_at $((WX + 212)) $(($2 + 16))
back() { set -- $(window_line frmMain | sed 's/.*" //'); [ "$2" = "$WY" ]; }
wait_until "rolled down" 10 back
xdotool mousemove 1000 5

step "1. setup > edit mail lists: an address"
click_control picMenu2
sleep 0.3
xdotool key m Return  # three items answer to m: the first is highlighted, Return takes it
wait_until "frmEmailto" 30 window_shown frmEmailto
click_control txtMember
xdotool type --delay 20 'miracle.fan@aol.com'
xdotool key Return
wait_until "the address in the member list" 10 dump_has 'lstMember[0] '
# Closed with Alt+F4 rather than "save && exit": it takes the same road and keeps the address.
xdotool key alt+F4
wait_until "frmEmailto closed" 10 window_gone frmEmailto
grep -q 'miracle.fan@aol.com' "$XDG_DATA_HOME/quillcast/lstMember.sys" ||
  fail "member list not saved"

step "drag the main window to the top-left"
set -- $(window_line frmMain | sed 's/.*" //')
# Bare skin between the round buttons.
xdotool mousemove $(($1 + 45)) $(($2 + 124))
sleep 0.2
xdotool mousedown 1
sleep 0.2
xdotool mousemove 60 40
sleep 0.2
xdotool mousemove 50 30
sleep 0.2
xdotool mouseup 1
wait_until "the main window snapped to 0,0" 10 main_at_corner

step "2. [add folder]: the folder dialog in front"
click_control lblSetfolder
check_in_front "Select Mp3 Folder:"
shot folder-dialog
xdotool type --delay 10 "$SAMPLES"
xdotool key Return
wait_until "four files listed" 30 dump_has 'lstMp3[3] '
for text in '| miracles - ilona' '| first light - ómbrevalè' '| nul padded' \
    '| quiet harbour - the brindles'; do
  dump_has "$text" || fail "lstMp3 does not show '$text'"
done
grep -q $'\xe2\x96\xa1\|\\\\0\|\xef\xbf\xbd' "$DUMP" && fail "box characters in the dump"
shot listed
# The NUL-padded row ends after its text: nothing is drawn across the rest of the row.
set -- $(row_of 'lstMp3[2]')
right="$(($3 / 2 - 8))x$(($4 - 4))+$(($1 + $3 / 2))+$(($2 + 2))"
[ "$(dark_pixels listed "$right")" -lt 3 ] || fail "something drawn after 'nul padded' ($right)"

step "select all and add"
set -- $(row_of 'lstMp3[0]')
click_at $(($1 + 10)) $(($2 + $4 / 2))
set -- $(row_of 'lstMp3[3]')
xdotool keydown shift
click_at $(($1 + 10)) $(($2 + $4 / 2))
xdotool keyup shift
click_control lbl_Add
wait_until "four files selected" 10 dump_has 'lstUp ListBox'
wait_until "four files selected" 10 grep -qE '^lstUp ListBox .* \| 4 entries' "$DUMP"
grep -E '^lblTitle ' "$DUMP" | grep -qF '| title: quiet harbour' || fail "lblTitle"

step "info mode on the NUL-padded file"
click_control picInfo
wait_until "info mode" 10 dump_has '| 1/4'
click_control picDown
wait_until "the second file" 10 dump_has '| 2/4'
# A second click on the same spot at once would end a double click, which steps only once.
set -- $(geometry_of picDown)
click_at $(($1 + $3 - 2)) $(($2 + $4 - 2))
wait_until "the third file" 10 dump_has '| 3/4'
wait_until "its title up to the NUL" 10 dump_has '| title: nul padded'
grep -E '^lblArtist ' "$DUMP" | grep -qE '\| artist: other tagger$' || fail "lblArtist"
grep -E '^txtSubj ' "$DUMP" | grep -qE '\[other tagger$' || fail "txtSubj"
shot info-mode
click_control picSelect

step "other > handle: the input box in front"
click_control picMenu3
sleep 0.3
xdotool key h
check_in_front handle
shot handle-box
# It stands at (15,15) twips, over the main window: what shows there is the box, not the skin.
ref=$(pixel handle-box $((DIALOG_X + DIALOG_W - 6)) $((DIALOG_Y + DIALOG_H / 2)))
over=$(pixel handle-box $((DIALOG_X + 6)) $((DIALOG_Y + DIALOG_H / 2)))
[ "$ref" = "$over" ] || fail "the handle box is covered where it overlaps the main window"
xdotool key ctrl+a
xdotool type --delay 20 'first runner'
xdotool key Return
wait_until "the handle box closed" 10 title_gone handle

step "setup > rename comment tags: line breaks, then cancel"
click_control picMenu2
sleep 0.3
xdotool key t
check_in_front "id tags"
dump_has '| before uploading, rename all mp3 comment tags to...\n\n\n...30 letters max.' ||
  fail "the id tags prompt does not break its lines"
shot id-tags-box
xdotool key Escape
wait_until "the id tags box closed" 10 title_gone "id tags"

step "file > contact: the message box in front"
click_control picMenu1
sleep 0.3
xdotool key c
check_in_front quillcast
xdotool key Return
wait_until "the contact box closed" 10 title_gone quillcast

step "3. the tag button: a run"
click_control picBut1
wait_until "the run to end" 240 grep -qE '^lstUp ListBox .* \| 0 entries' "$DUMP"
wait_until "the totals" 30 dump_has '| 4 ups : 0.12 mb'
shot after-run
# The mails the simulated client queued, as its viewer lists them, are the samples' mails.
awk '$1 == "events" { sub(/^[^|]*\| /, ""); print }' "$DUMP" | sed 's/\\n/\n/g' |
  grep -E '^mail (queued|sent|opened):' >"$OUT/mails.txt" || true
diff -u "$(dirname "$0")/data/sample_run_mails.txt" "$OUT/mails.txt" ||
  fail "the run's mails differ from the samples' mails"

step "Alt+F4 ends the program as exit does"
xdotool windowactivate --sync "$MAIN" 2>/dev/null || true
xdotool key alt+F4
wait_until "the program to end" 30 ended
status=0
wait "$PID" || status=$?
PID=
[ "$status" = 0 ] || fail "exit status $status"
INI=$XDG_CONFIG_HOME/quillcast/quillcast.ini
grep -q '^handle=first runner$' "$INI" || fail "handle not saved"
grep -q '^ups=4$' "$INI" || fail "totals not saved"

step "a second start works"
start_program
dump_has '| 4 ups : 0.12 mb' || fail "totals not restored"
click_control picExit
wait_until "the program to end" 30 ended
PID=
echo "PASS: screenshots in $OUT"
