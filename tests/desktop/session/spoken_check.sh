#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# spoken_check.sh KELVARIN EXAMPLES: every window with the eyes of a screen reader, over a bus of its own.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)
source "$here/screen.sh"

need Xvfb openbox dbus-run-session
reader=/usr/bin/python3
launcher=/usr/libexec/at-spi-bus-launcher
[[ -x $launcher ]] || skip "at-spi2-core is not installed"
"$reader" -c 'import pyatspi' 2>/dev/null || skip "python3-pyatspi is not installed"
start_screen
export QT_QPA_PLATFORM=xcb
dbus-run-session -- bash -c '
    "$1" --launch-immediately & launcher=$!
    sleep 1
    "$2" "$3" "$4" "$5"
    status=$?
    kill "$launcher"
    exit "$status"' check "$launcher" "$reader" "$here/spoken_check.py" "$1" "$2"
