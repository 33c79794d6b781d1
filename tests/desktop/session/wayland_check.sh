#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# wayland_check.sh KELVARIN EXAMPLES: the windows under a Wayland compositor without a screen. Each must show itself and
# give no warning.
set -euo pipefail
source "$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)/screen.sh"

need weston weston-screenshooter
compgen -G "/usr/lib/*/qt6/plugins/platforms/libqwayland*" >/dev/null || skip "qt6-wayland is not installed"
weston --backend=headless-backend.so --use-pixman --debug --socket=kelvarin --width=1280 --height=800 --idle-time=0 \
    >"$home/weston.log" 2>&1 &
started+=($!)
export WAYLAND_DISPLAY=kelvarin QT_QPA_PLATFORM=wayland
wait_for test -S "$XDG_RUNTIME_DIR/kelvarin"
kelvarin=$1 examples=$2
cd "$home"
outcome=0

picture() {
    rm -f wayland-screenshot-*.png
    weston-screenshooter >/dev/null 2>&1 && mv wayland-screenshot-*.png "$1" 2>/dev/null
}
# The desktop alone; the minutes of its clock make no difference of the size that a window makes.
wait_for picture empty.png
empty=$(stat -c %s empty.png)

is_larger() {
    picture shown.png && (($(stat -c %s shown.png) > empty + 2000))
}

for words in "$examples/satellite.kvr" calc units const ant; do
    "$kelvarin" "$words" 2>said.txt &
    program=$!
    wait_for is_larger || outcome=1
    kill -0 "$program" || outcome=1
    kill "$program"
    wait "$program" || true
    [[ ! -s said.txt ]] || outcome=1
    sed "s|^|$words: |" said.txt >&2
done
exit "$outcome"
