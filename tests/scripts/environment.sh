#!/usr/bin/env bash
# environment.sh CONSOLE: the environment that a machine happens to have does no harm: screens that are not there,
# a toolkit that is told otherwise, and no environment at all. A window is opened each time and nothing is said
# on the error output.
set -uo pipefail
console="$1"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
mkdir data
failed=0
window=(--new -c KVO -c 0,0 -c 0,10 -c 5,20 -c '@show' -c '@ok' -c COUNT)
in_environment() { # NAME=VALUE...: nothing else is set
  env -i KORVANT_LOCALAPPDATA="$folder/data" "$@" "$console" "${window[@]}" >printed 2>errors </dev/null
  local actual=$?
  if [ "$actual" != 0 ] || [ -s errors ] || ! grep -q '1  Korvant Oszlop' printed; then
    echo "FAILED: with $* it gave $actual"
    cat printed errors
    failed=1
  fi
}
in_environment PATH="$PATH"
in_environment # not even a search path
in_environment LC_ALL=C
in_environment LC_ALL=hu_HU.ISO-8859-2
in_environment DISPLAY=:4711
in_environment DISPLAY=nowhere.invalid:0 WAYLAND_DISPLAY=wayland-4711 XDG_SESSION_TYPE=wayland
in_environment DISPLAY=:4711 QT_QPA_PLATFORM=xcb
in_environment QT_QPA_PLATFORM=nonsense QT_QPA_PLATFORMTHEME=gtk3 XDG_CURRENT_DESKTOP=GNOME DISPLAY=:4711
in_environment HOME=/nonexistent TERM=dumb
exit $failed
