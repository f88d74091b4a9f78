#!/usr/bin/env bash
# Runs a command on a virtual screen of its own, with a window manager, a D-Bus session and the accessibility bus.
# usage: scripts/on_virtual_screen.sh COMMAND [ARGUMENT ...]
set -euo pipefail
if [ "${1:-}" != --inside ]; then
  runtime=$(mktemp -d)
  trap 'rm -rf "$runtime"' EXIT
  env -u WAYLAND_DISPLAY XDG_RUNTIME_DIR="$runtime" QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 \
    dbus-run-session -- xvfb-run --auto-servernum --server-args='-screen 0 1600x1200x24' "$0" --inside "$@"
  exit
fi
shift

# At most `limit` tenths of a second until a command succeeds.
wait_for() {
  local limit=100
  until "$@" >/dev/null 2>&1; do
    ((limit-- > 0)) || { echo "gave up waiting for: $*" >&2; exit 1; }
    sleep 0.1
  done
}

# The window manager's own menus are not used; it complains of their absence.
openbox 2>/dev/null &
manager=$!
/usr/libexec/at-spi-bus-launcher --launch-immediately 2>/dev/null &
bus=$!
trap 'kill "$manager" "$bus" 2>/dev/null || true' EXIT
wait_for xprop -root _NET_SUPPORTING_WM_CHECK
"$@"
