#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds Kelvarin and runs it.
#
#   ./run.sh                 solves one of the examples and prints its report
#   ./run.sh ARGUMENTS...    what kelvarin-solve does with them: files, options (see ./run.sh --help)
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)
source "$root/cmake/build.sh"

"$root/install-dependencies.sh" run
build_quietly "$root" release kelvarin-solve

if [[ $# -eq 0 ]]; then
    set -- "$root/examples/gas-volume.kvr"
fi
exec "$root/build/release/bin/kelvarin-solve" "$@"
