#!/usr/bin/env bash
# round-trip.sh CONSOLE SOURCE: the sample junction on its base plan, at two scales, comes back from its
# file with the same filing calls, object for object; its plots are written.
set -euo pipefail
console="$1" source="$2"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
cd "$folder"
export KORVANT_LOCALAPPDATA="$folder/data"
mkdir -p out data
plan="$(dirname "$(dirname "$console")")/samples/base-plan.dwg"
cp "$plan" plan.dwg
"$console" plan.dwg -s "$source/samples/junction.scr" -c 'FILERLIST ALL' -c '' >before.txt
"$console" out/junction.dwg -c 'FILERLIST ALL' -c '' >after.txt
listing() { sed -n '/^Command: FILERLIST/,$p' "$1" | sed '1d'; }
listing before.txt >before.list
listing after.txt >after.list
posts="$(grep -c '^Korvant Oszlop' before.list)"
[ "$posts" = 7 ] || { echo "$posts posts were listed instead of 7"; exit 1; }
grep -q '^  writeInt16 2$' before.list || { echo "no post holds the records of two scales"; exit 1; }
diff -u before.list after.list
for plot in out/junction.pdf out/junction.svg out/junction.png; do
  [ -s "$plot" ] || { echo "$plot was not written"; exit 1; }
done
# The independent reader finds the same objects in our file. Its status 4 says that a class of the file
# (the module's own) is unknown to it, as of any drawing with custom objects; every other one is a fault.
if [ -d "$source/node_modules/@mlightcad/libredwg-web" ]; then
  node "$source/tests/host/dwg/peer.mjs" "$source/node_modules" out/junction.dwg >peer.json
  grep -qE '"error":(0|4),' peer.json || { echo "the independent reader refuses the drawing"; cat peer.json; exit 1; }
else
  echo "skipped: the independent reader is not installed"
fi
