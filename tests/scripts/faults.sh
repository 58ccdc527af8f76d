#!/usr/bin/env bash
# faults.sh CONSOLE MODULE: what a module throws, by pointer or by value, ends its command in one line; the
# drawing lives, and nothing that was thrown or opened is left behind.
set -uo pipefail
console="$1" module="$2"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
cd "$folder"
export KORVANT_LOCALAPPDATA="$folder/data"
mkdir -p data
failed=0
fail() { echo "FAILED: $1"; cat printed errors; failed=1; }
one() { # COMMAND REASON: a script stops there with status 1
  "$console" --new --module "$module" -c "$1" -c 'POINT 9,9' >printed 2>errors
  [ $? = 1 ] || fail "$1 has another status"
  [ "$(cat errors)" = "-c 1: The command $1 failed: $2" ] || fail "$1 does not say: $2"
  [ "$(grep -c "$2" printed)" = 1 ] || fail "$1 does not say it in one line"
}
one FAULTEXC 'half is drawn'
one FAULTDB 'the table is not there'
one FAULTSTD 'out of paper'
one FAULTINT 'exception int'
piped() { printf '%s\n' "$@" | "$console" --new --module "$module" >printed 2>errors || fail "the run ended badly"; }
says() { grep -q -- "$1" printed || fail "does not say: $1"; }

piped FAULTMUTE FAULTEXC FAULTDB FAULTSTD FAULTINT FAULTNEST FAULTLEFT COUNT U U COUNT 'MOVE ALL' '' 0,0 1,1 'SAVEAS kept' CLOSE 'OPEN kept' COUNT
says 'The command FAULTMUTE failed: exception .*SilentFault'
says 'nested: 1'
says 'faults alive 0, objects open 0'
says '     6  in all' # three halves
[ "$(grep -c '     2  in all' printed)" = 2 ] || fail "undo does not take back a half each time, or the save lost something"

piped FAULTREACTOR REGEN FAULTLEFT
says 'A reactor of the editor failed: the reactor stumbled'
says 'faults alive 0'

piped 'POINT 1,1' FAULTSAVE 'SAVEAS saved' FAULTLEFT
says 'A module failed: the module cannot save'
says '^Saved: '
says 'faults alive 0'
[ -s saved.dwg ] || fail "the drawing was not saved"
exit $failed
