#!/usr/bin/env bash
# Builds the Debian package and prints where it is.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/setup.sh"
install_packages
build_preset release
cd "$root/build/release"
cpack -B "$root/build/package" >&2
ls "$root"/build/package/*.deb
