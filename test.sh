#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds everything and runs every test, with sanitizers and as users run it; ends with a line such as "123 passed, 0 failed".
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)
source "$root/cmake/build.sh"

"$root/install-dependencies.sh" test

log=$(mktemp)
trap 'rm -f "$log"' EXIT
outcome=0 passed=0 failed=0
# Sanitizers and comparisons first; then the code as users run it, which jumps where the checked build loops.
for preset in checked release-tests; do
    build_quietly "$root" "$preset" all
    result=0
    ctest --test-dir "$root/build/$preset" --parallel 2 --output-on-failure --no-tests=error >"$log" 2>&1 || result=$?
    # CTest's own summary: "98% tests passed, 2 tests failed out of 123".
    if [[ $(<"$log") =~ tests\ passed,\ ([0-9]+)\ tests?\ failed\ out\ of\ ([0-9]+) ]]; then
        failed=$((failed + BASH_REMATCH[1]))
        passed=$((passed + BASH_REMATCH[2] - BASH_REMATCH[1]))
    else
        result=1
    fi
    [[ $result -eq 0 ]] && continue
    outcome=1
    grep -v -E '^ *[0-9]+/[0-9]+ Test .* Passed |^ *Start +[0-9]+: ' "$log" >&2 || true
done
# The package, where Debian's tools are there.
if command -v lintian >/dev/null && command -v dpkg-shlibdeps >/dev/null; then
    "$root/packaging/check.sh" || outcome=1
fi
echo "$passed passed, $failed failed"
[[ $outcome -eq 0 && $passed -gt 0 && $failed -eq 0 ]]
