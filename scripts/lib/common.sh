# Shared by scripts/test, scripts/demo and scripts/bench: packages, builds and
# the Wine environment. Source it; it sets ROOT and BUILD.
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
BUILD="$ROOT/build"
JOBS=$(nproc 2>/dev/null || echo 2)

log() { printf '== %s\n' "$*" >&2; }

# Debian packages the builds and tests need. clang, lld and llvm also stand in
# for Microsoft's compiler at the module boundary (tools/abi, tests/abi).
# 32-bit Wine (wine32:i386) comes separately, through ensure_wine32.
PACKAGES=(cmake make g++ pkg-config
          g++-mingw-w64-i686 g++-mingw-w64-x86-64 mingw-w64-tools binutils-mingw-w64-i686 binutils-mingw-w64-x86-64
          wine wine64 fonts-wine xvfb xauth
          googletest libgtest-dev clang libclang-rt-14-dev lld llvm python3
          libz-mingw-w64-dev libminizip-dev zlib1g-dev dpkg-dev)

SUDO=""
[ "$(id -u)" -ne 0 ] && SUDO=sudo

# Under pipefail no pipeline may end in a reader that stops early (grep -q,
# head): the writer dies of SIGPIPE and the test fails at random. Outputs are
# read into variables first and tested there.
installed() {
    local status
    status=$(dpkg-query -W -f='${Status}' "$1" 2>/dev/null)
    [[ $status == *"install ok installed"* ]]
}

# apt-get update, once a run. Its status is not trusted either way: an index
# that fails its signed checksum (a mirror caught mid-sync) makes it fail,
# yet apt then simply goes without that index. What the install finds decides.
APT_UPDATED=""
apt_update() {
    [ -n "$APT_UPDATED" ] && return 0
    mkdir -p "$BUILD"
    $SUDO apt-get update -q >"$BUILD/apt-update.log" 2>&1 ||
        log "apt-get update reported errors; going on with the indexes it could verify (build/apt-update.log)"
    APT_UPDATED=1
}

ensure_packages() {
    local missing=() package
    for package in "${PACKAGES[@]}" "$@"; do
        installed "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    log "installing: ${missing[*]}"
    apt_update
    DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -q --no-install-recommends "${missing[@]}" >/dev/null
}

# 32-bit Wine, to run the product's own (i686) build. Sets WINE32 to 1 when it
# is there. wine32:i386 pulls in i386 twins of libraries installed on amd64;
# Multi-Arch "same" twins must be of one version, and a mirror's i386 index
# can lag behind its amd64 one (the security suite's, typically). So the
# install targets the release, whose versions both architectures have, and a
# twin whose amd64 version has no i386 build goes to the newest version both
# have, on both architectures.
WINE32=0
# 1 when the package sources offer wine32:i386: then the product must be tested.
WINE32_OFFERED=0
ensure_wine32() {
    if installed wine32:i386; then
        WINE32=1
        return 0
    fi
    local started=$SECONDS release pins
    release=$(. /etc/os-release && printf '%s' "${VERSION_CODENAME:-}")
    log "installing 32-bit Wine (wine32:i386)"
    local foreign
    foreign=$(dpkg --print-foreign-architectures)
    if ! grep -qx i386 <<<"$foreign"; then
        $SUDO dpkg --add-architecture i386 || { no_wine32 "the i386 architecture cannot be added"; return 1; }
        APT_UPDATED=""
    fi
    apt_update
    local policy
    policy=$(apt-cache policy wine32:i386 2>/dev/null)
    if ! grep -q '^  Candidate: [^(]' <<<"$policy"; then
        no_wine32 "the package sources offer no wine32:i386"
        return 1
    fi
    WINE32_OFFERED=1
    # The release as the package sources name it; else no target at all.
    policy=$(apt-cache policy 2>/dev/null)
    grep -q "n=$release," <<<"$policy" || release=""
    pins=$(twin_pins "$release") || { no_wine32 "an i386 library has no version in common with its amd64 twin"; return 1; }
    local command=(apt-get install -y -q --no-install-recommends --allow-downgrades ${release:+-t "$release"} wine32:i386 $pins)
    # Dry run first: nothing of this machine is removed for it.
    if ! LC_ALL=C apt-get -s "${command[@]:1}" >"$BUILD/wine32-install.log" 2>&1 ||
        grep -q '^Remv ' "$BUILD/wine32-install.log"; then
        no_wine32 "apt cannot install wine32:i386 without removing packages, see build/wine32-install.log"
        return 1
    fi
    [ -n "$pins" ] && log "one version on both architectures:$pins"
    if ! DEBIAN_FRONTEND=noninteractive $SUDO "${command[@]}" >>"$BUILD/wine32-install.log" 2>&1; then
        no_wine32 "installing wine32:i386 failed, see build/wine32-install.log"
        return 1
    fi
    log "32-bit Wine installed in $((SECONDS - started)) s"
    WINE32=1
}

no_wine32() {
    log "no 32-bit Wine ($1): the i686 build does not run here, the x86_64 build runs alone"
}

# twin_pins RELEASE: " NAME:amd64=V NAME:i386=V" for every library that
# wine32:i386 needs whose Multi-Arch "same" amd64 twin is installed and whose
# i386 candidate (with the release targeted) differs from what amd64 will
# have. V is the amd64 version when i386 has it, else the newest version both
# architectures have.
twin_pins() {
    local release=$1 names=() name
    while read -r name; do
        names+=("$name:amd64" "$name:i386")
    done < <(join <(apt-cache depends --recurse --no-recommends --no-suggests --no-conflicts --no-breaks \
                        --no-replaces --no-enhances wine32:i386 2>/dev/null | sed -n 's/^\([^ <]*\):i386$/\1/p' | sort -u) \
                  <(dpkg-query -W -f='${Package} ${Architecture} ${Multi-Arch} ${db:Status-Abbrev}\n' |
                        awk '$2 == "amd64" && $3 == "same" && $4 == "ii" { print $1 }' | sort -u))
    [ ${#names[@]} -eq 0 ] && return 0
    LC_ALL=C apt-cache ${release:+-t "$release"} policy "${names[@]}" 2>/dev/null | awk '
        # Each package: its candidate and the versions some index offers
        # (not the ones only dpkg knows of), newest first as apt lists them.
        /^[^ ].*:$/ { name = substr($0, 1, length($0) - 1); arch = "amd64"
                      if (name ~ /:i386$/) { arch = "i386"; sub(/:i386$/, "", name) }
                      sub(/:amd64$/, "", name); order[name] = 1; next }
        /^  Candidate:/ { candidate[name, arch] = $2; next }
        (NF == 2 || (NF == 3 && $1 == "***")) && $NF ~ /^-?[0-9]+$/ { version = $(NF - 1); next }
        /^        [0-9]+ / && $2 != "/var/lib/dpkg/status" {
            if (!((name, arch, version) in offered)) {
                offered[name, arch, version] = 1
                list[name, arch] = list[name, arch] " " version
            }
        }
        END {
            bad = 0
            for (name in order) {
                target = candidate[name, "amd64"]
                if (target == candidate[name, "i386"]) continue
                pick = ""
                if ((name, "i386", target) in offered) pick = target
                else {
                    n = split(list[name, "amd64"], versions, " ")
                    for (i = 1; i <= n && pick == ""; i++)
                        if ((name, "i386", versions[i]) in offered) pick = versions[i]
                }
                if (pick == "") { print "no common version of " name > "/dev/stderr"; bad = 1; continue }
                printf " %s:amd64=%s %s:i386=%s", name, pick, name, pick
            }
            exit bad
        }'
}

# first_match PATTERN...: the first existing path of a glob, or nothing.
first_match() {
    local path
    for path in "$@"; do
        [ -e "$path" ] && { printf '%s' "$path"; return 0; }
    done
    return 1
}

# minizip's unzip/zip sources from Debian's zlib source package, unpacked once
# into build/deps (never into the repository). Prints the minizip folder.
minizip_source() {
    local deps="$BUILD/deps" found
    found=$(first_match "$deps"/zlib-*/contrib/minizip) || found=""
    if [ -z "$found" ]; then
        log "fetching Debian's zlib source package for minizip"
        local list=/etc/apt/sources.list.d/dovrixc-deb-src.sources
        if ! grep -rqs '^Types:.*deb-src' /etc/apt/sources.list.d/ && ! grep -qs '^deb-src' /etc/apt/sources.list; then
            # The same mirrors as the binary packages, for sources.
            sed 's/^Types: deb$/Types: deb-src/' /etc/apt/sources.list.d/debian.sources | $SUDO tee "$list" >/dev/null
        fi
        APT_UPDATED=""
        apt_update
        mkdir -p "$deps"
        (cd "$deps" && apt-get source -q zlib >"$BUILD/deps.log" 2>&1) || { tail -n 20 "$BUILD/deps.log" >&2; return 1; }
        found=$(first_match "$deps"/zlib-*/contrib/minizip) || found=""
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

# wine_env [x86_64|i686]: a Wine prefix of the build's own, quiet and
# non-interactive. The x86_64 build runs under wine64 in build/wineprefix; the
# i686 build under 32-bit Wine in a 32-bit prefix, build/wineprefix32, so no
# WoW64 layer stands between it and Wine.
wine_env() {
    local arch=${1:-x86_64}
    export WINEDEBUG=-all
    export WINEDLLOVERRIDES="mscoree,mshtml="
    if [ "$arch" = i686 ]; then
        export WINEPREFIX="$BUILD/wineprefix32" WINEARCH=win32
        export WINE=/usr/lib/wine/wine WINESERVER=/usr/lib/wine/wineserver32
    else
        export WINEPREFIX="$BUILD/wineprefix"
        unset WINEARCH
        export WINE=/usr/lib/wine/wine64 WINESERVER=/usr/lib/wine/wineserver64
        [ -x "$WINE" ] || WINE=$(command -v wine64 || command -v wine)
    fi
    [ -x "$WINESERVER" ] || WINESERVER=$(command -v wineserver)
    if [ ! -f "$WINEPREFIX/.dovrixc-ready" ]; then
        log "creating the $arch Wine prefix"
        mkdir -p "$WINEPREFIX"
        # No crash dialog; no window manager under Xvfb, so Wine must not wait for one.
        in_xvfb bash -c '"$WINE" wineboot -i &&
            "$WINE" reg add "HKCU\Software\Wine\WineDbg" /v ShowCrashDialog /t REG_DWORD /d 0 /f &&
            "$WINE" reg add "HKCU\Software\Wine\X11 Driver" /v Managed /t REG_SZ /d N /f' >/dev/null 2>&1
        touch "$WINEPREFIX/.dovrixc-ready"
    fi
    # Wine's own fonts (Tahoma for the trees, MS Sans Serif for the dialogs,
    # whose dialog units follow it, Marlett for the caption buttons) are found
    # only in the prefix's Fonts folder here; a prefix made before fonts-wine
    # was installed gets them now.
    cp -n /usr/share/wine/fonts/*.ttf /usr/share/wine/fonts/*.fon "$WINEPREFIX/drive_c/windows/Fonts/" 2>/dev/null || true
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
FUZZ_TARGETS=(designline keyrecord keyblock values device extraction package designreport hostlist keyplan)

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
