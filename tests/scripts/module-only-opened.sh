#!/usr/bin/env bash
# module-only-opened.sh CONSOLE: what the module notes in a drawing while it opens and shows it is no work of the
# user's, so nothing is asked when the drawing is closed; a change of the user's is asked for as ever.
set -uo pipefail
console="$1"
. "$(dirname "$0")/installation.sh"
begin opened
asks='Save changes to'
unchanged() { says 'DBMOD = 0'; says_not "$asks"; says_not 'DBMOD = 1'; }

# A stranger's drawing, which holds nothing of the module yet; a new one; one of ours.
run 0 --new --no-module -c 'LINE 0,0 10,0' -c '' -c "SAVEAS $PWD/plain.dwg"
run 0 plain.dwg -c DBMOD -c 'DRAWLIST ALL' -c '' -c DBMOD -c QUIT
unchanged
run 0 --new -c DBMOD -c "OPEN $PWD/plain.dwg" -c DBMOD -c CLOSE -c DBMOD -c QUIT
unchanged
run 0 --new -c 'KVO 0,0 0,10 5,20' -c '@click 232' -c '@select 300 "3 tilalom és utasítás"' -c '@select 301 "C-29 Sebességkorlátozás"' -c '@ok' -c '@select 212 "Megszüntetendő"' -c '@ok' -c DBMOD -c "SAVEAS $PWD/post.dwg" -c DBMOD -c QUIT
says 'DBMOD = 1'
says 'DBMOD = 0'
run 0 post.dwg -c DBMOD -c 'DRAWLIST ALL' -c '' -c 'GRIPLIST ALL' -c '' -c DBMOD -c QUIT
unchanged

# A drawing whose scale was changed behind the module's back is brought in line, which is not the user's work either.
run 0 post.dwg --no-module -c 'CANNOSCALE 1:200' -c QSAVE
run 0 post.dwg -c DBMOD -c QUIT
unchanged
# Loading the module over an open drawing.
run 0 post.dwg --no-module -c DBMOD -c "ARX Load $KORVANT_HOME/korvant.arx" -c DBMOD -c QUIT
unchanged

# Looking and giving up change nothing.
run 0 post.dwg -c 'SELECT ALL' -c '' -c KVT -c '@show' -c '@cancel' -c KVST -c '@cancel' -c DBMOD -c QUIT
unchanged

# What the user does is asked for, in each of two drawings by itself.
run 0 post.dwg -c 'CANNOSCALE 1:500' -c DBMOD -c QUIT -c N
says 'DBMOD = 1'
says "$asks"
run 0 post.dwg -c 'KVO 40,0 40,10 45,20' -c '@ok' -c DBMOD -c QUIT -c N
says 'DBMOD = 1'
says "$asks"
run 0 post.dwg -c 'SELECT ALL' -c '' -c KVT -c '@tab "Általános"' -c '@select 212 "Tervezett"' -c '@ok' -c "OPEN $PWD/plain.dwg" -c DBMOD -c CLOSE -c DBMOD -c CLOSE -c C -c DBMOD -c QUIT -c N
[ "$(grep -cF "$asks" printed)" = 2 ] || fail "the changed drawing is not asked for, or the other one is"
[ "$(grep -E 'DBMOD = ' printed | tr -d '\n')" = "$(printf 'DBMOD = 0 (read only)DBMOD = 1 (read only)DBMOD = 1 (read only)')" ] || fail "the drawings are mixed up"
exit $failed
