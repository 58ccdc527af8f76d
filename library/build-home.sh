#!/usr/bin/env bash
# build-home.sh INSTALL HOME: copies what an installation folder holds and writes the library's place
# into settings.ini, whose text is in the code page Windows-1250.
set -euo pipefail
install="$1" home="$2"
mkdir -p "$home"
cp -r "$install"/. "$home"/
library="$(printf '%s' "$home/library" | sed 's|/|\\\\|g' | iconv -f UTF-8 -t CP1250)"
LC_ALL=C sed "s|@LIBRARY@|$library|" "$install/bin/settings.ini" >"$home/bin/settings.ini"
