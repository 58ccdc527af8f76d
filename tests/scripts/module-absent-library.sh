#!/usr/bin/env bash
# module-absent-library.sh CONSOLE: library paths that are not set, lead nowhere, in circles or to an installation that
# is gone. The work goes on with what there is, and nobody walks through the disk.
set -uo pipefail
console="$1"
. "$(dirname "$0")/installation.sh"
settings="data/Korvant 2018/settings.ini"
set_path() { # KEY PATH: in the user's settings; both in ASCII
  LC_ALL=C sed -i "s|^$1=.*|$1=$(printf %s "$2" | sed 's|/|\\\\|g')\r|" "$settings"
}
tree=(-c 'KVO 0,0 0,10 5,20' -c '@click 232' -c '@show' -c '@cancel' -c '@ok' -c COUNT)
substituted='A beállított könyvtár nem található'

# Not set: the tree is empty and says why, each symbol is the substitute or none, nothing is read from "\".
begin not_set
run 0 --new -c COUNT
for key in SYMBOL POSTS TABLES LAMPS BLOCK; do set_path APP_${key}_BASE_PATH ''; done
printf 'a' >probe.dwg
run 0 --new "${tree[@]}"
says 'A könyvtár nincs beállítva.'
says 'Jelzőoszlop.dwg (a könyvtár nincs beállítva)'
says '1  Korvant Oszlop'
says_not "$substituted"
grep -qE 'tree.*(proc|usr|etc)' printed && fail "the root folder is listed"
# A drawing of the user's own finds no library to be kept in; it does not go to the root folder.
root_before="$(ls -A /)"
LC_ALL=C sed -i 's|^APP_TABLES_UNIQ_DIR=.*|APP_TABLES_UNIQ_DIR=\r|' "$settings"
run 0 --new --no-module -c 'FILEDIA 0' -c 'CIRCLE 0,0.5 0.5' -c 'SAVEAS circle.dwg'
run 0 --new -c 'FILEDIA 0' -c 'KVO 0,0 0,10 5,20' -c '@click 238' -c "$PWD/circle.dwg" -c '@ok' -c COUNT
[ "$(ls -A /)" = "$root_before" ] || fail "a plate was stored in the root folder"

# Full of links: to itself, to what is around it, to one another; a share of the office is shown whole.
begin links
run 0 --new -c COUNT
mkdir -p mine/a/deep/deeper share/signs/old
cp "$home/library/Táblák/1 elsőbbség/"*.dwg share/signs/old
ln -s . mine/itself
ln -s .. mine/a/up
ln -s / mine/a/disk
ln -s "$PWD/mine" mine/a/deep/again
ln -s "$PWD/share" mine/office
ln -s "$PWD/share" mine/office2
ln -s "$PWD/mine/a" share/back
ln -s ../share share/signs/round
ln -s nowhere mine/dangling
set_path APP_TABLES_BASE_PATH "$PWD/mine"
time_before=$SECONDS
run 0 --new -c 'KVO 0,0 0,10 5,20' -c '@click 232' -c '@show' -c '@select 300 "office\signs\old"' -c '@show' -c '@select 301 0' -c '@ok' -c '@ok' -c COUNT
says '1  Korvant Oszlop'
says_not 'proc'
[ $((SECONDS - time_before)) -lt 20 ] || fail "the tree took $((SECONDS - time_before)) seconds"
[ "$(grep -c '\\deeper' printed)" -lt 5 ] || fail "a folder is shown again and again"

# The whole disk, given by mistake: what no library has is cut short, and told.
begin disk
run 0 --new -c COUNT
mkdir -p huge
(cd huge && seq -f 'f%g' 1 5200 | xargs mkdir)
set_path APP_TABLES_BASE_PATH "$PWD/huge"
run 0 --new "${tree[@]}"
says 'A könyvtár túl nagy, nem minden mappája látható'

# An installation that was removed, or moved with all it holds: the running one stands in for the session, one line says
# so, and the user's settings stay what they are.
begin moved
run 0 --new -c COUNT
mv home elsewhere
export KORVANT_HOME="$PWD/elsewhere"
cp "$settings" before.ini
run 0 --new -c 'KVO 0,0 0,10 5,20' -c '@click 232' -c '@select 300 "1 elsőbbség"' -c '@select 301 "B-03 Főútvonal"' -c '@ok' -c '@ok' -c COUNT
[ "$(grep -cF "$substituted" printed)" = 1 ] || fail "not told in one line"
says_not 'Blokk definíció nem található'
cmp -s before.ini "$settings" || fail "the settings changed"

# One folder of the user's own, a share that is away today: only it is replaced, and it is there again tomorrow.
begin share_away
run 0 --new -c COUNT
mkdir share
cp -r "home/library/Táblák/1 elsőbbség" share/
set_path APP_TABLES_BASE_PATH "$PWD/share"
mv share away
run 0 --new -c 'KVO 0,0 0,10 5,20' -c '@click 232' -c '@show' -c '@cancel' -c '@ok'
says "$substituted: $(printf %s "$PWD/share" | sed 's|/|\\|g')."
says '3 tilalom és utasítás'
mv away share
run 0 --new -c 'KVO 0,0 0,10 5,20' -c '@click 232' -c '@show' -c '@cancel' -c '@ok'
says_not "$substituted"
says_not '3 tilalom és utasítás'
says '1 elsőbbség'
exit $failed
