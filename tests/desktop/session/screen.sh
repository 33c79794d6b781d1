# SPDX-License-Identifier: MIT
# Sourced by the checks of a whole session: a folder of its own for everything that a desktop keeps, and an end for all
# that was started. A check whose tools are not installed ends with 77, which is no failure.

skip() {
    echo "skipped: $*" >&2
    exit 77
}

need() {
    local tool
    for tool in "$@"; do
        command -v "$tool" >/dev/null || skip "$tool is not installed"
    done
}

home=$(mktemp -d)
started=()
end_session() {
    [[ ${#started[@]} -eq 0 ]] || kill "${started[@]}" 2>/dev/null || true
    wait 2>/dev/null || true
    rm -rf "$home"
}
trap end_session EXIT
export HOME=$home XDG_RUNTIME_DIR=$home/run XDG_CONFIG_HOME=$home/config XDG_STATE_HOME=$home/state LC_ALL=C.UTF-8
mkdir -m 700 "$home/run"
unset QT_QPA_PLATFORM WAYLAND_DISPLAY DISPLAY

# wait_for COMMAND...: until it succeeds, at most ten seconds.
wait_for() {
    local _
    for _ in {1..100}; do
        "$@" && return 0
        sleep 0.1
    done
    echo "${0##*/}: timed out: $*" >&2
    return 1
}

# start_screen: an X server without a screen, and a window manager in it.
start_screen() {
    Xvfb -displayfd 3 -nolisten tcp -screen 0 1280x800x24 3>"$home/display" >/dev/null 2>&1 &
    started+=($!)
    wait_for test -s "$home/display"
    DISPLAY=:$(<"$home/display")
    export DISPLAY
    "${KELVARIN_WINDOW_MANAGER:-openbox}" >/dev/null 2>&1 &
    started+=($!)
}
