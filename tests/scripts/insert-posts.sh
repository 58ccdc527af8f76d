#!/usr/bin/env bash
# insert-posts.sh CONSOLE: a drawing with posts is inserted into another one. Texts of plates stand where they belong at
# once, as they do after saving and opening.
set -uo pipefail
console="$1"
. "$(dirname "$0")/installation.sh"
begin insert
run 0 --new -c 'KVO 0,0 0,10 5,20' -c '@click 232' -c '@select 300 "3 tilalom és utasítás"' -c '@select 301 "C-29 Sebességkorlátozás"' -c '@ok' -c '@show' -c '@ok' -c 'DRAWLIST ALL' -c '' -c "SAVEAS $PWD/posts.dwg"
listing() { sed -n '/DRAWLIST/,/Command: /p' printed | grep '^  ' | sed -E 's/[0-9A-F]+$//' >"$1"; [ -s "$1" ] || fail "$1: nothing is drawn"; }
listing drawn
grep text drawn >texts || fail "the plate has no text"
for star in '' '*'; do
  rm -f into.dwg
  run 0 --new -c "INSERT ${star}posts.dwg 0,0 1" -c '' -c '' -c 'DRAWLIST ALL' -c '' -c "SAVEAS $PWD/into.dwg"
  listing inserted
  run 0 into.dwg -c 'DRAWLIST ALL' -c ''
  listing opened
  diff inserted opened || fail "INSERT ${star}: what is shown at once differs from what is shown after opening"
  while read -r line; do grep -qF -- "$line" inserted || fail "INSERT ${star}: the text is not where it was: $line"; done <texts
done
exit $failed
