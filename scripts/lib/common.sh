# Shared by scripts/test, scripts/demo and scripts/bench: packages, builds and
# the Wine environment. Source it; it sets ROOT and BUILD.
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
BUILD="$ROOT/build"
JOBS=$(nproc 2>/dev/null || echo 2)

log() { printf '== %s\n' "$*" >&2; }

# Debian packages the builds and tests need. i386 multiarch is not used:
# 32-bit code is built and inspected, the 64-bit build runs under wine64.
PACKAGES=(cmake make g++ pkg-config
          g++-mingw-w64-i686 g++-mingw-w64-x86-64 mingw-w64-tools binutils-mingw-w64-i686
          wine wine64 xvfb xauth
          googletest libgtest-dev clang libclang-rt-14-dev
          libz-mingw-w64-dev libminizip-dev zlib1g-dev dpkg-dev)

ensure_packages() {
    local missing=() package
    for package in "${PACKAGES[@]}" "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    log "installing: ${missing[*]}"
    local sudo=""
    [ "$(id -u)" -ne 0 ] && sudo=sudo
    $sudo apt-get update -q >/dev/null || return 1
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -q --no-install-recommends "${missing[@]}" >/dev/null
}

# minizip's unzip/zip sources from Debian's zlib source package, unpacked once
# into build/deps (never into the repository). Prints the minizip folder.
minizip_source() {
    local deps="$BUILD/deps" found
    found=$(ls -d "$deps"/zlib-*/contrib/minizip 2>/dev/null | head -n 1)
    if [ -z "$found" ]; then
        log "fetching Debian's zlib source package for minizip"
        local list=/etc/apt/sources.list.d/dovrixc-deb-src.sources sudo=""
        [ "$(id -u)" -ne 0 ] && sudo=sudo
        if ! grep -rqs '^Types:.*deb-src' /etc/apt/sources.list.d/ && ! grep -qs '^deb-src' /etc/apt/sources.list; then
            # The same mirrors as the binary packages, for sources.
            sed 's/^Types: deb$/Types: deb-src/' /etc/apt/sources.list.d/debian.sources | $sudo tee "$list" >/dev/null
        fi
        $sudo apt-get update -q >/dev/null
        mkdir -p "$deps"
        (cd "$deps" && apt-get source -q zlib >"$BUILD/deps.log" 2>&1) || { tail -n 20 "$BUILD/deps.log" >&2; return 1; }
        found=$(ls -d "$deps"/zlib-*/contrib/minizip 2>/dev/null | head -n 1)
    fi
    [ -n "$found" ] && printf '%s' "$found"
}

build_number() {
    git -C "$ROOT" rev-list --count HEAD 2>/dev/null || echo 0
}

# configure_and_build NAME [cmake arguments...]
configure_and_build() {
    local name=$1
    shift
    cmake -S "$ROOT" -B "$BUILD/$name" -DDOVRIXC_BUILD_NUMBER="$(build_number)" "$@" >"$BUILD/$name.configure.log" 2>&1 &&
        cmake --build "$BUILD/$name" -j"$JOBS" >"$BUILD/$name.build.log" 2>&1
    local status=$?
    [ $status -ne 0 ] && { log "build $name failed:"; tail -n 30 "$BUILD/$name.build.log" "$BUILD/$name.configure.log" >&2; }
    return $status
}

build_windows() {
    configure_and_build "$1" -DCMAKE_TOOLCHAIN_FILE="$ROOT/cmake/mingw-$1.cmake" -DCMAKE_BUILD_TYPE=Release \
        -DMINIZIP_SOURCE_DIR="$(minizip_source)"
}

# The sample firmware packages beside each Windows build's workbench, written
# by the native build's makepackages.
sample_packages() {
    local tool="$BUILD/native/makepackages" bin
    if [ ! -x "$tool" ]; then
        configure_and_build native -DCMAKE_BUILD_TYPE=Debug || return 1
    fi
    for bin in "$BUILD"/x86_64/bin "$BUILD"/i686/bin; do
        [ -d "$bin" ] && { "$tool" "$bin" || return 1; }
    done
    return 0
}

# A Wine prefix of the build's own, quiet and non-interactive.
wine_env() {
    export WINEPREFIX="$BUILD/wineprefix"
    export WINEDEBUG=-all
    export WINEDLLOVERRIDES="mscoree,mshtml="
    export WINE=/usr/lib/wine/wine64 WINESERVER=/usr/lib/wine/wineserver64
    [ -x "$WINE" ] || WINE=$(command -v wine64 || command -v wine)
    [ -x "$WINESERVER" ] || WINESERVER=$(command -v wineserver)
    if [ ! -f "$WINEPREFIX/.dovrixc-ready" ]; then
        log "creating the Wine prefix"
        mkdir -p "$WINEPREFIX"
        # No crash dialog; no window manager under Xvfb, so Wine must not wait for one.
        in_xvfb bash -c '"$WINE" wineboot -i &&
            "$WINE" reg add "HKCU\Software\Wine\WineDbg" /v ShowCrashDialog /t REG_DWORD /d 0 /f &&
            "$WINE" reg add "HKCU\Software\Wine\X11 Driver" /v Managed /t REG_SZ /d N /f' >/dev/null 2>&1
        # Wine's own fonts (Tahoma, Marlett for the caption buttons, MS Sans
        # Serif) are found only in the prefix's Fonts folder here.
        cp -n /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/" 2>/dev/null
        touch "$WINEPREFIX/.dovrixc-ready"
    fi
}

# Runs a command under a private X server and waits for Wine to wind down
# before the server goes, so no client loses its display mid-way.
in_xvfb() {
    xvfb-run -a bash -c '"$@"; status=$?; "${WINESERVER:-wineserver}" -w; exit $status' in_xvfb "$@"
}

# The Windows form of a Unix path, as Wine maps the root to Z:.
winpath() {
    local path
    path=$(cd "$(dirname "$1")" && pwd)/$(basename "$1")
    printf 'Z:%s' "${path//\//\\}"
}

# The libFuzzer targets of build/fuzz (fuzz/), each with its seed corpus in
# fuzz/corpus/NAME.
FUZZ_TARGETS=(designline keyrecord values device extraction package)

# fuzz_target NAME SECONDS: one bounded run on the target's seed corpus and the
# corpus it grew before (build/fuzz-corpus/NAME); findings are written to
# build/fuzz-findings/NAME/. The log is build/fuzz-NAME.log; fails on a finding.
fuzz_target() {
    local name=$1 seconds=$2
    local fuzzer="$BUILD/fuzz/fuzz/${name}_fuzzer" corpus="$BUILD/fuzz-corpus/$name"
    local findings="$BUILD/fuzz-findings/$name"
    [ -x "$fuzzer" ] || { log "no ${name}_fuzzer"; return 1; }
    mkdir -p "$corpus" "$findings"
    "$fuzzer" -max_total_time="$seconds" -max_len=4096 -print_final_stats=1 -artifact_prefix="$findings/" \
        "$corpus" "$ROOT/fuzz/corpus/$name" >"$BUILD/fuzz-$name.log" 2>&1
}
