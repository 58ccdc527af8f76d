#!/usr/bin/env bash
# library-check.sh CONSOLE CHECK DRAW: the library check passes the built library, and names each drawing that does
# not stand as its sort must: beside, below, above or off its insertion point, empty, or no drawing at all.
set -uo pipefail
console="$1" check="$2" draw="$3"
. "$(dirname "$0")/installation.sh"
begin check
library="$PWD/home/library"

check() { # STATUS
  "$check" "$library" >printed 2>errors
  local actual=$?
  [ "$actual" = "$1" ] || fail "the check gave $actual instead of $1"
}
wrong() { # DRAWING FAULT LINES: draws it, expects to be told of it by name, and takes it away again
  printf '%s\n' "${@:3}" >wrong.scr
  cp -p "$library/$1" kept.dwg 2>/dev/null || rm -f kept.dwg
  bash "$draw" "$console" "$PWD/wrong.scr" "$library/$1" || fail "$1 could not be drawn"
  check 1
  says "$1: $2"
  says 'drawings, 1 stand the wrong way'
  rm "$library/$1"
  [ ! -e kept.dwg ] || cp -p kept.dwg "$library/$1"
}

check 0
says ', 0 stand the wrong way'
grep -qE '^[1-9][0-9]+ drawings' printed || fail "hardly anything was looked at"

wrong 'Táblák/2 veszély/A-99.dwg' 'it reaches below its insertion point' 'PLINE -0.5,-0.1 0.5,-0.1 0.5,1 -0.5,1 C'
wrong 'Táblák/2 veszély/A-98.dwg' 'its middle is not above its insertion point' 'PLINE 0,0 1,0 1,1 0,1 C'
wrong 'Lámpák/Közvilágítás/LED lámpatest.dwg' 'it reaches below its insertion point' 'CIRCLE 0,-0.5 0.5'
wrong 'Burkolati jelek/Nyilak/Egyenes nyíl.dwg' 'it reaches above its insertion point' 'PLINE -0.4,0 0.4,0 0,5 C'
wrong 'Burkolati jelek/Nyilak/Balra nyíl.dwg' 'its middle is not above its insertion point' 'PLINE -1.3,-5 0.1,-5 0.1,0 -1.3,0 C'
wrong 'Oszlopkönyvtár/Oszlopok/Új oszlop.dwg' 'its middle is not on its insertion point' 'CIRCLE 0,0.5 0.5'
wrong 'Szimbólumok/TrfcTableCovered.dwg' 'an overlay is one unit wide and high' 'PLINE -0.5,0 0.5,0 0.5,0.9 -0.5,0.9 C'
wrong 'Szimbólumok/TrfcBlockDefault.dwg' 'it reaches above its insertion point' 'PLINE -0.5,0 0.5,0 0.5,1 -0.5,1 C'
wrong 'Lámpák/Jelzőlámpák/Üres.dwg' 'it shows nothing' 'CECOLOR 1'
printf 'not a drawing' >"$library/Táblák/2 veszély/A-97.dwg"
check 1
says 'Táblák/2 veszély/A-97.dwg: it cannot be read'
exit $failed
