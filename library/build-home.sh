#!/usr/bin/env bash
# build-home.sh INSTALL HOME: copies what an installation folder holds and writes the library's place
# into settings.ini.
set -euo pipefail
install="$1" home="$2"
mkdir -p "$home"
cp -r "$install"/. "$home"/
# A build through a link (script/plain-path) names the folder itself, unless the settings have no letters for it.
place="$(cd "$home" && pwd -P)"
printf '%s' "$place" | iconv -f UTF-8 -t CP1250 >/dev/null 2>&1 || place="$home"
bash "$(dirname "$0")/place-library.sh" "$install/bin/settings.ini" "$place/library" >"$home/bin/settings.ini"
