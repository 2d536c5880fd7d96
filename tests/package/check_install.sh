#!/usr/bin/env bash
# The install tree the Debian package is made from: cmake --install into a scratch prefix,
# then the files the package must hold, and a desktop entry that validates and starts the
# program by the name installed on the PATH.
set -euo pipefail
BUILD=${1:?build folder}
SRC=${2:?source folder}
PREFIX=$(mktemp -d)
trap 'rm -rf "$PREFIX"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }
cmake --install "$BUILD" --prefix "$PREFIX" >/dev/null
for f in bin/quillcast bin/quillcast-tag share/applications/quillcast.desktop \
    share/icons/hicolor/64x64/apps/quillcast.png share/doc/quillcast/README.md \
    "share/quillcast/samples/ilona - miracles.mp3" \
    "share/quillcast/samples/other tagger - nul padded.mp3"; do
  [ -e "$PREFIX/$f" ] || fail "missing $f"
done
[ -x "$PREFIX/bin/quillcast" ] || fail "quillcast is not executable"
desktop-file-validate "$PREFIX/share/applications/quillcast.desktop" || fail "desktop entry"
exec_line=$(sed -n 's/^Exec=//p' "$PREFIX/share/applications/quillcast.desktop")
[ -x "$PREFIX/bin/$exec_line" ] || fail "the entry's Exec '$exec_line' is not the installed program"
icon=$(sed -n 's/^Icon=//p' "$PREFIX/share/applications/quillcast.desktop")
[ -e "$PREFIX/share/icons/hicolor/64x64/apps/$icon.png" ] || fail "no icon '$icon'"
"$PREFIX/bin/quillcast-tag" show "$SRC/assets/samples/ilona - miracles.mp3" | grep -q miracles ||
  fail "quillcast-tag does not read the sample"
echo "PASS"
