#!/usr/bin/env bash
# cross-on-red.sh CONSOLE DRAW: on a plate that is red all over, the red cross of a plate that is to be removed is
# seen by its white edges, as is the cover of a plate in the cover's own grey.
set -uo pipefail
console="$1" draw="$2"
. "$(dirname "$0")/installation.sh"

white() { # COLOUR STATE: prints how many white samples the picture of the plate in that state has
  printf 'CECOLOR %s\nSOLID -0.5,0 0.5,0 -0.5,1 0.5,1\n' "$1" >plate.scr
  bash "$draw" "$console" "$PWD/plate.scr" "home/library/Táblák/1 elsőbbség/X.dwg" || fail "the plate could not be drawn"
  rm -f plate.pdf
  run 0 --new -c 'KVO 0,0 0,10 0,14' -c '@click 232' -c '@select 300 "1 elsőbbség"' -c '@select 301 "X"' -c '@ok' \
    -c "@select 212 \"$2\"" -c '@ok' -c 'PLOT P 100x100 L A W -1.9,14.1 1.9,17.9 S F plate.pdf'
  pdftoppm -r 100 plate.pdf plate
  tail -c +16 plate-1.ppm | tr -dc '\377' | wc -c
}
seen() { # COLOUR STATE
  local plain crossed
  plain="$(white "$1" Meglévő)" crossed="$(white "$1" "$2")"
  [ $((crossed - plain)) -gt 8000 ] || fail "$2 on colour $1 adds only $((crossed - plain)) white samples to $plain"
}
begin edges
seen 1 Megszüntetendő
seen 8 Letakart
exit $failed
