# The Debian 12 packages that building needs, for ./run and ./test. Sourced.

# To build and show the program.
RunPackages=(
    g++ cmake ninja-build ccache
    qt6-base-dev qt6-serialport-dev qt6-svg-dev qt6-translations-l10n
    libsqlite3-dev libpugixml-dev
    libjpeg62-turbo-dev libzstd-dev libxxhash-dev pkg-config
    fonts-dejavu-core
)
# To test it.
TestPackages=("${RunPackages[@]}" libgtest-dev libgmock-dev clang-format poppler-utils gpsbabel gdal-bin)
# For what runs with CI=true alone: the fuzz targets.
CiPackages=(clang libclang-rt-14-dev)

# EnsurePackages NAME...: installs those that are missing; does not touch apt when none is.
EnsurePackages() {
    local missing=() name
    for name in "$@"; do
        [[ $(dpkg-query -W -f '${db:Status-Status}' "$name" 2>/dev/null) == installed ]] || missing+=("$name")
    done
    ((${#missing[@]} == 0)) && return

    local root=()
    if ((EUID != 0)); then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing; install them as root: ${missing[*]}" >&2
            return 1
        fi
        root=(sudo)
    fi
    echo "Installing ${missing[*]}"
    "${root[@]}" apt-get update -q
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}"
}

# BuildTargets PRESET [TARGET...]: configures build/PRESET when it is new, then builds.
BuildTargets() {
    local preset=$1
    shift
    [[ -f build/$preset/build.ninja ]] || cmake --preset "$preset"
    cmake --build "build/$preset" ${1:+--target "$@"}
}
