# SPDX-License-Identifier: MIT
# For the scripts at the top of the tree, which source it.

# build_quietly ROOT PRESET TARGET...: configures a preset and builds targets. What the tools say is shown
# where somebody watches, and otherwise only when they fail; nothing of it goes to standard output.
build_quietly() {
    local root=$1 preset=$2 log
    shift 2
    local -a jobs=(cmake --build "$root/build/$preset" --parallel "$(nproc)" --target "$@")
    if [[ -t 2 ]]; then
        (cd "$root" && cmake --preset "$preset" --log-level=WARNING && "${jobs[@]}") >&2
        return
    fi
    log=$(mktemp)
    if ! (cd "$root" && cmake --preset "$preset" && "${jobs[@]}") >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        echo "The preset $preset could not be built." >&2
        return 1
    fi
    rm -f "$log"
}
