#!/usr/bin/env bash
# odd-path.sh CONSOLE: programs and cases run from a folder whose name means something to shells, sed and regular
# expressions, and the same cases under a link to a folder with letters that the settings cannot hold.
set -uo pipefail
console="$1"
here="$(cd "$(dirname "$0")" && pwd)"
checkout="$(cd "$here/../.." && pwd)"
build="$(cd "$(dirname "$console")/.." && pwd)"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
failed=0
copy_to() { # FOLDER LIBRARY: the build folder's programs and installation, the settings naming LIBRARY
  mkdir -p "$1/bin"
  cp "$console" "$1/bin/"
  ln -s "$build/lib" "$1/lib"
  cp -r "$build/home" "$1/home"
  bash "$checkout/library/place-library.sh" "$checkout/install/bin/settings.ini" "$2" >"$1/home/bin/settings.ini"
}
cases() { # FOLDER
  for name in module-post check-order drawing; do
    bash "$here/run-case.sh" "$1/bin/korvant-console" "$here/$name.scr" || { echo "FAILED: $name in $1"; failed=1; }
  done
}
odd="$folder/a b & c|d [e] (ő ű) \$f 'q' \"r\" +x/út"
copy_to "$odd" "$odd/home/library"
cases "$odd"
foreign="$folder/Žluťoučký ж 中"
copy_to "$foreign" "$folder/link/home/library"
ln -s "$foreign" "$folder/link"
cases "$folder/link"

# The settings name the folder itself, and the link to it only where they have no letters for the folder.
names() { # HOME EXPECTED: what an installation at HOME gives as the library's place
  mkdir -p "$(realpath -m "$1")"
  bash "$checkout/library/build-home.sh" "$checkout/install" "$1" || failed=1
  iconv -f CP1250 -t UTF-8 "$1/bin/settings.ini" | tr '\\' / | grep -qF "APP_TABLES_BASE_PATH=$2/library/Táblák" || { echo "FAILED: the library's place at $1"; failed=1; }
}
names "$folder/x & y|ő" "$folder/x & y|ő"
ln -s "$folder/x & y|ő" "$folder/second"
names "$folder/second" "$folder/x & y|ő"
names "$folder/link/new" "$folder/link/new"
exit $failed
