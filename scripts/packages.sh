# Debian packages by purpose, and how they are installed. Sourced by run, test, bench and .ci/run.

PACKAGES_BUILD="g++ cmake ninja-build qt6-base-dev libgif-dev libcli11-dev nlohmann-json3-dev fonts-dejavu-core"
PACKAGES_TEST="$PACKAGES_BUILD libgtest-dev libgmock-dev chromium"
PACKAGES_BENCH="$PACKAGES_BUILD libbenchmark-dev"
PACKAGES_CHECK="$PACKAGES_TEST clang-format clang-tidy"

# need PACKAGE...: installs those that are missing, and says so.
need() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    echo "Installing Debian packages: ${missing[*]}"
    local as_root=""
    if [ "$(id -u)" -ne 0 ]; then as_root="sudo"; fi
    export DEBIAN_FRONTEND=noninteractive
    $as_root apt-get update -qq
    $as_root apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# build PRESET [CMAKE ARGUMENT...]: configures and builds one of CMakePresets.json.
build() {
    local preset=$1
    shift
    cmake --preset "$preset" "$@" >"build/$preset-configure.log" 2>&1 || { cat "build/$preset-configure.log"; return 1; }
    cmake --build --preset "$preset" | { grep -v '^ninja: no work to do' || true; }
}
