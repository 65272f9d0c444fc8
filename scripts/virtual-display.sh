# Sourced by the scripts that run the game under a virtual display:
#   source scripts/virtual-display.sh DISPLAY
# Starts Xvfb on DISPLAY with a window manager (openbox minimises and
# activates windows as desktops do), makes a scratch folder $work, and on
# exit stops the game whose pid is in $game, the display and the manager.
work=$(mktemp -d)
trap 'kill "${game:-0}" "${wm:-0}" "${xvfb:-0}" 2>/dev/null || true; rm -rf "$work"' EXIT

export DISPLAY=$1 QT_QPA_PLATFORM=xcb
Xvfb "$DISPLAY" -screen 0 2560x1600x24 -nolisten tcp >/dev/null 2>&1 &
xvfb=$!
sleep 1
openbox >/dev/null 2>&1 &
wm=$!
sleep 0.5

# The game's main window, once it shows.
window_of_game() { xdotool search --sync --onlyvisible --pid "$game" --name '^Varkesh$' | head -1; }
