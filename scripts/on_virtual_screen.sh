#!/usr/bin/env bash
# Runs a command on a virtual screen of its own, with a window manager, a D-Bus session and the accessibility bus.
# usage: scripts/on_virtual_screen.sh COMMAND [ARGUMENT ...]
set -euo pipefail
if [ "${1:-}" != --inside ]; then
  runtime=$(mktemp -d)
  trap 'rm -rf "$runtime"' EXIT
  env -u WAYLAND_DISPLAY -u XAUTHORITY XDG_RUNTIME_DIR="$runtime" QT_QPA_PLATFORM=xcb \
    QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 dbus-run-session -- "$0" --inside "$@"
  exit
fi
shift

# At most `limit` tenths of a second until a command succeeds.
wait_for() {
  local limit=200
  until "$@" >/dev/null 2>&1; do
    ((limit-- > 0)) || { echo "gave up waiting for: $*" >&2; exit 1; }
    sleep 0.1
  done
}

helpers=()
trap 'kill "${helpers[@]}" 2>/dev/null || true' EXIT
# Each of them runs beside the command until the end; what they have to say about this bare system is not wanted.
beside() {
  "$@" >/dev/null 2>&1 &
  helpers+=($!)
}

# The server itself takes the first free display number, so that any number of screens can start at the same time. Keys
# do not repeat (-r): on a busy machine one may be down for longer than its user means.
number=$XDG_RUNTIME_DIR/display
: >"$number"
beside bash -c 'exec Xvfb -displayfd 3 -screen 0 1680x1240x24 -nolisten tcp -noreset -r 3>"$0"' "$number"
wait_for test -s "$number"
DISPLAY=:$(cat "$number")
export DISPLAY
beside openbox
beside /usr/libexec/at-spi-bus-launcher --launch-immediately
manager_runs() { xprop -root _NET_SUPPORTING_WM_CHECK _NET_CLIENT_LIST | grep -c 'window id' | grep -qx 2; }
wait_for manager_runs
# The first key of all makes the server announce a keyboard, and the manager takes its key bindings anew meanwhile.
xdotool key Shift_L
"$@"
