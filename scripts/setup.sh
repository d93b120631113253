# Debian packages by purpose, how they are installed, and how a preset is built. Sourced by run, test, bench, .ci/run and
# the packaging.

PACKAGES_BUILD="g++ cmake ninja-build qt6-base-dev libgif-dev libdxflib-dev libcli11-dev nlohmann-json3-dev
librsvg2-bin libtomlplusplus-dev fonts-dejavu-core"
PACKAGES_TEST="$PACKAGES_BUILD libgtest-dev libgmock-dev chromium"
PACKAGES_BENCH="$PACKAGES_BUILD libbenchmark-dev"
PACKAGES_FUZZ="$PACKAGES_BUILD clang libclang-rt-14-dev"
PACKAGES_CHECK="$PACKAGES_TEST libbenchmark-dev clang-format clang-tidy"
PACKAGES_DEB="$PACKAGES_BUILD dpkg-dev file desktop-file-utils shared-mime-info"
PACKAGES_WINDOWS="$PACKAGES_BUILD libgtest-dev libgmock-dev qt6-base-dev-tools g++-mingw-w64-x86-64-posix make dpkg-dev
nsis icoutils"
PACKAGES_DISPLAY="xvfb x11-utils"
# Without its preloader Wine fails to start two processes in ten thousand, where the system puts other things into the
# addresses that it needs.
PACKAGES_WINE="wine wine64 wine64-preloader $PACKAGES_DISPLAY"

# as_root COMMAND...: runs it with the rights to install.
as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# newest PACKAGE...: installs them, or brings them up to date.
newest() {
    as_root apt-get update -qq
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "$@" >/dev/null
}

# installed PACKAGE: whether it is.
installed() {
    dpkg-query -W -f '${Status}' "$1" 2>/dev/null | grep -q 'install ok installed'
}

# need PACKAGE...: installs those that are missing, and says so.
need() {
    local missing=() package
    for package in "$@"; do
        installed "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    echo "Installing Debian packages: ${missing[*]}"
    newest "${missing[@]}"
}

# windows_cache: where packaging/windows/build-libraries keeps what the Windows program is linked with.
windows_cache() {
    realpath -m "${PISTARO_WINDOWS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/pistaro/windows}"
}

# project_version PRESET: the version of what was built.
project_version() {
    sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "build/$1/CMakeCache.txt"
}

# Where the compiler's cache is installed, what was compiled before in whatever folder is not compiled again.
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1
fi

# build PRESET [CMAKE ARGUMENT...]: configures and builds one of CMakePresets.json.
build() {
    local preset=$1
    shift
    mkdir -p build
    cmake --preset "$preset" "$@" >"build/$preset-configure.log" 2>&1 || { cat "build/$preset-configure.log"; return 1; }
    cmake --build --preset "$preset" | { grep -v '^ninja: no work to do' || true; }
}
