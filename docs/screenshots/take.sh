#!/usr/bin/env bash
# Takes the pictures of the turned board, the keyboard's cursor and the
# window at scale 2 under a virtual display, into this folder.
#   docs/screenshots/take.sh BIN_DIR
# Needs xvfb, openbox, xdotool and imagemagick.
set -euo pipefail
bin=$(cd "$1" && pwd)
here=$(cd "$(dirname "$0")" && pwd)
source "$here/../../scripts/virtual-display.sh" :58

# A fresh home with the settings given, the game started past the title.
start() {
  export HOME="$work/home-$RANDOM"
  mkdir -p "$HOME/.config/Varkesh"
  printf '[Settings]\nFirst=Done\nSfx=0\n%s\n' "$1" >"$HOME/.config/Varkesh/Varkesh.conf"
  (cd "$work" && exec "$bin/varkesh") >/dev/null 2>&1 &
  game=$!
  sleep 3
  window=$(window_of_game)
  xdotool windowactivate --sync "$window" || true
  # A click on the title, then Start in the new game dialog.
  xdotool mousemove --window "$window" 300 300 click 1
  sleep 1.5
  xdotool key Return
  sleep 2
}

shoot() {
  sleep 0.6
  import -window "$window" "$here/$1.png"
}

stop() {
  kill "$game" 2>/dev/null || true
  wait "$game" 2>/dev/null || true
}

for army in White Blue Black Red; do
  start "TurnBoard=$army"
  shoot "turned-$(echo "$army" | tr 'A-Z' 'a-z')"
  stop
done

start "TurnBoard=White"
xdotool key Tab Tab Tab
sleep 0.3
xdotool key space
sleep 0.5
xdotool key Up Up
shoot "keyboard-cursor"
stop

QT_SCALE_FACTOR=2 start ""
shoot "scale-2"
stop
