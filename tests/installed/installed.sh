#!/usr/bin/env bash
# The library as a host gets it: installs the build into a folder, moves that, builds the examples against the copy and
# runs them. installed.sh BUILD_FOLDER SOURCE_FOLDER COMPILER
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

cmake -S "$source/examples/host_t" -B "$work/host_t" -G Ninja -DCMAKE_PREFIX_PATH="$work/copy" \
    -DCMAKE_CXX_COMPILER="$compiler" >"$work/configure.log" 2>&1 || { cat "$work/configure.log" >&2; exit 1; }
cmake --build "$work/host_t" >"$work/build.log" 2>&1 || { cat "$work/build.log" >&2; exit 1; }
if [ -z "${LEDGORA_TEST_SOCKET:-}" ]; then
    coproc SERVER { exec "$build/bin/testserver" --data "$work/server"; }
    IFS= read -r LEDGORA_TEST_SOCKET <&"${SERVER[0]}"
fi
mkdir "$work/data"
shown=$("$work/host_t/sample_host" "$LEDGORA_TEST_SOCKET" "sample_host_$$" "$work/data" --once)
expect "host T sees the home screen and a balance" "frmMainGST"$'\n'0 "$shown"
expect "nothing stands in the error log" "" "$(cat "$work/data/NestrelLogger.log" 2>/dev/null || true)"

export PKG_CONFIG_PATH=$work/copy/lib/pkgconfig
read -ra flags <<<"$(pkg-config --cflags --libs ledgora)"
library=$(pkg-config --variable=libdir ledgora)/libledgora.so
"$compiler" -std=c++20 -fPIC -o "$work/by_name" "$source/examples/by_name/main.cpp" -Wl,--as-needed "${flags[@]}"
expect "the library is used by name" "register 0
unknown class -1
class 0
unload while it lives 1
unload after 0
unregister 0
left \"\"" "$("$work/by_name" "$library")"
