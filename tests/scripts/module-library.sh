#!/usr/bin/env bash
# module-library.sh CONSOLE: library files that are missing, damaged or no drawings at all, and attribute
# lists that are no XML. Each case works on a copy of the installation.
set -uo pipefail
console="$1"
. "$(dirname "$0")/installation.sh"
plates="home/library/Táblák/1 elsőbbség"
place=(-c 'KVO 0,0 0,10 5,20' -c '@click 232' -c '@select 300 "1 elsőbbség"' -c '@select 301 "B-03 Főútvonal"' -c '@ok' -c '@show' -c '@ok' -c COUNT)

# A plate that is gone when its post is placed again: told, shown by the placeholder under its own name.
begin missing_plate
run 0 --new "${place[@]}" -c 'SAVEAS one.dwg'
says_not 'Blokk definíció nem található'
rm "$plates/B-03 Főútvonal.dwg"
run 0 one.dwg -c 'SELECT ALL' -c '' -c KVT -c '@tab "Táblák"' -c '@select 217 0' -c '@show' -c '@cancel' -c COUNT
says 'B-03 Főútvonal'   # the drawing keeps its own copy of the symbol
says '1  Korvant Oszlop'

# The post's own symbol is gone: the placeholder stands in, the post is placed.
begin missing_post
rm home/library/Oszlopkönyvtár/Oszlopok/Jelzőoszlop.dwg
run 0 --new -c 'KVO 0,0 0,10 5,20' -c '@ok' -c COUNT -c 'SELECT L' -c '' -c DRAWLIST
says 'Blokk definíció nem található: '
says 'Oszlopkönyvtár\Oszlopok\Jelzőoszlop.dwg'
says '1  Korvant Oszlop'
grep -q '^  [a-z]' printed || fail "the placeholder draws nothing"

# The placeholder is gone too: no block, but a post that can be placed, saved and opened.
begin missing_placeholder
rm home/library/Oszlopkönyvtár/Oszlopok/Jelzőoszlop.dwg home/library/Szimbólumok/TrfcBlockNotFound.dwg
run 0 --new -c 'KVO 0,0 0,10 5,20' -c '@ok' -c COUNT -c 'SAVEAS two.dwg'
says '1  Korvant Oszlop'
run 0 two.dwg -c COUNT
says '1  Korvant Oszlop'

# A plate that is a text, cut short or a folder: it cannot be chosen by its picture, and the chain and the
# drawing stay as they were or take an empty plate; the session goes on.
for kind in text truncated; do
  begin "plate_$kind"
  plate="$plates/B-03 Főútvonal.dwg"
  if [ $kind = text ]; then printf 'not a drawing' >plate; else head -c 3000 "$plate" >plate; fi
  cp plate "$plate"
  run 0 --new "${place[@]}" -c 'SAVEAS three.dwg'
  says '1  Korvant Oszlop'
  run 0 three.dwg -c COUNT
  says '1  Korvant Oszlop'
done

# Attribute lists that are no XML give no rows and no message; the page's own rows stay.
begin broken_attributes
printf '<AttributeList><Attribute><Name>Anyag' >home/library/Táblák/attributes.xml
head -c 4000 "$console" >home/library/Oszlopkönyvtár/attributes.xml
run 0 --new "${place[@]/@show/@tab \"Általános\"}" -c 'SELECT L' -c '' -c KVT -c '@show' -c '@cancel'
says 'Felirat'
says 'Magasság'
says_not 'Fóliatípus'
says '1  Korvant Oszlop'
exit $failed
