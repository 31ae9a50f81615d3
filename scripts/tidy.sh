#!/usr/bin/env bash
# Runs clang-tidy over the sources of the release build. Prints what it finds; fails if it finds something.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cmake --preset release -S "$root" > /dev/null
find "$root/src" -name '*.cpp' -print0 | xargs -0 -n 4 -P "$(nproc)" clang-tidy --quiet --extra-arg=-Wno-unknown-warning-option -p "$root/build/release" 2> /dev/null
