#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the Debian 12 packages that Kelvarin needs. Does nothing where they are there already.
#
#   ./install-dependencies.sh          everything, also the tools of development
#   ./install-dependencies.sh run      what building and running the programs takes
#   ./install-dependencies.sh test     that, and what building and running the tests takes
set -euo pipefail

packages=(g++ cmake ninja-build libcli11-dev nlohmann-json3-dev qt6-base-dev qt6-svg-dev fonts-liberation)
test_packages=(libgtest-dev libgmock-dev librapidcheck-dev locales xvfb openbox poppler-utils jq parallel)
development_packages=(git ccache libbenchmark-dev libmuparser-dev libgsl-dev clang clang-format clang-tidy libclang-rt-14-dev
    lintian appstream desktop-file-utils reuse weston qt6-wayland dbus at-spi2-core python3-pyatspi icewm)

case "${1:-all}" in
run) ;;
test) packages+=("${test_packages[@]}") ;;
all) packages+=("${test_packages[@]}" "${development_packages[@]}") ;;
*)
    echo "usage: ${0##*/} [run|test|all]" >&2
    exit 2
    ;;
esac

if ! command -v dpkg-query >/dev/null; then
    echo "${0##*/}: this is no Debian system, so nothing is checked or installed. Needed: ${packages[*]}" >&2
    exit 0
fi

missing=()
for package in "${packages[@]}"; do
    dpkg-query --show --showformat='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed ||
        missing+=("$package")
done
[[ ${#missing[@]} -eq 0 ]] && exit 0

if ! command -v apt-get >/dev/null; then
    echo "${0##*/}: these packages are missing, and there is no apt-get to install them: ${missing[*]}" >&2
    exit 1
fi
as_root=()
if [[ $(id -u) -ne 0 ]]; then
    if ! command -v sudo >/dev/null; then
        echo "${0##*/}: these packages are missing; install them as root (there is no sudo): ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi

echo "Installing ${missing[*]}" >&2
log=$(mktemp)
trap 'rm -f "$log"' EXIT
install() {
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -y -q "$@" </dev/null >>"$log" 2>&1
}
if ! { install update && install install --no-install-recommends "${missing[@]}"; }; then
    cat "$log" >&2
    echo "${0##*/}: the packages could not be installed: ${missing[*]}" >&2
    exit 1
fi
