#!/usr/bin/env bash
# explode-picture.sh CONSOLE: a post and markings in every state, taken apart by EXPLODE, print as they did before.
# The plots are compared as another program shows them.
set -euo pipefail
console="$1"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
cd "$folder"
export KORVANT_LOCALAPPDATA="$folder/data"
mkdir -p data

plate() { printf '%s\n' '@click 232' "@select 300 \"$1\"" "@select 301 \"$2\"" @ok "@select 212 \"$3\""; }
lamp() { printf '%s\n' "GRIPDRAG gripAddLamp $1" '@click 234' "@select 300 \"$2\"" "@select 301 \"$3\"" @ok "@select 212 \"$4\"" @ok; }
marking() { printf '%s\n' "KVBLOKK $1 $2" "@select 301 \"$3\"" @ok "@select 212 \"$4\"" @ok; }
{
  echo 'KVO 0,0 0,10 8,14'
  plate '1 elsőbbség' 'B-02 Állj! Elsőbbségadás kötelező' Megszüntetendő
  plate '3 tilalom és utasítás' 'D-02 Kötelező haladási irány jobbra' Letakart
  plate '4 kiegészítő táblák' 'H-05 Főútvonal iránya' Megszüntetendő
  plate '2 veszély' 'A-09 Gyalogosok' Tervezett
  echo '@tab "Általános"'
  echo '@select 212 "Megszüntetendő"'
  echo @ok
  printf '%s\n' 'SELECT L' ''
  lamp -6,-1 'Jelzőlámpák' 'Jármű jelzőlámpa' Letakart
  lamp 5,-5 'Közvilágítás' 'LED lámpatest' Megszüntetendő
  marking -10,20 200 'Egyenes nyíl' Megszüntetendő
  marking -4,20 200 'Jobbra nyíl' Megszüntetendő
  marking 2,20 200 'Jobbra nyíl' Tervezett
  marking 8,20 200 'Egyenes nyíl' Meglévő
} >draw.txt
window='W -17,-8 16,40'
{
  cat draw.txt
  echo "PLOT P A4 P A $window S F before.pdf"
  printf '%s\n' 'EXPLODE ALL' '' COUNT
  echo "PLOT P A4 P A $window S F after.pdf"
} >explode.scr
"$console" --new -s explode.scr >printed 2>&1 || { tail -n 20 printed; exit 1; }
grep -q 'Korvant' <(sed -n '/^Command: COUNT/,$p' printed) && { echo "something did not explode"; tail printed; exit 1; }
for picture in before after; do
  pdftoppm -r 200 "$picture.pdf" "$picture"
done
[ "$(tr -d '\377' <before-1.ppm | wc -c)" -gt 20000 ] || { echo "the plot is all but empty"; exit 1; }
# Rounding may move the shade of an edge in a few places; a bar that loses its width moves thousands.
different="$({ cmp -l before-1.ppm after-1.ppm || true; } | awk '
  function octal(s,  i, n) { n = 0; for (i = 1; i <= length(s); ++i) n = n * 8 + substr(s, i, 1); return n }
  { d = octal($2) - octal($3); if (d > 24 || d < -24) ++n } END { print n + 0 }')"
echo "$different samples differ"
[ "$different" -le 200 ] || exit 1
