#!/usr/bin/env bash
# command-line.sh CONSOLE: options, order of scripts and lines, exit statuses.
set -uo pipefail
console="$1"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
cd "$folder"
failed=0
expect() { # STATUS PATTERN ARGS...: the status, and a pattern in what is printed (both streams)
  local status="$1" pattern="$2"
  shift 2
  "$console" "$@" >printed 2>&1 </dev/null
  local actual=$?
  if [ "$actual" != "$status" ] || ! grep -q -- "$pattern" printed; then
    echo "FAILED: $* gave $actual instead of $status, or does not say: $pattern"
    cat printed
    failed=1
  fi
}
printf 'POINT 1,1\n; a comment\nPOINT 2,2\n' >two.scr
printf '\xef\xbb\xbfTEXT 0,0 1 0 \xc3\x81rv\xc3\xadzt\xc5\xb1r\xc5\x91\r\nLIST L\r\n\r\n' >text.scr
printf 'POINT 1,1\nNOSUCH\nPOINT 2,2\n' >bad.scr
printf 'not a drawing' >text.dwg

expect 0 '3  POINT' --no-module -s two.scr -c 'POINT 3,3' -c COUNT
expect 0 '2  POINT' --no-module --new -c 'POINT 3,3' -c 'POINT 4,4' -c COUNT
expect 0 'Árvíztűrő' --no-module -s text.scr
expect 1 'bad.scr, line 2: Unknown command "NOSUCH"' --no-module -s bad.scr
expect 1 '-c 1: Unknown command' --no-module -c NOSUCH
expect 1 'no dialog is open' --no-module -c '@ok'
expect 2 'unknown option --what' --what
expect 2 '-s needs a value' -s
expect 2 'exclude each other' --new text.dwg
expect 2 'cannot be read' --no-module -s absent.scr
expect 3 'absent.dwg' --no-module absent.dwg -c COUNT
expect 3 'text.dwg' --no-module text.dwg -c COUNT
expect 4 'cannot be loaded' --module "$folder/absent.arx" -c COUNT
expect 0 'Usage' --help
piped() { # PATTERN LINES ARGS...: the lines go to standard input
  local pattern="$1" lines="$2"
  shift 2
  printf "$lines" | "$console" "$@" >printed 2>&1
  grep -q -- "$pattern" printed || { echo "FAILED: $* does not say: $pattern"; cat printed; failed=1; }
}
piped '1  POINT' 'POINT 5,5\nCOUNT\n' --no-module -s -
piped '1  POINT' 'POINT 5,5\nNOSUCH\nCOUNT\nQUIT\nN\n' --no-module # typed lines go on after a refused one
exit $failed
