#!/usr/bin/env bash
# later-record.sh CONSOLE LATER.arx: a post saved by a later version is kept as a proxy, shown by the picture
# filed with it, and saved back untouched, so the later version finds its own again.
set -euo pipefail
console="$1" later="$2"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
cd "$folder"
export KORVANT_LOCALAPPDATA="$folder/data"
mkdir data
fail() { echo "FAILED: $*"; cat printed; exit 1; }
of_later() { # FILE: the post's filing calls as the later module itself gives them
  "$console" "$1" --module "$later" -c 'SELECT ALL' -c '' -c FILERLIST >printed || fail "the later module cannot read $1"
  awk '/^Korvant Oszlop/ {on = 1; next} !/^ / {on = 0} on' printed
}
"$console" --new --module "$later" -c LATERPOST -c 'SAVEAS first.dwg' >printed || fail "the later module cannot save"
of_later first.dwg >before
grep -q 'writeUInt32 8' before || fail "the record is not the later one"

"$console" first.dwg -c 'SELECT ALL' -c '' -c LIST -c DRAWLIST -c 'MOVE P' -c '' -c '0,0' -c '5,5' -c 'PLOT P A4 L S 1:100 first.svg' -c 'LINE 0,0 9,9 ' -c '' -c 'SAVEAS second.dwg' -c COUNT >printed || fail "the drawing cannot be opened, drawn and saved"
grep -q '^ACAD_PROXY_ENTITY' printed || fail "the later post is not a proxy"
grep -q 'could not be changed' printed || fail "the proxy can be moved"
grep -qF '4,4' printed || fail "the picture of the proxy is missing"
grep -q '<path\|<polyline' first.svg || fail "nothing is plotted"

# Opened and saved once more by this version, and then given to the later one.
"$console" second.dwg -c 'SAVEAS third.dwg' >printed || fail "the saved drawing cannot be opened"
of_later third.dwg >after
diff -u before after || fail "the record came back changed"
