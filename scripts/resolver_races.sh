#!/usr/bin/env bash
# Runs the tests of what has a thread of its own - looking up names, sending mail - under the thread sanitizer.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/setup.sh"
build_preset threads test_platform_linux
export TSAN_OPTIONS="halt_on_error=1 second_deadlock_stack=1"
exec "$root/build/threads/tests/test_platform_linux" --gtest_filter='*Lookups*:*Smtp*:*EachStep*' --gtest_repeat="${1:-20}" --gtest_brief=1
