#!/usr/bin/env bash
# The library as a host gets it: installs the build into a folder, moves that, compiles each header alone, builds the page's
# host and the example against the copy and runs them. installed.sh BUILD_FOLDER SOURCE_FOLDER COMPILER
set -euo pipefail

build=$1 source=$2 compiler=$3
work=$(mktemp -d)
export XDG_CONFIG_HOME=$work/config QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES=default.warning=false

end() {
    [ -z "${SERVER_PID:-}" ] || { kill "$SERVER_PID" && wait "$SERVER_PID"; } 2>/dev/null || true
    rm -rf -- "$work"
}
trap end EXIT

# expect WHAT WANTED GOT
expect() {
    [ "$2" = "$3" ] && return
    printf 'installed: %s\n--- expected\n%s\n--- came\n%s\n' "$1" "$2" "$3" >&2
    exit 1
}

cmake --install "$build" --prefix "$work/first" >/dev/null
mv "$work/first" "$work/copy"
for unexpected in "$work"/copy/include/ledgora/*/frm*.h "$work"/copy/include/ledgora/ui_*.h; do
    [ ! -e "$unexpected" ] || expect "headers of screens stay inside" "" "$unexpected"
done
expect "the program runs from its new place" "ledgora ${4:?version}" "$("$work/copy/bin/ledgora" --version)"

export PKG_CONFIG_PATH=$work/copy/lib/pkgconfig
read -ra flags <<<"$(pkg-config --cflags --libs ledgora)"
for header in "$work"/copy/include/ledgora/*/*.h; do
    "$compiler" -std=c++20 -fPIC -fsyntax-only -include "$header" "${flags[@]}" -x c++ /dev/null
done

# What the page for hosts shows is a whole program.
page_code() { sed -n "/^\`\`\`$1\$/,/^\`\`\`\$/{/^\`\`\`/!p}" "$source/docs/hosts.md"; }
mkdir "$work/page"
page_code cmake >"$work/page/CMakeLists.txt"
page_code cpp >"$work/page/main.cpp"
cmake -S "$work/page" -B "$work/host" -G Ninja -DCMAKE_PREFIX_PATH="$work/copy" \
    -DCMAKE_CXX_COMPILER="$compiler" >"$work/configure.log" 2>&1 || { cat "$work/configure.log" >&2; exit 1; }
cmake --build "$work/host" >"$work/build.log" 2>&1 || { cat "$work/build.log" >&2; exit 1; }
if [ -z "${LEDGORA_TEST_SOCKET:-}" ]; then
    coproc SERVER { exec "$build/bin/testserver" --data "$work/server"; }
    IFS= read -r LEDGORA_TEST_SOCKET <&"${SERVER[0]}"
fi
templates=$work/data/MiscSoftData/GST_Templates
mkdir -p "$templates"
cp "$work"/copy/share/ledgora/templates/*.doc "$templates"
shown=$("$work/host/sample_host" "$LEDGORA_TEST_SOCKET" "sample_host_$$" "$work/data" --once)
expect "host T sees the home screen and a balance" "frmMainGST"$'\n'0 "$shown"
expect "nothing stands in the error log" "" "$(cat "$work/data/NestrelLogger.log" 2>/dev/null || true)"

library=$(pkg-config --variable=libdir ledgora)/libledgora.so
"$compiler" -std=c++20 -fPIC -o "$work/by_name" "$source/examples/by_name/main.cpp" -Wl,--as-needed "${flags[@]}"
expect "the library is used by name" "register 0
unknown class -1
class 0
unload while it lives 1
unload after 0
unregister 0
left \"\"" "$("$work/by_name" "$library")"
