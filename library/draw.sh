#!/usr/bin/env bash
# draw.sh CONSOLE SCRIPT DRAWING: runs a drawing script in a new drawing and saves it.
set -euo pipefail
# Two empty lines end what the script's last command still asks for.
console="$1" script="$2" drawing="$3"
mkdir -p "$(dirname "$drawing")"
rm -f "$drawing" "$drawing.log"
if ! "$console" --no-module --new -s "$script" -c '' -c '' -c 'ZOOM E' -c 'FILEDIA 0' -c SAVEAS -c "$drawing" >"$drawing.log" 2>&1; then
  echo "$script could not be drawn:" >&2
  tail -n 5 "$drawing.log" >&2
  exit 1
fi
[ -s "$drawing" ] || { echo "$script left no drawing" >&2; exit 1; }
rm -f "$drawing.log"
