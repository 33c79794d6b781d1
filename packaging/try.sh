#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# try.sh PACKAGE.deb: installs the package into a clean Debian made for it, tries it there as an ordinary user, removes it
# and looks for what is left. Needs mmdebstrap and root; takes some minutes. Answers 0 if nothing is wrong.
set -euo pipefail
package=$(realpath "$1")
root=$(mktemp -d)
outcome=0

finish() {
    umount "$root/dev" "$root/proc" 2>/dev/null || true
    rm -rf --one-file-system "$root"
}
trap finish EXIT

inside() { chroot "$root" /usr/bin/env -i PATH=/usr/bin:/bin:/usr/sbin:/sbin LC_ALL=C.UTF-8 "$@"; }
# As somebody who owns nothing but a home; windows open on no screen.
user() {
    inside HOME=/home/ann USER=ann DISPLAY=:9 QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=/home/ann/run \
        setpriv --reuid 4711 --regid 4711 --clear-groups sh -c "cd && $*"
}

# ok WHAT COMMAND...
ok() {
    local what=$1
    shift
    if "$@" >"$root.said" 2>&1; then
        echo "ok: $what"
    else
        echo "wrong: $what: $(tail -3 "$root.said")"
        outcome=1
    fi
    rm -f "$root.said"
}
says() { [[ $(user "$1" 2>&1) == *"$2"* ]]; }
# Still running after two seconds, which is how a window does well here.
stays_open() {
    local status=0
    user "timeout 2 $1" || status=$?
    [[ $status -eq 124 ]]
}
# xdg-open stays for as long as the program that it starts.
opens_by_double_click() {
    local opened=1 process
    user "timeout 5 xdg-open $1" &
    for _ in {1..40}; do
        sleep 0.1
        for process in /proc/[0-9]*/cmdline; do
            ! tr '\0' ' ' 2>/dev/null <"$process" | grep -qE "^(/usr/bin/)?kelvarin .*$1" || opened=0
        done
    done
    wait $! || true
    return $opened
}
what_is_left() { find "$root/usr" "$root/etc" "$root/var" -iname '*kelvarin*' -not -path '*/dpkg/*' -not -path '*/apt/*'; }

# From where this machine takes its own packages.
sources=/etc/apt/sources.list
[[ -s $sources ]] || sources=/etc/apt/sources.list.d/debian.sources
mmdebstrap --quiet --variant=apt --include=shared-mime-info,desktop-file-utils,xdg-utils,libfile-mimeinfo-perl,libglib2.0-bin \
    --customize-hook="copy-in $package /tmp" \
    --customize-hook='chroot "$1" sh -c "apt-get install -y -q --no-install-recommends /tmp/*.deb >/dev/null"' \
    bookworm "$root" "$sources"
mount -t proc proc "$root/proc" || true
mount --bind /dev "$root/dev" || true
inside useradd --uid 4711 --create-home ann
inside cp -r /usr/share/kelvarin/examples /home/ann/
inside sh -c 'mkdir -m 700 /home/ann/run; cp /home/ann/examples/gas-volume.kvr /home/ann/unnamed; chown -R ann: /home/ann'

ok "solves from the command line" says "kelvarin-solve examples/gas-volume.kvr" "0.0869598"
ok "draws a picture" user "kelvarin-solve --plot a.svg examples/satellite.kvr && test -s a.svg"
ok "finds units and constants" says "kelvarin-solve --convert 100 'deg C' 'deg F'; kelvarin-solve --constants speed light" "299792458"
for tool in calc units const ant; do ok "kelvarin $tool stays open" stays_open "kelvarin $tool"; done
ok "kelvarin FILE stays open" stays_open "kelvarin examples/gas-volume.kvr"
ok "a problem has its type" says "gio info -a standard::content-type examples/gas-volume.kvr" "application/x-kelvarin-problem"
ok "by its content too" says "gio info -a standard::content-type unnamed" "application/x-kelvarin-problem"
ok "the program is its default" says "xdg-mime query default application/x-kelvarin-problem" "org.kelvarin.Kelvarin.desktop"
ok "a double click opens it" opens_by_double_click examples/gas-volume.kvr
ok "help is there" test -s "$root/usr/share/doc/kelvarin/help/contents.md"
inside DEBIAN_FRONTEND=noninteractive apt-get purge -y -q kelvarin >/dev/null
left=$(what_is_left)
ok "nothing is left: $left" test -z "$left"
ok "but what the user made" test -s "$root/home/ann/a.svg"
exit "$outcome"
