#!/usr/bin/env bash
# Measures how much of one core the game takes while nothing happens:
# the title screen, a human pondering (strobe and hints on) at scale 1 and at
# scale 2 (QT_SCALE_FACTOR=2), a paused game of computer seats, and a
# minimised window. Needs Xvfb, xdotool and openbox.
#   scripts/idle-cpu.sh BIN_DIR [SECONDS [SCENARIO...]]
# BIN_DIR holds varkesh and varkesh-cli (a build's bin or an installed bin);
# the scenarios are title, pondering, pondering-x2, paused and minimised,
# all by default.
set -euo pipefail
bin=$(cd "$1" && pwd)
seconds=${2:-20}
scenarios=" ${*:3} "
[ "$scenarios" = "  " ] && scenarios=" title pondering pondering-x2 paused minimised "
wanted() { [[ "$scenarios" == *" $1 "* ]]; }
source "$(dirname "$0")/virtual-display.sh" :57

export HOME="$work/home"
mkdir -p "$HOME/.config/Varkesh"
# Not the first run: the ReadMe stays closed.
printf '[Settings]\nFirst=Done\nSfx=0\n' >"$HOME/.config/Varkesh/Varkesh.conf"

"$bin/varkesh-cli" new --players 0,0,0,0 >"$work/humans.txt"
"$bin/varkesh-cli" encode "$work/humans.txt" "$work/humans.vsh"
"$bin/varkesh-cli" new --players 1,2,3,1 >"$work/computers.txt"
"$bin/varkesh-cli" encode "$work/computers.txt" "$work/computers.vsh"

ticks_of() { awk '{print $14 + $15}' "/proc/$1/stat"; }

# Percent of one core over the measuring span.
measure() {
  local before after
  before=$(ticks_of "$game")
  sleep "$seconds"
  after=$(ticks_of "$game")
  awk -v t=$((after - before)) -v hz="$(getconf CLK_TCK)" -v s="$seconds" \
    'BEGIN { printf "%.2f", 100 * t / hz / s }'
}

start_game() {
  (cd "$work" && exec "$bin/varkesh" "$@") >/dev/null 2>&1 &
  game=$!
  sleep 3
}

stop_game() {
  kill "$game" 2>/dev/null || true
  wait "$game" 2>/dev/null || true
}

if wanted title; then
  start_game
  echo "title: $(measure)%"
  stop_game
fi

if wanted pondering; then
  start_game "$work/humans.vsh"
  sleep 10  # the hint appears after ten seconds of thought
  echo "pondering: $(measure)%"
  stop_game
fi

if wanted pondering-x2; then
  QT_SCALE_FACTOR=2 start_game "$work/humans.vsh"
  sleep 10
  echo "pondering at scale 2: $(measure)%"
  stop_game
fi

if wanted paused; then
  start_game "$work/computers.vsh"
  # The Pause button sits at the top left corner of the board view.
  xdotool mousemove --window "$(window_of_game)" 30 78 click 1
  sleep 1
  echo "paused: $(measure)%"
  stop_game
fi

if wanted minimised; then
  start_game "$work/humans.vsh"
  xdotool windowminimize --sync "$(window_of_game)"
  sleep 1
  echo "minimised: $(measure)%"
  stop_game
fi
