#!/usr/bin/env bash
# Uses the libraries as others get them: out of the packages, or installed and moved elsewhere where
# packages cannot be made.
#
#   package_test.sh linux|windows CMAKE BUILD_DIRECTORY POINTER_SIZE [EMULATOR...]
#
# CC, CXX, CFLAGS, CXXFLAGS, CMAKE_GENERATOR and CMAKE_TOOLCHAIN_FILE say how the library was built.
set -euo pipefail
export LC_ALL=C
system=$1 cmake=$2 build=$3 pointer_size=$4 emulator=("${@:5}")
here=$(cd "$(dirname "$0")" && pwd)

# Beneath the build: an emulator may see nothing else.
folder=$build/package/test
rm -rf "$folder"
mkdir -p "$folder"
trap 'rm -rf "$folder"' EXIT
cd "$folder"

fail() { echo "FAILED: $*" >&2; exit 1; }

quietly() { "$@" >log 2>&1 || { cat log >&2; fail "$*"; }; }

# make_packages GENERATOR: in packages/, whatever the umask.
make_packages() {
    (umask 077
        quietly "$(dirname "$cmake")/cpack" --config "$build/CPackConfig.cmake" -G "$1" -B "$PWD/packages")
    rm -rf packages/_CPack_Packages
}

files_in() { (cd "$1" && find . ! -type d -printf '%P\n'); }

# holds LISTING PATTERN...: every pattern is a file in the listing, and no other file is there.
holds() {
    local listing=$1 pattern
    shift
    for pattern; do
        grep -qxE "$pattern" "$listing" || fail "no $pattern in: $(cat "$listing")"
    done
    ! grep -vxE "$(IFS='|'; echo "$*")" "$listing" || fail "files that should not be there"
}

lib='lib/([^/]+/)?'
development=(include/orva/{orva.h,convert.h,convert.hpp} "$lib"liborva{,-convert}.a
    "$lib"cmake/orva/orva-{config,config-version,targets,targets-release}.cmake
    "$lib"pkgconfig/orva{,-convert}.pc share/doc/orva/{{README,CHANGELOG,CONTRIBUTING}.md,COPYRIGHT}
    'share/doc/orva/docs/[a-z-]+\.(md|png)' 'share/doc/orva/examples/[a-z-]+/[^/]+')
links=("$lib"liborva{,-convert}.so)
tools=(bin/orva share/man/man1/orva.1.gz share/bash-completion/completions/orva)
shared=("$lib"liborva{,-convert}.so.0{,.1.0})
plugin=()  # for GStreamer, if it was built
[ ! -e "$build/gst/libgstorva.so" ] || plugin=("$lib"gstreamer-1.0/libgstorva.so)

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

# build_host FOLDER CMAKE_OPTION...: in a folder of the same name here.
build_host() {
    local name
    name=$(basename "$1")
    quietly "$cmake" -S "$1" -B "$name" "${@:2}"
    quietly "$cmake" --build "$name"
}

# The middles of the bars in host-cpp's picture.
picture_colours() {
    [ "$(head -c 16 bars.ppm | tr '\n' ' ')" = "P6 1280 720 255 " ] || fail "host-cpp: no picture"
    local x
    for x in 80 240 400 560 720 880 1040 1200; do
        od -An -tu1 -j $((16 + (360 * 1280 + x) * 3)) -N 3 bars.ppm
    done | awk '{ printf "red %3d  green %3d  blue %3d  alpha 255\n", $1, $2, $3 }'
}

# code LANGUAGE DOCUMENT: all that the document shows in the language.
code() { awk -v begin="^\`\`\`$1\$" '$0 ~ begin { code = 1; next } /^```$/ { code = 0 } code' "$2"; }

# The programs that capture-ring and crop-c were made into, as commands. Their sums were worked out
# another way.
check_ring() {
    "$@" 25 | tr -d '\r' | grep -x 'checksum 2332c27f09d3eca5' >/dev/null || fail "capture-ring: other frames"
}
check_crop() {
    "$@" crop.ppm
    [ "$(cksum <crop.ppm)" = "13677668 1555215" ] || fail "crop-c: another picture"
    ! "$@" other.ppm 81 2>said || fail "crop-c takes an odd part of 4:2:2"
    grep -q '^crop-c: x is 81: begin at an even pixel' said || fail "crop-c said: $(cat said)"
}

# build_c OUTPUT SOURCE FLAG..., and the same in C++ with a compiler.
build_c() {
    # shellcheck disable=SC2086  # flags are several words
    quietly "$CC" -std=c99 -O1 -Wall -Wextra -Werror ${CFLAGS:-} "$2" -o "$1" "${@:3}"
}
build_cpp() {
    # shellcheck disable=SC2086
    quietly "$1" -std=c++20 -O1 -Wall -Wextra -Werror ${CXXFLAGS:-} "$3" -o "$2" "${@:4}"
}

# All into one folder, as dpkg does it.
unpack_debian_packages() {
    make_packages DEB
    local package
    mkdir unpacked
    for package in packages/*.deb; do
        ! dpkg-deb -c "$package" | grep '^d' | grep -v '^drwxr-xr-x' || fail "$package: closed folders"
        dpkg-deb -f "$package" >"$(basename "$package" | cut -d_ -f1).control"
        mkdir one
        dpkg-deb -x "$package" one
        files_in one/usr >"$(basename "$package" | cut -d_ -f1).files"
        cp -a one/. unpacked
        rm -rf one
    done
    holds liborva0.files "${shared[@]}" 'share/doc/liborva0/copyright'
    holds liborva-dev.files "${links[@]}" "${development[@]}" 'share/doc/liborva-dev/copyright'
    holds orva-tools.files "${tools[@]}" 'share/doc/orva-tools/copyright'
    if [ ${#plugin[@]} -gt 0 ]; then
        holds gstreamer1.0-orva.files "${plugin[@]}" 'share/doc/gstreamer1.0-orva/copyright'
        grep -q 'Depends: liborva0 (= .*libgstreamer-plugins-base1.0-0 (>= ' gstreamer1.0-orva.control ||
            fail "what gstreamer1.0-orva needs"
    fi
    grep -qx 'Depends: libc6 (>= [0-9.]*)' liborva0.control || fail "what liborva0 needs"
    grep -q 'Depends: .*libstdc++6 (>= ' orva-tools.control || fail "what orva-tools needs"
    # Else those of another architecture could not be installed beside them.
    grep -qx 'Multi-Arch: same' liborva0.control || fail "liborva0 is for one architecture"
    grep -q '^lib/[^/]*-linux-gnu/' liborva0.files || fail "liborva0 is not in its architecture's folder"
}

check_linux() {
    quietly "$cmake" --install "$build" --prefix "$PWD/installed"
    files_in installed >installed.files
    holds installed.files "${shared[@]}" "${links[@]}" "${development[@]}" "${tools[@]}" \
        ${plugin[@]+"${plugin[@]}"}
    local prefix
    if command -v dpkg-shlibdeps >/dev/null; then
        unpack_debian_packages
        prefix=$PWD/unpacked/usr
    else
        echo "No dpkg here: the .deb files are not tested."
        prefix=$PWD/moved
        mv installed "$prefix"
    fi
    "$prefix/bin/orva" selftest >/dev/null || fail "the installed program"
    # Without the time and the name of the file that was compressed, as gzip -n leaves it.
    [ "$(od -An -v -tx1 -N 9 "$prefix/share/man/man1/orva.1.gz" | tr -d ' ')" = 1f8b08000000000002 ] ||
        fail "the manual page is not compressed as Debian does it"

    local examples=$prefix/share/doc/orva/examples where=(-DCMAKE_PREFIX_PATH="$prefix")
    if [ "$pointer_size" = 4 ]; then
        # A 64-bit system's compiler does not know where 32-bit packages are.
        where+=(-DCMAKE_LIBRARY_ARCHITECTURE=i386-linux-gnu)
    fi
    build_host "$examples/host-c" "${where[@]}"
    ./host-c/host-c | same_colours host-c
    build_host "$examples/host-cpp" "${where[@]}"
    ./host-cpp/host-cpp bars.ppm
    picture_colours | same_colours host-cpp
    build_host "$examples/capture-ring" "${where[@]}"
    check_ring ./capture-ring/capture-ring
    build_host "$examples/crop-c" "${where[@]}"
    check_crop ./crop-c/crop-c
    build_host "$here/checked-host" "${where[@]}"
    local kind
    for kind in convert convert-static; do
        ./checked-host/host-$kind | same_colours "the checked host with orva::$kind"
    done

    local exports checked static
    PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name orva.pc)")
    LD_LIBRARY_PATH=$(dirname "$(find "$prefix" -name liborva.so.0)")
    export PKG_CONFIG_PATH LD_LIBRARY_PATH
    read -ra exports <<<"$(pkg-config --cflags --libs orva)"
    read -ra checked <<<"$(pkg-config --cflags --libs orva-convert)"
    read -ra static <<<"$(pkg-config --static --cflags --libs orva-convert)"

    if [ ${#plugin[@]} -gt 0 ] && command -v gst-inspect-1.0 >/dev/null; then
        GST_REGISTRY=$PWD/registry GST_PLUGIN_PATH=$LD_LIBRARY_PATH/gstreamer-1.0 \
            gst-inspect-1.0 orvaconvert >/dev/null || fail "the installed element"
    fi
    build_c plain "$examples/host-c/main.c" "${exports[@]}"
    ./plain | same_colours "host-c by pkg-config"
    build_c checked "$here/checked-host/main.c" "${checked[@]}"
    ./checked | same_colours "the checked host by pkg-config"
    build_c static "$here/checked-host/main.c" -static "${static[@]}"
    ./static | same_colours "the static host by pkg-config"
    if [ "$pointer_size" = 4 ]; then
        build_c misaligned "$here/misaligned_host.c" -I"$build/generated/include" "${exports[@]}"
        ./misaligned || fail "misaligned stack"
    elif command -v python3 >/dev/null; then
        python3 "$here/checked-host/main.py" liborva-convert.so.0 | same_colours "the host in Python"
        code python "$prefix/share/doc/orva/docs/getting-started.md" | python3 - >white
        [ "$(cat white)" = "255 255 255 255" ] || fail "the documented host in Python"
    fi

    code c "$prefix/share/doc/orva/README.md" >readme.c
    build_c readme.o readme.c -c -I"$prefix/include"
    code c "$prefix/share/doc/orva/docs/getting-started.md" >getting-started.c
    build_c documented "$here/documented.c" -I. "${checked[@]}" "${exports[@]}"
    ./documented 2>/dev/null || fail "what is documented in C"
    code cpp "$prefix/share/doc/orva/docs/getting-started.md" >getting-started.cpp
    build_cpp "$CXX" getting-started.o getting-started.cpp -c -I"$prefix/include"

    # Compilers other than the library's own use the same binary.
    local compiler
    code cpp "$prefix/share/doc/orva/README.md" >readme.cpp
    for compiler in g++ clang++; do
        command -v "$compiler" >/dev/null || continue
        build_cpp "$compiler" readme readme.cpp "${checked[@]}"
        ./readme || fail "the README's program, made by $compiler"
        build_cpp "$compiler" bars "$examples/host-cpp/main.cpp" "${checked[@]}"
        ./bars bars.ppm
        picture_colours | same_colours "host-cpp, made by $compiler"
    done

    # Whole, so that no object is left out.
    local archive=$LD_LIBRARY_PATH name
    build_c plugin.so "$here/plugin.c" -shared -fPIC -fvisibility=hidden -I"$prefix/include" \
        "$archive/liborva.a" "$archive/liborva-convert.a"
    for name in orva orva-convert; do
        build_c "$name.so" "$here/plugin.c" -shared -fPIC -fvisibility=hidden -I"$prefix/include" \
            -Wl,--whole-archive "$archive/lib$name.a" -Wl,--no-whole-archive
    done
    for name in plugin orva orva-convert; do
        [ "$(nm -D --defined-only "$name.so" | awk '{ print $NF }')" = plugin ] ||
            fail "$name.so shows what is linked into it"
    done
}

check_windows() {
    make_packages ZIP
    "$cmake" -E tar xf packages/*.zip
    local prefix processor=x64
    [ "$pointer_size" = 8 ] || processor=x86
    prefix=$(echo "$PWD"/orva-*-windows-$processor)
    files_in "$prefix" >listing
    holds listing "${development[@]}" bin/orva.exe bin/orva{,-convert}.dll \
        lib/orva{,-convert}.{lib,def} lib/liborva{,-convert}.dll.a

    # host NAME SOURCE FLAG...: beside the DLLs, where Windows looks for them.
    host() {
        build_c "$prefix/bin/$1.exe" "$2" -I"$prefix/include" "${@:3}"
        "${emulator[@]}" "$prefix/bin/$1.exe"
    }
    local examples=$prefix/share/doc/orva/examples linked
    for linked in orva.lib liborva.dll.a; do
        host plain "$examples/host-c/main.c" "$prefix/lib/$linked" | same_colours "host-c with $linked"
    done
    for linked in orva-convert.lib liborva-convert.dll.a; do
        host checked "$here/checked-host/main.c" "$prefix/lib/$linked" |
            same_colours "the checked host with $linked"
    done
    host static "$here/checked-host/main.c" -DORVA_CONVERT_STATIC "$prefix/lib/liborva-convert.a" \
        -static -fstack-protector-all | same_colours "the static host"
    if [ "$pointer_size" = 4 ]; then
        host misaligned "$here/misaligned_host.c" -I"$build/generated/include" \
            "$prefix/lib/liborva.dll.a" || fail "misaligned stack"
    fi

    local name
    for name in host-cpp capture-ring crop-c; do
        build_host "$examples/$name" -Dorva_DIR="$prefix/lib/cmake/orva" -DCMAKE_EXE_LINKER_FLAGS=-static
        cp "$name/$name.exe" "$prefix/bin"
    done
    "${emulator[@]}" "$prefix/bin/host-cpp.exe" bars.ppm
    picture_colours | same_colours host-cpp
    check_ring "${emulator[@]}" "$prefix/bin/capture-ring.exe"
    check_crop "${emulator[@]}" "$prefix/bin/crop-c.exe"
    "${emulator[@]}" "$prefix/bin/orva.exe" selftest >/dev/null || fail "the packaged program"
    # Names that no code page has all letters of, written and read.
    mkdir 'grün'
    local clip=(--format A8P --size 4x2 'grün/日本.raw')
    for name in pattern info; do
        LC_ALL=C.UTF-8 "${emulator[@]}" "$prefix/bin/orva.exe" $name "${clip[@]}" >/dev/null ||
            fail "$name of a file whose name is not ASCII"
    done
    [ "$(ls -A 'grün')" = '日本.raw' ] || fail "names that are not ASCII became $(ls -A 'grün')"
}

"check_$system"
