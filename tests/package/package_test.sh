#!/usr/bin/env bash
# Uses the library as others get it: installed and moved elsewhere, or out of the package.
#
#   package_test.sh linux|windows CMAKE BUILD_DIRECTORY POINTER_SIZE [EMULATOR]
#
# CC, CXX, CFLAGS, CXXFLAGS, CMAKE_GENERATOR and CMAKE_TOOLCHAIN_FILE say how the library was built.
set -euo pipefail
export LC_ALL=C
system=$1 cmake=$2 build=$3 pointer_size=$4 emulator=${5:-}
here=$(cd "$(dirname "$0")" && pwd)

# Beneath the build: an emulator may see nothing else.
folder=$build/package/test
rm -rf "$folder"
mkdir -p "$folder"
trap 'rm -rf "$folder"' EXIT
cd "$folder"

fail() { echo "FAILED: $*" >&2; exit 1; }

quietly() { "$@" >log 2>&1 || { cat log >&2; fail "$*"; }; }

# make_package GENERATOR: one file in packages/.
make_package() {
    quietly "$(dirname "$cmake")/cpack" --config "$build/CPackConfig.cmake" -G "$1" -B "$PWD/packages"
    rm -rf packages/_CPack_Packages
}

# holds LISTING PATTERN...: every pattern is a file in the listing, and no other file is there.
holds() {
    local listing=$1 pattern
    shift
    for pattern; do
        grep -qxE "$pattern" "$listing" || fail "no $pattern in: $(cat "$listing")"
    done
    ! grep -vxE "$(IFS='|'; echo "$*")" "$listing" || fail "files that should not be there"
}

headers='include/orva/(orva\.h|convert\.h|convert\.hpp)'
configs='lib/([^/]+/)?cmake/orva/orva-(config|config-version|targets|targets-release)\.cmake'
documents='share/doc/orva/(README|CHANGELOG)\.md'
examples='share/doc/orva/examples/host-(c|cpp)/(CMakeLists\.txt|main\.c(pp)?)'

cat >colours <<'END'
red 255  green 255  blue 255  alpha 255
red 254  green 255  blue   0  alpha 255
red   0  green 254  blue 255  alpha 255
red   0  green 255  blue   1  alpha 255
red 255  green   0  blue 254  alpha 255
red 255  green   1  blue   0  alpha 255
red   1  green   0  blue 255  alpha 255
red   0  green   0  blue   0  alpha 255
END

same_colours() { tr -d '\r' | diff colours - || fail "$1: other colours"; }

# build_example NAME PREFIX CMAKE_OPTION...
build_example() {
    cp -r "$2/share/doc/orva/examples/$1" "$1.source"
    quietly "$cmake" -S "$1.source" -B "$1" "${@:3}"
    quietly "$cmake" --build "$1"
}

# The middles of the bars in host-cpp's picture.
picture_colours() {
    [ "$(head -c 16 bars.ppm | tr '\n' ' ')" = "P6 1280 720 255 " ] || fail "host-cpp: no picture"
    local x
    for x in 80 240 400 560 720 880 1040 1200; do
        od -An -tu1 -j $((16 + (360 * 1280 + x) * 3)) -N 3 bars.ppm
    done | awk '{ printf "red %3d  green %3d  blue %3d  alpha 255\n", $1, $2, $3 }'
}

# build_with_compiler OUTPUT SOURCE FLAG...
build_with_compiler() {
    # shellcheck disable=SC2086  # flags are several words
    quietly "$CC" -std=c99 -O1 -Wall -Wextra -Werror ${CFLAGS:-} "$2" -o "$1" "${@:3}"
}

check_linux() {
    quietly "$cmake" --install "$build" --prefix "$PWD/installed"
    mv installed moved
    local prefix=$PWD/moved
    (cd moved && find . ! -type d -printf '%P\n') >listing
    holds listing "$headers" "$configs" "$documents" "$examples" bin/orva \
        'lib/([^/]+/)?liborva(-convert)?\.so(\.0|\.0\.1\.0)?' 'lib/([^/]+/)?liborva(-convert)?\.a' \
        'lib/([^/]+/)?pkgconfig/orva\.pc'
    "$prefix/bin/orva" formats >/dev/null || fail "the installed program"

    build_example host-c "$prefix" -DCMAKE_PREFIX_PATH="$prefix"
    ./host-c/host-c | same_colours host-c
    build_example host-cpp "$prefix" -DCMAKE_PREFIX_PATH="$prefix"
    ./host-cpp/host-cpp bars.ppm
    picture_colours | same_colours host-cpp

    PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name orva.pc)")
    export PKG_CONFIG_PATH
    local flags library_path
    library_path=$(pkg-config --variable=libdir orva)
    read -ra flags <<<"$(pkg-config --cflags --libs orva)"
    build_with_compiler plain host-c.source/main.c "${flags[@]}"
    LD_LIBRARY_PATH=$library_path ./plain | same_colours "host-c by pkg-config"
    if [ "$pointer_size" = 4 ]; then
        build_with_compiler misaligned "$here/misaligned_host.c" -I"$build/generated/include" "${flags[@]}"
        LD_LIBRARY_PATH=$library_path ./misaligned || fail "misaligned stack"
    fi

    if ! command -v dpkg-shlibdeps >/dev/null; then
        echo "No dpkg here: the .deb is not tested."
        return
    fi
    make_package DEB
    local package
    package=$(echo packages/*)
    dpkg-deb -c "$package" | awk '$1 !~ /^d/ { print $6 }' | sed 's|^\./usr/||' >packed
    diff <(sort listing) <(sort packed) || fail "$package does not hold what is installed"
    dpkg-deb -f "$package" Depends | grep -E '\blibc6\b' >/dev/null || fail "$package: dependencies"
    dpkg-deb -x "$package" unpacked
    unpacked/usr/bin/orva formats >/dev/null || fail "the packaged program"
}

check_windows() {
    make_package ZIP
    "$cmake" -E tar xf packages/*.zip
    local prefix
    prefix=$(echo "$PWD"/orva-*-windows-x86)
    (cd "$prefix" && find . ! -type d -printf '%P\n') >listing
    holds listing "$headers" "$configs" "$documents" "$examples" bin/orva.exe bin/orva.dll \
        bin/orva-convert.dll lib/liborva.dll.a lib/liborva-convert.dll.a lib/liborva{,-convert}.a lib/pkgconfig/orva.pc

    local library=("-I$prefix/include" "$prefix/lib/liborva.dll.a")
    build_with_compiler "$prefix/bin/plain.exe" "$prefix/share/doc/orva/examples/host-c/main.c" \
        "${library[@]}"
    "$emulator" "$prefix/bin/plain.exe" | same_colours "host-c"
    build_with_compiler "$prefix/bin/misaligned.exe" "$here/misaligned_host.c" \
        -I"$build/generated/include" "${library[@]}"
    "$emulator" "$prefix/bin/misaligned.exe" || fail "misaligned stack"

    build_example host-cpp "$prefix" -Dorva_DIR="$prefix/lib/cmake/orva" \
        -DCMAKE_EXE_LINKER_FLAGS=-static
    cp host-cpp/host-cpp.exe "$prefix/bin"
    "$emulator" "$prefix/bin/host-cpp.exe" bars.ppm
    picture_colours | same_colours host-cpp
    "$emulator" "$prefix/bin/orva.exe" formats >/dev/null || fail "the packaged program"
}

"check_$system"
