#!/usr/bin/env bash
# module-user-folder.sh CONSOLE: users whose folder has any letters, and users who have none. A second start works like
# the first; what is missing is told in one line; nothing is ever written to the root folder.
set -uo pipefail
console="$1"
. "$(dirname "$0")/installation.sh"
root_before="$(ls -A /)"
post=(-c 'KVO 0,0 0,10 5,20' -c '@ok' -c COUNT)
fault='A felhasználói mappa hiányzik'
starts_twice() { # the second start must print what the first did, with no window in the way
  run 0 --new "${post[@]}" -c 'TRUSTEDPATHS .'
  says '1  Korvant Oszlop'
  cp printed first
  run 0 --new "${post[@]}" -c 'TRUSTEDPATHS .'
  diff first printed || fail "the second start differs"
}
stores_nothing() {
  [ "$(ls -A /)" = "$root_before" ] || fail "something was written to the root folder"
  [ -z "$(git -C "$KORVANT_HOME" diff --no-index --stat "$home/bin" "$KORVANT_HOME/bin" | grep -v settings.ini | grep '|')" ] || fail "the installation changed"
}

# Letters of any writing, a blank at the end, and what looks like a code of the settings file.
number=0
for name in 'Αλέξης' 'Иванов Пётр' '用户' 'emoji 😀🚧' 'ends in a blank ' '<U+0041>' $'line\nbreak' 'Őrült ű' 'what?' 'semi;colon=equals'; do
  begin "letters$((number += 1))"
  export KORVANT_LOCALAPPDATA="$PWD/$name"
  starts_twice
  [ -f "$KORVANT_LOCALAPPDATA/Korvant 2018/settings.ini" ] || fail "no settings in the folder $name"
  says_not 'INI fájl'
done

# What the user chose in such a folder is remembered like any other choice.
begin foreign_choice
sed 's/^DOC_POST_DEFAULT_TYPE=.*/DOC_POST_DEFAULT_TYPE=2\r/' "$KORVANT_HOME/bin/defaults.ini" >"Δική μου 😀.ini"
mv "$KORVANT_HOME/bin/defaults.ini" kept.ini
run 0 --new -c '@close' -c "@set 1148 \"$PWD/Δική μου 😀.ini\"" -c '@ok' -c COUNT
cp kept.ini "data/Korvant 2018/defaults.ini"
run 0 --new -c 'KVO 0,0 0,10 5,20' -c '@tab "Általános"' -c '@show' -c '@ok'
says 'combo "Megszüntetendő"'

# A path so long that its letters' codes fill more than a line of the file.
begin long_letters
export KORVANT_LOCALAPPDATA="$PWD/$(printf 'ж%.0s' {1..120})/$(printf '😀%.0s' {1..30})"
starts_twice

# No home, an empty one, one that does not exist, the root folder.
for home_of_user in - '' /nonexistent/of/nobody / //; do
  begin "home${home_of_user//\//_}"
  unset KORVANT_LOCALAPPDATA XDG_DATA_HOME
  saved_home="$HOME"
  if [ "$home_of_user" = - ]; then unset HOME; else export HOME="$home_of_user"; fi
  starts_twice
  [ "$(grep -cF "$fault" printed)" = 1 ] || fail "not told in one line"
  says 'HOME'
  stores_nothing
  export HOME="$saved_home"
done

# A path too long for the system, one that is no folder.
begin too_long
export KORVANT_LOCALAPPDATA="$PWD/$(printf 'a%.0s' {1..200})/$(printf 'b%.0s' {1..200})"
starts_twice
[ "$(grep -cF "$fault: az útvonala túl hosszú" printed)" = 1 ] || fail "not told in one line"
[ -e "$PWD/$(printf 'a%.0s' {1..200})" ] && fail "a part of the path was made"
begin no_folder
touch file
export KORVANT_LOCALAPPDATA="$PWD/file/data"
starts_twice
[ "$(grep -cF "$fault: nem hozható létre" printed)" = 1 ] || fail "not told in one line"
stores_nothing
exit $failed
