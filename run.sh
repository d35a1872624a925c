#!/usr/bin/env bash
# Builds Zonterbrook and starts it. Installs the Debian packages that are missing; on a machine without a display it starts
# the program on a virtual one.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
# shellcheck source=scripts/common.sh
. scripts/common.sh

program=build/release/bin/zonterbrook

if [ -z "${DISPLAY:-}" ] && [ -n "${WAYLAND_DISPLAY:-}" ]; then
    need_packages qt6-wayland
else
    need_packages
fi
build_release zonterbrook

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    say "Starting $program"
    exec "$program"
fi

# Xvfb picks a free display number itself and tells it on the descriptor. Whichever way this script ends, the program and
# the display end with it.
exec {display_number}< <(exec Xvfb -displayfd 1 -screen 0 1280x1024x24 -nolisten tcp 2>/dev/null)
children=($!)
trap 'kill "${children[@]}" 2>/dev/null || true' EXIT
trap 'exit 130' INT
trap 'exit 143' TERM
read -r -t 30 -u "$display_number" number || fail "the virtual display did not start"
say "No display found: starting $program on the virtual display :$number"
DISPLAY=":$number" "$program" &
children+=($!)
wait "${children[-1]}"
