#!/usr/bin/env bash
# The Debian package: made from the build, unpacked into a folder, and the program run from there as a user would.
# package.sh BUILD_FOLDER VERSION
set -euo pipefail

build=$1 version=$2
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT
export QT_QPA_PLATFORM=offscreen XDG_DATA_HOME=$work/data

fail() {
    echo "package: $*" >&2
    exit 1
}

(cd "$build" && cpack -G DEB -B "$work/packed" >"$work/cpack.log" 2>&1) || { cat "$work/cpack.log" >&2; exit 1; }
dpkg-deb -x "$work"/packed/ledgora_*.deb "$work/root"

share=$work/root/usr/share
for file in applications/ledgora.desktop icons/hicolor/scalable/apps/ledgora.svg icons/hicolor/128x128/apps/ledgora.png \
    man/man1/ledgora.1.gz ledgora/templates/GST_Intra_Bill.doc doc/ledgora/shared-server.md doc/ledgora/copyright; do
    [ -s "$share/$file" ] || fail "$file is missing"
done
[ ! -e "$work/root/usr/include" ] || fail "headers are in the clerk's package"
for need in mariadb-server-core qt6-qpa-plugins libqt6widgets6 libmariadb3; do
    dpkg-deb -f "$work"/packed/ledgora_*.deb Depends | grep -q "$need" || fail "it does not ask for $need"
done

program=$work/root/usr/bin/ledgora
[ "$("$program" --version)" = "ledgora $version" ] || fail "the program does not run from there"
"$program" --help | grep -o '^  ledgora [a-z]*' | while read -r _ command; do
    zcat "$share/man/man1/ledgora.1.gz" | grep -Eq "\"?$command( |\$)" || fail "the manual page lacks $command"
done
"$program" sample --bills 20 --parties 5 >/dev/null || fail "sample failed"
said=$("$program" check) || fail "check: $said"
[[ $said = *", nothing found." ]] || fail "check said: $said"
