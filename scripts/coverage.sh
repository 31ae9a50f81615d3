#!/usr/bin/env bash
# Builds with coverage counters, runs the unit tests and the end-to-end tests (of the program without windows, and of the one with
# them), and prints for each folder of src/ how many lines were reached. coverage.sh FOLDER prints the lines that were not.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/setup.sh"
if [ $# -eq 0 ]; then
    install_packages
    build_preset coverage
    find "$root/build/coverage" -name '*.gcda' -delete
    ctest --test-dir "$root/build/coverage" -j 2 > "$root/build/coverage/unit.log" || tail -20 "$root/build/coverage/unit.log" >&2
    for program in quorvantis-headless quorvantis; do
        python3 "$root/tests/endtoend/run.py" --bin "$root/build/coverage/bin" --program "$program" \
            > "$root/build/coverage/$program.log" 2>&1 || tail -20 "$root/build/coverage/$program.log" >&2
    done
fi
exec python3 "$root/scripts/coverage.py" "$root" "$@"
