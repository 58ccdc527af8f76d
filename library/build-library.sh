#!/usr/bin/env bash
# build-library.sh CONSOLE PIXELS_TO_BMP SOURCE TARGET: the library's scripts become drawings, its pixel
# pictures become folder bitmaps, its attribute lists are copied. A drawing newer than its script is kept.
set -euo pipefail
console="$1" bmp="$2" source="$3" target="$4"
here="$(dirname "$0")"
cd "$source"
find . -name '*.scr' -print0 | while IFS= read -r -d '' script; do
  drawing="$target/${script%.scr}.dwg"
  [ "$drawing" -nt "$script" ] && [ "$drawing" -nt "$console" ] || bash "$here/draw.sh" "$console" "$source/$script" "$drawing"
done
find . -name attributes.xml -print0 | while IFS= read -r -d '' list; do
  mkdir -p "$target/$(dirname "$list")"
  cp "$list" "$target/$list"
done
# Every folder of the library shows the same pair of icons.
find . -mindepth 2 -maxdepth 2 -type d -print0 | while IFS= read -r -d '' folder; do
  for icon in folder folder_open; do
    "$bmp" "$here/$icon.pixels" "$target/$folder/$icon.bmp"
  done
done
mkdir -p "$target/Táblák/5 egyedi táblák" "$target/Ideiglenes"
