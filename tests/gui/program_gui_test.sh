#!/usr/bin/env bash
# Starts the real program on a virtual X display (run under xvfb-run), and checks what a person
# sees: the splash gives way to the shaped main window, hovering a button changes the status
# strip, and a click on the 'file' triangle opens its popup menu. Screenshots stay in $OUT.
set -euo pipefail
BIN=${1:?path to quillcast}
OUT=${2:-$(mktemp -d)}
mkdir -p "$OUT"
WORK=$(mktemp -d)
export XDG_CONFIG_HOME=$WORK/config TMPDIR=$WORK QT_QPA_PLATFORM=xcb
fail() { echo "FAIL: $*" >&2; exit 1; }

"$BIN" >"$OUT/program.log" 2>&1 &
PID=$!
trap 'kill $PID 2>/dev/null || true; rm -rf "$WORK"' EXIT

# The main window: the visible "quill cast" window of the skin's size.
WIN=
for _ in $(seq 1 100); do
  for w in $(xdotool search --onlyvisible --name '^quill cast$' 2>/dev/null || true); do
    eval "$(xdotool getwindowgeometry --shell "$w")"
    if [ "$WIDTH" = 245 ] && [ "$HEIGHT" = 136 ]; then WIN=$w; break 2; fi
  done
  sleep 0.1
done
[ -n "$WIN" ] || fail "main window did not appear"
eval "$(xdotool getwindowgeometry --shell "$WIN")"
WX=$X WY=$Y
sleep 0.5

shot() { import -window root "$OUT/$1.png"; }
pixel() {  # "r,g,b" of a screen pixel of the last shot $1
  convert "$OUT/$1.png" -format '%[fx:int(255*r)],%[fx:int(255*g)],%[fx:int(255*b)]' \
    -crop "1x1+$2+$3" info:
}
region_differs() {  # shot A, shot B, geometry WxH+X+Y: how many pixels differ
  compare -metric AE -crop "$3" "$OUT/$1.png" "$OUT/$2.png" null: 2>&1 || true
}

# Park the pointer away from the window first.
xdotool mousemove 5 5
sleep 0.3
shot start

# Shaped: the skin's top-left corner is cut away and shows the bare (black) root window, while
# the middle of the face is painted.
corner=$(pixel start $((WX + 1)) $((WY + 1)))
middle=$(pixel start $((WX + 120)) $((WY + 60)))
[ "$corner" = "0,0,0" ] || fail "corner is $corner: the window is not cut to its outline"
[ "$middle" != "0,0,0" ] || fail "the face is not painted"
xwininfo -id "$WIN" -shape >"$OUT/shape.txt" || true

# Hover the stats button: its status text replaces the window's own in the status strip.
xdotool mousemove $((WX + 202)) $((WY + 123))
sleep 0.2
xdotool mousemove $((WX + 203)) $((WY + 124))
sleep 0.4
shot hover
strip="165x14+$((WX + 41))+$((WY + 99))"
changed=$(region_differs start hover "$strip")
[ "${changed%%.*}" -gt 20 ] || fail "status strip did not change on hover ($changed pixels)"

# A click on the 'file' triangle opens the file menu under it.
xdotool mousemove $((WX + 14)) $((WY + 13))
sleep 0.2
xdotool click 1
sleep 0.8
shot menu
below="120x120+$((WX + 8))+$((WY + 22))"
changed=$(region_differs hover menu "$below")
[ "${changed%%.*}" -gt 500 ] || fail "no popup under the 'file' triangle ($changed pixels)"
xdotool key Escape
sleep 0.3

# The client viewer stands beside the main window.
xdotool search --onlyvisible --name '^simulated AOL client$' >/dev/null \
  || fail "no client viewer on screen"

# The roll button slides the window up until its own row stands at the screen's top edge, and
# a second click brings it back.
xdotool mousemove $((WX + 212)) $((WY + 16))
sleep 0.2
xdotool click 1
sleep 0.5
eval "$(xdotool getwindowgeometry --shell "$WIN")"
[ "$Y" -lt 0 ] && [ "$Y" -ge -12 ] || fail "rolled up to top $Y"
shot rolled
xdotool mousemove $((WX + 212)) $((Y + 16))
sleep 0.2
xdotool click 1
sleep 0.5
eval "$(xdotool getwindowgeometry --shell "$WIN")"
[ "$Y" = "$WY" ] || fail "rolled down to top $Y, not $WY"

kill -0 $PID 2>/dev/null || fail "the program ended"

# The exit button: the program ends at once with status 0, having saved the user's keys.
xdotool mousemove $((WX + 230)) $((WY + 16))
sleep 0.2
xdotool click 1
for _ in $(seq 1 50); do kill -0 $PID 2>/dev/null || break; sleep 0.1; done
kill -0 $PID 2>/dev/null && fail "the program did not end on exit"
status=0
wait $PID || status=$?
[ "$status" = 0 ] || fail "exit status $status"
INI=$XDG_CONFIG_HOME/quillcast/quillcast.ini
grep -q '^handle=Brindle Rose$' "$INI" || fail "handle not saved"
grep -q '^frmmenu.renamecomment.Checked=0$' "$INI" || fail "flags not saved"
grep -q '^ups=0$' "$INI" || fail "totals not saved"
echo "PASS: screenshots in $OUT"
