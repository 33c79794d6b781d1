#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds Kelvarin and runs it.
#
# Where there is a display, the workbench:
#   ./run.sh                 opens it
#   ./run.sh FILES...        opens problems and reports
#   ./run.sh calc            opens the calculator alone
# Without one, the batch program:
#   ./run.sh                 solves one of the examples and prints its report
#   ./run.sh ARGUMENTS...    what kelvarin-solve does with them: files, options (see ./run.sh --help)
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)
source "$root/cmake/build.sh"

program=kelvarin-solve
if [[ -n "${DISPLAY:-}" || -n "${WAYLAND_DISPLAY:-}" ]]; then
    program=kelvarin
elif [[ $# -eq 0 ]]; then
    set -- "$root/examples/gas-volume.kvr"
fi

"$root/install-dependencies.sh" run
build_quietly "$root" release "$program"
exec "$root/build/release/bin/$program" "$@"
