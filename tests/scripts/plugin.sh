#!/usr/bin/env bash
# plugin.sh CONSOLE PLUGIN: the sample plug-in places its entity through its dialog; the drawing keeps it, and
# shows it as a proxy where the plug-in is absent.
set -euo pipefail
console="$1" plugin="$2"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
cd "$folder"
export KORVANT_LOCALAPPDATA="$folder/data"
mkdir -p data
says() { grep -qF -- "$1" "$2" || { echo "no \"$1\" in:"; cat "$2"; exit 1; }; }

"$console" --new --no-module -c APPLOAD -c "$plugin" -c BENCH -c 3,4 -c '@show' -c '@set 9001 "5"' -c '@ok' \
  -c FILERLIST -c ALL -c "" -c DRAWLIST -c ALL -c "" -c "SAVEAS bench.dwg" >with 2>&1
says "writePoint3d 3 4 0" with
says "writeDouble 5" with
says "Length:" with

"$console" --no-module bench.dwg -c DRAWLIST -c ALL -c "" >without 2>&1
says "(8,4.5,0)" without # the bench's far corner, from the proxy's picture
grep -qF "writePoint3d" without && { echo "a proxy must not know the fields"; exit 1; }

# A cancelled dialog leaves the drawing empty.
"$console" --new --no-module -c APPLOAD -c "$plugin" -c BENCH -c 3,4 -c '@cancel' -c DRAWLIST -c ALL -c "" >cancelled 2>&1 || true
grep -q "polyline" cancelled && { echo "a cancelled bench was placed"; exit 1; }
exit 0
