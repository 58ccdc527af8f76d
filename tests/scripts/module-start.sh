#!/usr/bin/env bash
# module-start.sh CONSOLE: what the module does with the user's settings files when it starts, and what a
# missing or odd one leads to. Each case has an installation and a user's folder of its own.
set -uo pipefail
console="$1"
. "$(dirname "$0")/installation.sh"
user="data/Korvant 2018" # the per-user folder of the present case

# A first start looks for the defaults beside the settings and notes their path at once.
begin first_start
run 0 -c COUNT
iconv -f CP1250 -t UTF-8 "$user/settings.ini" | tr '\\' / | grep -qF "DEFAULTS_INI_PATH=$PWD/$user/defaults.ini" || fail "the path of the defaults is not noted"

# Without settings the module tells which file and is not loaded.
begin no_settings
rm "$KORVANT_HOME/bin/settings.ini"
run 4 -c '@show' -c '@click "Bezár"' -c COUNT
says 'Hiba történt az alkalamazás beállítások betöltésekor.'
says 'Korvant 2018\settings.ini'
grep -qF 'the module refused to start' errors || fail "the refusal is not told"

# Without defaults it asks for a file; giving up refuses the module.
begin no_defaults
rm "$KORVANT_HOME/bin/defaults.ini"
run 4 -c '@show' -c '@close' -c '@cancel' -c COUNT
says 'Kérjük, adja meg az INI fájl elérési útját!'
[ -e out.txt ] && fail "a refused module left something behind"

# A file that cannot be read asks again; one that can is remembered for the next start.
begin chosen_defaults
mv "$KORVANT_HOME/bin/defaults.ini" mine.ini
run 0 -c '@close' -c '@set 1148 "absent.ini"' -c '@ok' -c "@set 1148 \"$PWD/mine.ini\"" -c '@ok' -c 'KVO 0,0 0,10 5,20' -c '@ok' -c COUNT
says '1  Korvant Oszlop'
iconv -f CP1250 -t UTF-8 "$user/settings.ini" | tr '\\' / | grep -qF "DEFAULTS_INI_PATH=$PWD/mine.ini" || fail "the chosen file is not remembered"
# No window this time; but a missing file of the six would bring all of them again, so it stands.
cp mine.ini "$user/defaults.ini"
run 0 -c COUNT

# One of the six files gone resets all of them to the installed ones.
begin reset
run 0 -c COUNT
printf '; mine\r\n' >>"$user/settings.ini"
run 0 -c COUNT
grep -q '; mine' "$user/settings.ini" || fail "settings are overwritten though nothing is missing"
rm "$user/korvant.sdf"
run 0 -c COUNT
grep -q '; mine' "$user/settings.ini" && fail "a missing file does not reset the settings"
[ -e "$user/korvant.sdf" ] || fail "the missing file does not come back"

# The last line counts only with its line end: the type of a new post is read from a line that has none.
begin no_line_end
run 0 -c COUNT
sed -i '/^DOC_POST_DEFAULT_TYPE/d' "$user/defaults.ini"
printf 'DOC_POST_DEFAULT_TYPE=2\n' >>"$user/defaults.ini"
run 0 -c 'KVO 0,0 0,10 5,20' -c '@tab "Általános"' -c '@show' -c '@ok'
says 'combo "Megszüntetendő"'
sed -i '$d' "$user/defaults.ini"
printf 'DOC_POST_DEFAULT_TYPE=2' >>"$user/defaults.ini"
run 0 -c 'KVO 0,0 0,10 5,20' -c '@tab "Általános"' -c '@show' -c '@ok'
says 'combo "Meglévő"'

# A line of 5,000 characters is taken in pieces and harms no other line.
begin long_line
run 0 -c COUNT
{ head -c 5000 /dev/zero | tr '\0' x; printf '\r\n'; cat "$user/defaults.ini"; } >long.ini
cp long.ini "$user/defaults.ini"
run 0 -c 'KVO 0,0 0,10 5,20' -c '@ok' -c COUNT
says '1  Korvant Oszlop'

# Bytes that are no text at all: every key reads as empty, nothing crashes.
begin binary
run 0 -c COUNT
head -c 20000 "$console" >"$user/defaults.ini"
run 0 -c 'KVSCALEOFF' -c COUNT
exit $failed
