#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs every fuzz target in turn and prints how many inputs each has tried and what it found:
#
#   fuzz/campaign.sh MINUTES [FOLDER]
#
# New inputs and findings are kept in FOLDER (build/fuzz/campaign), where a later campaign goes on from them.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
minutes=${1:?usage: fuzz/campaign.sh MINUTES [FOLDER]}
folder=${2:-$root/build/fuzz/campaign}

cmake --preset fuzz -S "$root" >/dev/null
cmake --build "$root/build/fuzz" >/dev/null
targets=("$root"/build/fuzz/bin/*_fuzzer)
seconds=$((minutes * 60 / ${#targets[@]}))
# One target writes files, which are made durable: there at no cost.
[[ -d /dev/shm ]] && export TMPDIR=/dev/shm
printf '%-20s %12s %9s\n' target executions findings
status=0
for target in "${targets[@]}"; do
    name=$(basename "$target" _fuzzer)
    mkdir -p "$folder/$name/new" "$folder/$name/findings"
    seeds=("$root/fuzz/corpus/$name")
    [[ $name == *_file ]] && seeds+=("$root/examples")
    log=$folder/$name/log
    # A finding ends the target; the others go on.
    "$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
        -artifact_prefix="$folder/$name/findings/" "$folder/$name/new" "${seeds[@]}" >"$log" 2>&1 || true
    executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    findings=$(find "$folder/$name/findings" -type f | wc -l)
    printf '%-20s %12s %9s\n' "$name" "${executions:-?}" "$findings"
    [[ $findings -eq 0 ]] || status=1
done
exit $status
