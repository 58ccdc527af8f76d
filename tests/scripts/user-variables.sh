#!/usr/bin/env bash
# user-variables.sh CONSOLE: system variables that belong to the user are there again at the next start, whatever
# letters they hold; those of the session are not.
set -uo pipefail
console="$1"
. "$(dirname "$0")/installation.sh"
begin variables
run 0 --new --no-module -c TRUSTEDPATHS -c 'C:\Παράδειγμα;D:\用户 😀\Őrült ű' -c 'GRIPSIZE 9'
run 0 --new --no-module -c TRUSTEDPATHS -c '' -c GRIPSIZE -c ''
says '<"C:\Παράδειγμα;D:\用户 😀\Őrült ű">'
says 'GRIPSIZE <5>'
# The module adds its folder once, not at every start; Enter keeps the value.
run 0 --new -c 'KVO 0,0 0,10 5,20' -c '@ok'
run 0 --new -c 'KVO 0,0 0,10 5,20' -c '@ok' -c TRUSTEDPATHS -c ''
folder_of_module="$(printf %s "$KORVANT_HOME" | sed 's|/|\\|g')\\"
says "<\"C:\\Παράδειγμα;D:\\用户 😀\\Őrült ű;$folder_of_module\">"
# "." empties it for good.
run 0 --new --no-module -c 'TRUSTEDPATHS .'
run 0 --new --no-module -c TRUSTEDPATHS -c ''
says 'TRUSTEDPATHS, or . for none <"">'
# Another user has his own; a user without a folder works without.
export KORVANT_LOCALAPPDATA="$PWD/other"
run 0 --new --no-module -c 'TRUSTEDPATHS C:\Other'
export KORVANT_LOCALAPPDATA="$PWD/data"
run 0 --new --no-module -c TRUSTEDPATHS -c ''
says_not 'Other'
env -u KORVANT_LOCALAPPDATA -u XDG_DATA_HOME -u HOME "$console" --new --no-module -c 'TRUSTEDPATHS C:\Mine' -c TRUSTEDPATHS -c '' >printed 2>errors
says '<"C:\Mine">'
exit $failed
