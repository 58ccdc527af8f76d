#!/usr/bin/env bash
# place-library.sh SETTINGS LIBRARY: prints the settings, which name the library's folder @LIBRARY@, with its place;
# backslashes and the code page Windows-1250 are what the module reads.
set -euo pipefail
settings="$1" library="$2"
export LC_ALL=C
place="$(printf '%s' "$library" | iconv -f UTF-8 -t CP1250 | tr / '\\' | sed 's/[\\&|]/\\&/g')"
sed "s|@LIBRARY@|$place|" "$settings"
