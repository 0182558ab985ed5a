# shellcheck shell=bash disable=SC2034
# Installs the Debian packages that a build needs and are missing. Sourced by ./run, ./test, ./lint, ./bench,
# ./fuzz, ./site and scripts/pictures.

run_packages=(g++ cmake ninja-build qt6-base-dev libicu-dev libspdlog-dev libsqlite3-dev
              libzip-dev libexpat1-dev libpq-dev fonts-dejavu-core
              qt6-l10n-tools qt6-translations-l10n)
site_packages=(doxygen doxygen-awesome-css graphviz python3)
test_packages=("${run_packages[@]}" "${site_packages[@]}" ccache clang libclang-rt-dev libgtest-dev libgmock-dev python3 pkgconf
               xvfb xauth xdotool openbox strace desktop-file-utils appstream shared-mime-info
               abigail-tools # compares the shared libraries with those that hosts were built with
               postgresql # the tests start one of their own
               poppler-utils # reads the text of a printed quote
               qt6-tools-dev libqt6opengl6-dev # Designer's plug-in, and the loader of forms for its test
               dbus-daemon at-spi2-core gir1.2-atspi-2.0 python3-gi) # these four: assistive technology
lint_packages=("${test_packages[@]}" clang-format-14 clang-tidy-14 libbenchmark-dev libx11-dev libxtst-dev libxdamage-dev
               shellcheck)
fuzz_packages=("${run_packages[@]}" ccache clang libclang-rt-dev llvm) # llvm: finds the source line of a fault
# For ./test portable. googletest has GoogleTest's sources, which are needed because the installed library was built for
# this processor and with libstdc++.
libcxx_packages=(libc++-dev libc++abi-dev googletest)
aarch64_packages=(g++-aarch64-linux-gnu qemu-user googletest)
s390x_packages=(g++-s390x-linux-gnu qemu-user googletest)
bench_packages=("${run_packages[@]}" libbenchmark-dev postgresql xvfb
                openbox libx11-dev libxtst-dev libxdamage-dev) # these four: ./bench --felt
picture_packages=("${run_packages[@]}" python3 xvfb xauth xdotool openbox imagemagick poppler-utils
                  qt6-tools-dev libqt6opengl6-dev designer-qt6) # these three: the list view in Designer

# install_packages PACKAGE...: installs them, without what they only recommend.
install_packages() {
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "$@"
}

# prepare_postgresql: sees to it that installing PostgreSQL neither makes nor starts a server on this computer. Does
# nothing where there is a PostgreSQL already.
prepare_postgresql() {
    local programs=(/usr/lib/postgresql/*/bin/postgres) as_root=()
    [ -e "${programs[0]}" ] && return 0
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    install_packages postgresql-common &&
        "${as_root[@]}" sed -i -E 's/^#?create_main_cluster *=.*/create_main_cluster = false/' \
            /etc/postgresql-common/createcluster.conf
}

# install_missing PACKAGE...: installs the packages that are missing; prints nothing when none is.
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
        { [[ " ${missing[*]} " != *" postgresql "* ]] || prepare_postgresql; } &&
        install_packages "${missing[@]}"; } >&2 ||
        { echo "Could not install: ${missing[*]}" >&2; return 1; }
}

# build_preset NAME [TARGET...]: configures and builds. It always configures again, which takes a second, to find
# packages that were installed since the last time (./run, for example, does not install what the tests need).
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

# use_ccache: lets presets that compile a source in the same way (release, headless) share the result.
use_ccache() {
    command -v ccache >/dev/null 2>&1 || return 0
    export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}
    export CCACHE_SLOPPINESS=${CCACHE_SLOPPINESS-pch_defines,time_macros} # as ccache's manual asks for compiled headers
}
