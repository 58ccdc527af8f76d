#!/usr/bin/env bash
# module-reload.sh CONSOLE: the module is unloaded and loaded again while a drawing with its objects is open. What was
# placed before answers to everything as if the module had never gone, so the same lines print the same.
set -uo pipefail
console="$1"
. "$(dirname "$0")/installation.sh"
begin reload
place=(-c 'KVO 0,0 0,10 5,20' -c '@click 232' -c '@select 300 "3 tilalom és utasítás"' -c '@select 301 "C-29 Sebességkorlátozás"' -c '@ok'
  -c '@select 212 "Tervezett"' -c '@click 234' -c '@select 300 "Jelzőlámpák"' -c '@select 301 "Jármű jelzőlámpa"' -c '@ok'
  -c '@tab "Általános"' -c '@select 212 "Tervezett"' -c '@ok'
  -c 'KVBLOKK 60,0 0' -c '@select 300 "Nyilak"' -c '@select 301 "Egyenes nyíl"' -c '@ok' -c '@select 212 "Tervezett"' -c '@ok')
again=(-c "ARX Unload korvant.arx" -c "ARX Load $KORVANT_HOME/korvant.arx")
list=(-c 'FILERLIST ALL' -c '' -c 'DRAWLIST ALL' -c '' -c 'GRIPLIST ALL' -c '')
use=(-c 'CANNOSCALE 1:200' "${list[@]}" -c KVST -c '@show' -c '@click IDC_BUTT_ALL' -c '@ok' "${list[@]}"
  -c 'SELECT 0,0' -c '' -c KVT -c '@show' -c '@tab "Táblák"' -c '@show' -c '@select 217 0' -c '@show' -c '@select 212 "Letakart"' -c '@ok'
  -c 'SELECT 60,0' -c '' -c KVT -c '@show' -c '@ok' -c 'CANNOSCALE 1:1000' "${list[@]}"
  -c KVELL -c @ok -c U -c U "${list[@]}" -c 'COPY ALL' -c '' -c 0,0 -c 100,0 -c '' -c "SAVEAS $PWD/used.dwg" -c CLOSE -c "OPEN $PWD/used.dwg" "${list[@]}" -c COUNT)
used() { # NAME: what was printed from the use on
  sed -n '/CANNOSCALE 1:200/,$p' printed | sed -E 's/handle [0-9A-F]+//; s/(PointerId|OwnershipId) [0-9A-F]+/\1/' >"$1"
  [ -s "$1" ] || fail "$1: nothing was used"
  rm -f used.dwg
}
run 0 --new "${place[@]}" "${use[@]}"
used plain
run 0 --new "${place[@]}" "${again[@]}" "${use[@]}"
used reloaded
diff plain reloaded || fail "a reload changes what the module does"
run 0 --new "${place[@]}" "${again[@]}" "${again[@]}" "${again[@]}" "${use[@]}"
used thrice
diff plain thrice || fail "the third reload changes what the module does"

# The ticks of the state change and the tracking of the scale begin anew, as at any start.
run 0 --new "${place[@]}" -c KVST -c '@click IDC_BUTT_ALL' -c '@cancel' -c KVSCALEOFF "${again[@]}" "${use[@]}"
used fresh
diff plain fresh || fail "a reload keeps what the earlier life of the module had set"

# So does the library window, which otherwise begins where the last choice was made.
plate=(-c 'KVO 60,60 60,70 65,80' -c '@click 232' -c '@select 300 "3 tilalom és utasítás"' -c '@select 301 0' -c '@ok' -c '@ok')
window=(-c 'KVO 90,0 90,10 95,20' -c '@click 232' -c '@show' -c '@cancel' -c '@cancel')
run 0 --new "${plate[@]}" "${window[@]}"
grep -qE '^ +\*3 tilalom' printed || fail "the window does not begin where the last choice was made"
run 0 --new "${plate[@]}" "${again[@]}" "${window[@]}"
grep -qE '^ +\*1 els' printed || fail "the window begins where the earlier life of the module ended"
exit $failed
