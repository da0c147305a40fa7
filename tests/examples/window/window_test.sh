#!/usr/bin/env bash
# window_test.sh BOARD_VIEWER BOARD: uses the viewer's window as a user does, under an X server of its own. What it
# expects follows from the text of the board, ecc83-pp.kicad_pcb: C1 stands at 141.605, 99.695 turned by 90 degrees; its
# pad 1 is a square of 2 mm there, its pad 2 a disc of 2 mm that lies 5 mm above. Exit code 77: not all tools are here.
set -euo pipefail
viewer=$1 board=$2
for tool in Xvfb xdotool xclip import compare identify; do
    command -v $tool >/dev/null || { echo "skipped: $tool is not installed"; exit 77; }
done
[ -e "$board" ] || { echo "skipped: $board is not installed"; exit 77; }

work=$(mktemp -d)
server='' program=''
finish() {
    [ -z "$program" ] || kill "$program" 2>/dev/null || true
    [ -z "$server" ] || kill "$server" 2>/dev/null || true
    wait
    rm -rf "$work"
}
trap finish EXIT
step='start'
fail() {
    echo "FAILED in '$step': $*"
    tail -n 5 "$work/log" 2>/dev/null
    if [ -n "${KEEP:-}" ]; then
        import -window root "$KEEP/failed.png"
    fi
    exit 1
}

# ---- Waiting, never sleeping for a fixed time: the machine may be slow

await() { # await COMMAND...: until it succeeds
    local tries
    for ((tries = 0; tries < 300; ++tries)); do
        "$@" && return
        sleep 0.05
    done
    fail "waited in vain: $*"
}
last_line() { tail -n 1 "$work/log"; }
status_is() { [[ $(last_line) =~ $1 ]]; }
lines() { wc -l <"$work/log"; }
has_more_lines() { [ "$(lines)" -gt "$1" ]; }
changing() { # changing COMMAND...: until the status line has changed after it
    local before
    before=$(lines)
    "$@"
    await has_more_lines "$before"
}
is_gone() { ! kill -0 "$1" 2>/dev/null; }
find_window() { window=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | head -n 1) && [ -n "$window" ]; }
focus() { # focus NAME: there is no window manager, which would do it
    await find_window "$1"
    xdotool windowfocus --sync "$window"
}

# ---- Numbers and pixels

calc() { awk "BEGIN { printf \"%.6f\", $1 }"; }
holds() { awk "BEGIN { exit !($1) }"; }
near() { holds "($1) - ($2) < $3 && ($2) - ($1) < $3" || fail "$1 is not within $3 of $2"; }
# The cursor's place on the board, from the status line.
cursor() { sed -nE 's/^(-?[0-9.]+), (-?[0-9.]+) mm.*/\1 \2/p' <<<"$(last_line)"; }
scale() { sed -nE 's/.*scale ([0-9.]+) %.*/\1/p' <<<"$(last_line)"; }
go() { changing xdotool mousemove "$1" "$2"; }
# Where the board's millimetres lie on the screen, from what two places of the cursor say.
learn() {
    go 200 200
    read -r ax ay <<<"$(cursor)"
    go 500 400
    read -r bx by <<<"$(cursor)"
    per_x=$(calc "300 / ($bx - $ax)") per_y=$(calc "200 / ($by - $ay)")
    left=$ax top=$ay
}
pixel_x() { awk "BEGIN { print int(200.5 + ($1 - $left) * $per_x) }"; }
pixel_y() { awk "BEGIN { print int(200.5 + ($1 - $top) * $per_y) }"; }
go_board() { go "$(pixel_x "$1")" "$(pixel_y "$2")"; }
shot() { import -window root "$work/$1.png"; }
colour() { # colour SHOT X Y of the board
    convert "$work/$1.png" -format "%[hex:u.p{$(pixel_x "$2"),$(pixel_y "$3")}]" info: | cut -c 1-6
}
same() { # same A B [FUZZ]: the number of pixels that differ, of two pictures of one size
    compare -metric AE "$1" "$2" null: 2>&1 || true
}
# The board without the cursor's own doings: pictures are compared after a moment without any change.
settled() {
    shot settle1
    await unchanged
}
unchanged() {
    mv "$work/settle1.png" "$work/settle0.png"
    shot settle1
    [ "$(same "$work/settle0.png" "$work/settle1.png")" = 0 ]
}
picture() { settled && mv "$work/settle1.png" "$work/$1.png"; }

# ---- The X server, and a viewer with settings of its own

mkfifo "$work/display"
Xvfb -displayfd 3 -screen 0 1280x840x24 -nolisten tcp 3>"$work/display" 2>/dev/null &
server=$!
read -r number <"$work/display"
export DISPLAY=:$number XDG_CONFIG_HOME=$work/settings XDG_RUNTIME_DIR=$work QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR=1
unset WAYLAND_DISPLAY
xdotool mousemove 600 400

launch() { # launch ARGUMENTS...
    : >"$work/log"
    "$viewer" "$@" --log 2>"$work/log" &
    program=$!
}
leave() { # closes the window and looks at the exit code
    focus 'Board viewer$'
    xdotool key ctrl+q
    await is_gone "$program"
    local code=0
    wait "$program" || code=$?
    program=''
    [ "$code" = 0 ] || fail "exit code $code"
}

step='open a board'
launch "$board"
focus 'ecc83-pp.kicad_pcb - Board viewer$'
await status_is 'scale '
learn
near "$per_x" "$per_y" 0.02
fitted=$(scale)
picture fitted
copper=$(sed -nE '/"F.Cu"/,/colour/ s/.*"colour": "#([0-9A-F]{6})".*/\1/p' <<<"$("$viewer" "$board" --info)")
# A millimetre from the pad's middle is its edge. Just inside and just outside of it tell whether the place that the
# cursor has on the board is the one that is drawn under it.
for edge in '0.85 0' '-0.85 0' '0 0.85' '0 -0.85'; do
    read -r dx dy <<<"$edge"
    [ "$(colour fitted "$(calc "141.605 + $dx")" "$(calc "99.695 + $dy")")" = "$copper" ] ||
        fail "at $edge pad C1.1 is not drawn in F.Cu's colour $copper"
    [ "$(colour fitted "$(calc "141.605 + $dx * 1.35")" "$(calc "99.695 + $dy * 1.35")")" != "$copper" ] ||
        fail "beyond $edge there is more than pad C1.1"
done
[ "$(colour fitted 121.000 91.000)" = 000000 ] || fail 'something is drawn outside of the board'

step='zoom at a corner'
go_board 122 91
read -r x y <<<"$(cursor)"
for i in 1 2 3; do changing xdotool click 4; done
near "$(scale)" "$fitted * 1.3 ^ 3" 0.5
read -r zoomed_x zoomed_y <<<"$(cursor)"
near "$zoomed_x" "$x" 0.1
near "$zoomed_y" "$y" 0.1
for i in 1 2; do changing xdotool click 5; done
near "$(scale)" "$fitted * 1.3" 0.5

step='drag with the right button'
learn
read -r x y <<<"$(cursor)"
picture before
xdotool mousedown 3
for i in 20 40 60 80; do xdotool mousemove $((500 - i)) $((400 - i / 2)); done
xdotool mouseup 3 # the board came along, so that the status line has said the same all the time
go 500 400
read -r dragged_x dragged_y <<<"$(cursor)"
near "$dragged_x" "$x + 80 / $per_x" 0.05
near "$dragged_y" "$y + 40 / $per_y" 0.05
picture after
convert "$work/before.png" -crop 400x300+300+200 +repage "$work/part1.png"
convert "$work/after.png" -crop 400x300+220+160 +repage "$work/part2.png"
holds "$(same "$work/part1.png" "$work/part2.png") < 1200" || fail 'the picture did not move by 80 and 40 pixels'

step='pick a pad'
learn
go_board 141.605 99.695
picture unpicked
changing xdotool click 1
await status_is 'pad C1\.1, net Net-\(C1-Pad1\), .*, 2(\.0+)? x 2(\.0+)? mm, hole 1(\.0+)? mm$'
picture picked
holds "$(same "$work/unpicked.png" "$work/picked.png") > 100" || fail 'the picked pad is not shown'

step='measure two pads'
go_board 141.605 94.695
changing xdotool keydown shift click 1 keyup shift
await status_is 'clearance 3\.0+ mm from 141\.6050*, 98\.6950* to 141\.6050*, 95\.6950*$'
xdotool key ctrl+c
await status_is '^copied the measurement$'
[[ $(xclip -o -selection clipboard) =~ ^clearance\ 3\.0+\ mm ]] || fail 'the measurement is not on the clipboard'
xdotool key Escape
go_board 141.605 99.695
picture cleared
convert "$work/unpicked.png" -crop 800x700+0+40 "$work/part1.png"
convert "$work/cleared.png" -crop 800x700+0+40 "$work/part2.png"
[ "$(same "$work/part1.png" "$work/part2.png")" = 0 ] || fail 'Escape left something of the overlay'

step='find by wildcard'
xdotool key ctrl+f
xdotool type --delay 20 'p#'
changing xdotool key Return
await status_is 'footprint P5, '
changing xdotool key Return
await status_is 'footprint P6, '
xdotool key Escape
changing xdotool key Escape

step='flip'
xdotool key f
learn
go_board 160 110
read -r x y <<<"$(cursor)"
picture front
changing xdotool key m mousemove_relative -- 0 1
read -r flipped_x flipped_y <<<"$(cursor)"
near "$flipped_x" "$x" 0.05
near "$flipped_y" "$y" 0.5
changing xdotool mousemove_relative -- 50 0
read -r flipped_x flipped_y <<<"$(cursor)"
near "$flipped_x" "$x - 50 / $per_x" 0.05
holds "$(same "$work/front.png" "$work/fitted.png") < 2000" || fail 'F did not fit the board'

step='switch layers'
xdotool key m f
learn
xdotool key 1 2
picture switched
[ "$(colour switched 142.405 100.495)" != "$copper" ] || fail 'key 1 did not hide F.Cu'
xdotool key 1 2
picture restored
[ "$(colour restored 142.405 100.495)" = "$copper" ] || fail 'key 1 did not show F.Cu again'

step='export'
xdotool key ctrl+s
focus '^Export what is shown'
xdotool key ctrl+a
xdotool type --delay 5 "$work/out.png"
xdotool key Return
await status_is '^wrote '
focus 'Board viewer$'
read -r width height <<<"$(identify -format '%w %h' "$work/out.png")"
picture shown
menu=0 # the height of what stands above the board: where a strip of both is the same
convert "$work/out.png" -crop "${width}x40+0+200" +repage "$work/part1.png"
for ((menu = 10; menu < 60; ++menu)); do
    convert "$work/shown.png" -crop "${width}x40+0+$((menu + 200))" +repage "$work/part2.png"
    [ "$(same "$work/part1.png" "$work/part2.png")" != 0 ] || break
done
convert "$work/shown.png" -crop "${width}x${height}+0+$menu" +repage "$work/window.png"
[ "$(same "$work/out.png" "$work/window.png")" = 0 ] || fail 'the exported picture is not what the window shows'

step='copy the picture'
xdotool key ctrl+c
await status_is '^copied the picture$'
xclip -o -selection clipboard -t image/png >"$work/clip.png"
[ "$(same "$work/clip.png" "$work/window.png")" = 0 ] || fail 'the copied picture is not what the window shows'

step='open a broken file'
head -c 20000 "$board" >"$work/broken.kicad_pcb"
xdotool key ctrl+o
focus '^Open a board'
xdotool type --delay 5 "$work/broken.kicad_pcb"
xdotool key Return
focus '^Cannot open the board'
xdotool key Return
focus '^ecc83-pp.kicad_pcb - Board viewer$'
picture kept
convert "$work/kept.png" -crop "${width}x${height}+0+$menu" +repage "$work/part2.png"
[ "$(same "$work/window.png" "$work/part2.png")" = 0 ] || fail 'the broken file changed what is shown'
leave

step='close while a file is being read'
mkfifo "$work/slow.kicad_pcb"
launch "$work/slow.kicad_pcb"
await status_is '^reading '
leave

step='no display'
for place in '' :987; do
    code=0
    env -u QT_QPA_PLATFORM DISPLAY=$place "$viewer" "$board" >"$work/out" 2>"$work/errors" || code=$?
    [ "$code" = 1 ] && [ "$(wc -l <"$work/errors")" = 1 ] || fail "exit code $code: $(cat "$work/errors")"
done
echo 'passed'
