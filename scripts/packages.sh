# Sourced by ./view and ./test: installs the Debian packages that are missing, and nothing when all are there.

# Compiler and libraries of the library and the example host, whose window needs Qt. The font is what board texts are
# drawn with.
build_packages="g++ cmake ninja-build pkg-config libfreetype-dev libfontconfig-dev libjpeg62-turbo-dev libpng-dev \
libcurl4-openssl-dev ca-certificates fonts-dejavu-core qt6-base-dev"
# What the benchmarks compare with; each of them may be missing.
peer_packages="libagg-dev libboost-dev libboost-serialization-dev libcairo2-dev libcereal-dev libcgal-dev libgeos-dev \
libpcre2-dev libre2-dev"
# On top of those: what the tests of documents, packages, the window and the Windows build need, the test framework, the
# benchmark framework with its peers, and fourteen real boards.
test_packages="doxygen make dpkg-dev file g++-mingw-w64-x86-64-posix libgtest-dev libbenchmark-dev kicad-demos \
$peer_packages xvfb xdotool xclip imagemagick"

need_packages() {
    local missing=() package
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    if ! command -v apt-get >/dev/null; then
        echo "no apt-get here; needed are: ${missing[*]} (or their like)" >&2
        return 0
    fi
    local root=()
    [ "$(id -u)" -eq 0 ] || root=(sudo)
    echo "installing: ${missing[*]}"
    "${root[@]}" apt-get update -qq
    DEBIAN_FRONTEND=noninteractive "${root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}
