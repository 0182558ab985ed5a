# Installs the Debian packages that a build needs and are missing. Sourced by ./run, ./test, ./bench and
# scripts/pictures.

run_packages=(g++ cmake ninja-build qt6-base-dev libicu-dev libspdlog-dev libsqlite3-dev fonts-dejavu-core)
test_packages=("${run_packages[@]}" clang libclang-rt-dev libgtest-dev libgmock-dev python3
               xvfb xauth xdotool openbox)
bench_packages=("${run_packages[@]}" libbenchmark-dev xvfb)
picture_packages=("${run_packages[@]}" python3 xvfb xauth xdotool openbox imagemagick)

# install_missing PACKAGE...: quiet and quick when nothing is missing.
install_missing() {
    if ! command -v apt-get >/dev/null 2>&1; then
        echo "This is not a Debian system. Needed, under these or similar names: $*" >&2
        return 0
    fi
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
    done
    [ "${#missing[@]}" -eq 0 ] && return 0
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    echo "Installing ${missing[*]}" >&2
    { "${as_root[@]}" apt-get update -qq &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
            "${missing[@]}"; } >&2 ||
        { echo "Could not install: ${missing[*]}" >&2; return 1; }
}

# build_preset NAME [TARGET...]: configures and builds. Configuring again costs a second and finds what
# has been installed since (a machine that only ran the desk has nothing to build tests with).
build_preset() {
    local preset=$1
    shift
    cmake --preset "$preset" >/dev/null
    if [ $# -gt 0 ]; then
        cmake --build "build/$preset" --target "$@"
    else
        cmake --build "build/$preset"
    fi
}
