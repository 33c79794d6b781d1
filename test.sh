#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds everything and runs every test; ends with a line such as "123 passed, 0 failed".
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)
source "$root/cmake/build.sh"

"$root/install-dependencies.sh" test
build_quietly "$root" release all
build_quietly "$root" checked all

log=$(mktemp)
trap 'rm -f "$log"' EXIT
outcome=0
ctest --test-dir "$root/build/checked" --parallel 2 --output-on-failure --no-tests=error >"$log" 2>&1 || outcome=$?

# CTest's own summary: "98% tests passed, 2 tests failed out of 123".
passed=0 failed=0
if [[ $(<"$log") =~ tests\ passed,\ ([0-9]+)\ tests?\ failed\ out\ of\ ([0-9]+) ]]; then
    failed=${BASH_REMATCH[1]}
    passed=$((BASH_REMATCH[2] - failed))
fi
if [[ $outcome -ne 0 ]]; then
    grep -v -E '^ *[0-9]+/[0-9]+ Test .* Passed |^ *Start +[0-9]+: ' "$log" >&2 || true
fi
echo "$passed passed, $failed failed"
[[ $outcome -eq 0 && $passed -gt 0 && $failed -eq 0 ]]
