#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the Debian package twice and holds it against the checkers that are installed; each says what it has to object.
# Answers 0 if nothing is wrong.
set -uo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
cd "$root" || exit 1
outcome=0

wrong() {
    echo "${0##*/}: $*" >&2
    outcome=1
}

# check TOOL ARGUMENT...: runs it if it is there.
check() {
    command -v "$1" >/dev/null || return 0
    local said
    said=$("$@" 2>&1) || wrong "$1: $said"
}

mkdir -p build
check desktop-file-validate packaging/org.kelvarin.Kelvarin.desktop
check appstreamcli validate --no-net packaging/org.kelvarin.Kelvarin.metainfo.xml
check reuse lint

export SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-1795651200}
sums=()
for _ in 1 2; do
    rm -f build/package/*.deb
    cmake --workflow --preset package >build/package.log 2>&1 || {
        wrong "no package: $(tail -5 build/package.log)"
        break
    }
    sums+=("$(sha256sum build/package/*.deb)")
done
[[ ${#sums[@]} -lt 2 || ${sums[0]} == "${sums[1]}" ]] || wrong "two packages of one date differ"

# Whose address stands in the package is for the packager to say (KELVARIN_MAINTAINER), and there is no entry of the
# distribution's bug tracker to be closed.
for_the_packager=bogus-mail-host,bogus-mail-host-in-debian-changelog,initial-upload-closes-no-bugs
[[ $outcome -eq 0 ]] &&
    check lintian --fail-on error,warning --suppress-tags "$for_the_packager" --allow-root build/package/*.deb
exit "$outcome"
