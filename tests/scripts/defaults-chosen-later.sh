#!/usr/bin/env bash
# defaults-chosen-later.sh CONSOLE: a user whose defaults lie in a place of their own, and what happens when
# that file is gone at a later start: another one is asked for and remembered in its stead.
set -uo pipefail
console="$1"
. "$(dirname "$0")/installation.sh"
user="data/Korvant 2018"
noted() { iconv -f CP1250 -t UTF-8 "$user/settings.ini" | tr '\\' / | sed -n 's/^DEFAULTS_INI_PATH=//p' | tr -d '\r'; }

begin chosen_later
run 0 -c COUNT
cp "$user/defaults.ini" first.ini
cp "$user/defaults.ini" second.ini
LC_ALL=C sed -i "s|^DEFAULTS_INI_PATH=.*|DEFAULTS_INI_PATH=$PWD/first.ini\r|" "$user/settings.ini"
run 0 -c COUNT
[ "$(noted)" = "$PWD/first.ini" ] || fail "the user's own file is not kept: $(noted)"

rm first.ini
run 0 -c '@close' -c "@set 1148 \"$PWD/second.ini\"" -c '@ok' -c COUNT
[ "$(noted)" = "$PWD/second.ini" ] || fail "the file chosen at this start is not remembered: $(noted)"
run 0 -c COUNT # asks no more: a line for a window would be refused, and so would a window without a line

# Giving up refuses the module and leaves the note as it was, so that the next start asks again.
rm second.ini
run 4 -c '@close' -c '@cancel' -c COUNT
[ "$(noted)" = "$PWD/second.ini" ] || fail "giving up changed the note: $(noted)"
cp "$user/defaults.ini" third.ini
run 0 -c '@close' -c '@set 1148 "absent.ini"' -c '@ok' -c "@set 1148 \"$PWD/third.ini\"" -c '@ok' -c COUNT
[ "$(noted)" = "$PWD/third.ini" ] || fail "the second choice is not remembered: $(noted)"
exit $failed
