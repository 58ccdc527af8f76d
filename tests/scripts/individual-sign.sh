#!/usr/bin/env bash
# individual-sign.sh CONSOLE: a drawing of the user's own becomes the sign of one post. It is read, saved in the
# library under the post's coordinates and drawn from there; the second choice on the same post replaces the first.
# Works on a copy of the installation.
set -uo pipefail
console="$1"
. "$(dirname "$0")/installation.sh"
begin sign
unique="home/library/Táblák/5 egyedi táblák"
stored="$unique/100.25_-40.00_Korvant.dwg"

# Two drawings of the user's: a circle, and a square.
run 0 --new --no-module -c 'FILEDIA 0' -c 'CIRCLE 0,0.5 0.5' -c 'SAVEAS circle.dwg'
run 0 --new --no-module -c 'FILEDIA 0' -c 'PLINE -0.5,0 0.5,0 0.5,1 -0.5,1 C' -c 'SAVEAS square.dwg'

place=(-c 'FILEDIA 0' -c 'KVO 100.25,-40 100.25,-30 105,-20')
run 0 --new "${place[@]}" -c '@click 238' -c "$PWD/circle.dwg" -c '@show' -c '@ok' -c 'DRAWLIST ALL' -c '' -c 'SAVEAS post.dwg'
says '100.25_-40.00_Korvant.dwg'
says 'circle (0,0.5,0) radius=0.5'
[ -f "$stored" ] || fail "nothing is stored under the post's coordinates"
cp "$stored" first.dwg
run 0 "$stored" --no-module -c 'COUNT'
says '1  CIRCLE'

# The second choice on the same post replaces the file; the block that the post has of it is made anew.
run 0 post.dwg -c 'FILEDIA 0' -c 'SELECT ALL' -c '' -c KVT -c '@tab "Táblák"' -c '@click 238' -c "$PWD/square.dwg" -c '@ok' -c 'DRAWLIST ALL' -c ''
says 'polyline (-0.5,0,0)'
cmp -s "$stored" first.dwg && fail "the file is not replaced"
[ "$(find "$unique" -name '*.dwg' | wc -l)" = 1 ] || fail "more than one drawing: $(ls "$unique")"

# What is no drawing is told, and neither the library nor the post changes.
cp "$stored" second.dwg
printf 'no drawing at all' >letter.dwg
run 0 post.dwg -c 'FILEDIA 0' -c 'SELECT ALL' -c '' -c KVT -c '@tab "Táblák"' -c '@click 238' -c "$PWD/letter.dwg" -c '@show' -c '@ok' -c '@ok' -c 'DRAWLIST ALL' -c ''
says 'EditBlockChainDlg'
says 'circle (0,0.5,0) radius=0.5'
says_not 'polyline (-0.5,0,0)'
cmp -s "$stored" second.dwg || fail "the file of the library changed"

# A choice that is given up changes nothing.
run 0 post.dwg -c 'FILEDIA 0' -c 'SELECT ALL' -c '' -c KVT -c '@tab "Táblák"' -c '@click 238' -c '' -c '@ok' -c 'DRAWLIST ALL' -c ''
says_not 'polyline (-0.5,0,0)'
exit $failed
