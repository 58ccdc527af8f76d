#!/usr/bin/env bash
# life.sh CONSOLE SOURCE: the sample life of a junction runs to its end: both pictures are written and differ,
# and what the works left is in the saved drawing, nothing planned, covered or to be removed any more.
set -euo pipefail
console="$1" source="$2"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
cd "$folder"
export KORVANT_LOCALAPPDATA="$folder/data"
mkdir -p out data
cp "$(dirname "$(dirname "$console")")/samples/base-plan.dwg" plan.dwg
fail() { echo "$1"; tail -n 20 run.txt; exit 1; }
"$console" plan.dwg -s "$source/samples/life.scr" >run.txt 2>&1 || fail "the sample stopped"
for picture in out/life-before.png out/life-after.png; do
  [ -s "$picture" ] || fail "$picture was not written"
done
cmp -s out/life-before.png out/life-after.png && fail "before and after look the same"
grep -q 'Nincs táblasorrend hiba!' run.txt || fail "the plates are not in order"

"$console" out/life.dwg -c COUNT -c 'FILERLIST ALL' -c '' >list.txt
expect() { # COUNT PATTERN WHAT
  local found
  found="$(grep -cE -- "$2" list.txt || true)"
  [ "$found" = "$1" ] || { echo "$found $3 instead of $1"; exit 1; }
}
expect 1 '^ +4  Korvant Oszlop$' 'lists of four posts'
expect 1 '^ +3  Korvant Blokk$' 'lists of three markings'
expect 7 '\\[A-H]-[0-9][^\\]*\.dwg"$' 'plates'
expect 1 '\\LED lámpatest\.dwg"$' 'lamps'
# Four feet, seven plates, a lamp, three markings: an overlay would be one reference more.
expect 15 '^ +AcDbBlockReference$' 'block references'
expect 0 '\\\$' 'feet of planned or doomed posts'
expect 0 'C-29|A-20|C-01|D-02' 'plates that should be gone'
