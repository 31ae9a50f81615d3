# Read by run and test: installs missing packages, configures and builds. Sets `root` to the project's folder.
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# Installs what of the package list is missing.
install_packages() {
    local package missing=()
    while read -r package; do
        case $package in '' | '#'*) continue ;; esac
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
    done < "$root/scripts/packages.txt"
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing: ${missing[*]}" >&2
    as_root apt-get update -qq >&2
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
}

# build_preset NAME [ninja targets...]: configures build/NAME and builds in it.
build_preset() {
    local preset=$1
    shift
    (cd "$root" && cmake --preset "$preset" > /dev/null && cmake --build "build/$preset" ${1:+--target "$@"}) >&2
}
