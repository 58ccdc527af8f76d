#!/usr/bin/env bash
# jobs.sh CONSOLE: what the long jobs leave outside the drawing: the saved list of the check, paths that
# cannot be written, windows left open at the end, and ticks that go with the module.
set -uo pipefail
console="$1"
home="$(cd "$(dirname "$console")/../home" && pwd)"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
export KORVANT_LOCALAPPDATA="$folder/data"
mkdir -p data
failed=0
fail() { echo "FAILED: $*"; failed=1; }
run() { # STATUS SCRIPT: the lines of standard input
  local status="$1"
  cat >case.scr
  "$console" --new -s case.scr >printed 2>errors
  local actual=$?
  [ "$actual" = "$status" ] || { fail "$actual instead of $status"; cat printed errors; }
}
fault='KVO 0,0 0,10 5,20
@click 232
@select 300 "1 elsőbbség"
@select 301 "B-01 Elsőbbségadás kötelező"
@ok
@click 232
@select 300 "3 tilalom és utasítás"
@select 301 "C-01 Behajtani tilos"
@ok
@click 230
@ok
COPY L

0,0 100,0
KVELL'

# The list: UTF-8 with its mark, lines of the other system, one a row, the handle of the object at its end.
run 0 <<END
$fault
@click "Lista mentése"
@set "Fájlnév:" "lista"
@ok
@click "Bezár"
END
{ printf '\xef\xbb\xbf'; printf 'Sorszám,Korvant objektum,Leírás,ID\r\n'; } >expected
for row in 1 2; do printf '%d,Korvant Oszlop,Helytelen tábla sorrend,HANDLE\r\n' "$row" >>expected; done
sed -E 's/,[0-9A-F]+\r$/,HANDLE\r/' lista.txt | cmp - expected || fail "the saved list differs"
[ "$(grep -o ',[0-9A-F]*.$' lista.txt | sort -u | wc -l)" = 2 ] || fail "two objects have one id"

# Paths that cannot be written: no word, no file, and the window stands as before.
mkdir taken.txt
run 0 <<END
$fault
@click "Lista mentése"
@set "Fájlnév:" "absent/lista.txt"
@ok
@click "Lista mentése"
@set "Fájlnév:" "taken.txt"
@ok
@show
@click "Bezár"
END
grep -qF 'list 2 rows' printed || fail "the list is gone"
[ -e absent ] && fail "a folder was made"
[ -z "$(ls taken.txt)" ] || fail "something was written"

# A window that is left open at the end of the lines closes with the program.
run 0 <<END
$fault
@select 271 0
END

# The ticks live as long as the module.
run 0 <<END
KVST
@click "BUTT_ALL"
@cancel
ARX Unload korvant.arx
ARX Load $home/korvant.arx
KVST
@show
@cancel
END
grep -E '^  [0-9]+ IDC_[A-Z_]+ check' printed | grep -q ' on$' && fail "a module that is loaded again has ticks"
[ "$(grep -cE '^  [0-9]+ IDC_[A-Z_]+ check' printed)" = 14 ] || { fail "the window was not shown"; cat printed errors; }
exit $failed
