#!/usr/bin/env bash
# fuzz.sh MINUTES [TARGET...]: builds the fuzz targets and runs each (or those named) for so long, as many at a time as there are
# processors. Prints a line for each; fails if one found something. What was found lies in build/fuzz/findings.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/setup.sh"
seconds=$((${1:?minutes} * 60))
shift
build_preset fuzz fuzzers
targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
    for folder in "$root"/fuzz/corpus/*/; do targets+=("$(basename "$folder")"); done
fi
findings="$root/build/fuzz/findings"
mkdir -p "$findings"

run_target() {
    local target=$1 grown=$root/build/fuzz/corpus/$1 log=$findings/$1.log
    mkdir -p "$grown"
    if nice -n 19 "$root/build/fuzz/fuzz/fuzz_$target" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=4096 \
        -print_final_stats=1 -artifact_prefix="$findings/$target-" "$grown" "$root/fuzz/corpus/$target" > "$log" 2>&1; then
        echo "$target: nothing found, $(grep -o 'number_of_executed_units: *[0-9]*' "$log" | grep -o '[0-9]*') inputs in $((seconds / 60)) minutes"
    else
        echo "$target: FOUND SOMETHING, see $log"
        return 1
    fi
}
export -f run_target
export root seconds findings
printf '%s\n' "${targets[@]}" | xargs -P "${FUZZ_JOBS:-$(nproc)}" -I{} bash -c 'run_target {}'
