# shellcheck shell=bash
# What run.sh and test.sh share: the packages they need, the check that installs the missing ones, and the build.
# Sourced by them from the top of the tree; it changes nothing but build/release and, if it must, the system's packages.

# Compiler and build tools; Qt with its SVG plugins and its sounds; what the tests and benchmarks link; a display and a
# font for machines that have none.
packages=(
    g++ cmake ninja-build
    qt6-base-dev qt6-svg-dev libqt6svg6 qt6-multimedia-dev libgl-dev
    libgtest-dev libbenchmark-dev
    xvfb fonts-dejavu-core
)

say() {
    printf '==> %s\n' "$*"
}

fail() {
    printf 'error: %s\n' "$*" >&2
    exit 1
}

# missing_packages <package>...: prints those that are not installed, one a line.
missing_packages() {
    local package status
    for package in "$@"; do
        status=$(dpkg-query -W -f '${Status}' "$package" 2>/dev/null) || status=
        [ "$status" = 'install ok installed' ] || printf '%s\n' "$package"
    done
}

# need_packages [<package>...]: installs what is missing of the list above and of those named; asks for root only then.
need_packages() {
    local missing as_root=()
    set -- "${packages[@]}" "$@"
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        say "No Debian package manager here; the build needs the equivalents of: $*"
        return
    fi
    mapfile -t missing < <(missing_packages "$@")
    [ "${#missing[@]}" -gt 0 ] || return 0
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || fail "missing packages (install them as root): ${missing[*]}"
        as_root=(sudo)
    fi
    say "Installing missing packages: ${missing[*]}"
    as_root+=(env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=120)
    # A package list that can't be refreshed is no reason to stop: the one at hand may know the packages.
    "${as_root[@]}" update </dev/null || say "The package lists could not be refreshed; trying with those at hand"
    "${as_root[@]}" install -y --no-install-recommends "${missing[@]}" </dev/null
}

# build_release <target>: configures build/release and builds the target there.
build_release() {
    local log=build/configure.log
    mkdir -p build
    say "Configuring build/release"
    cmake --preset release >"$log" 2>&1 || {
        cat "$log" >&2
        fail "configuring failed"
    }
    say "Building $1"
    cmake --build --preset release --parallel "$(nproc)" --target "$1"
}
