#!/usr/bin/env bash
# run-case.sh CONSOLE CASE.scr [--accept]: runs one case and compares; --accept writes what it printed as
# the expected text, to be read before it is kept.
set -uo pipefail
console="$1" case="$2" accept="${3:-}"
head_value() { sed -n "s/^; $1: //p" "$case" | head -n 1; }
args="$(head_value args)"; args="${args:---no-module}"
status="$(head_value status)"; status="${status:-0}"
error="$(head_value error)"
only="$(head_value only)"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
cd "$folder"
export KORVANT_LOCALAPPDATA="$folder/data" # settings of this case alone
mkdir -p data
module="$(head_value module)" # one of the test modules, copied beside the case
[ -z "$module" ] || cp "$(dirname "$(dirname "$console")")/test_modules/$module.arx" . || exit 1
# shellcheck disable=SC2086
"$console" $args -s "$case" >printed 2>errors </dev/null
actual=$?
build="$(cd "$(dirname "$console")/.." && pwd)"
literally() { printf '%s' "$1" | sed 's/[][\\.^$*+?(){}|]/\\&/g'; } # as a pattern of sed -E
at=$'\x01' # a delimiter that no path holds
# Folders differ from run to run and from machine to machine, and so do the two kinds of slash. Handles
# follow from what a new drawing holds, which is no promise, and the time of a library file from the build.
sed -E -e "s|\\\\|/|g" -e "s$at$(literally "$folder")${at}FOLDER${at}g" -e "s$at$(literally "$(realpath "$build")")${at}BUILD${at}g" -e "s$at$(literally "$build")${at}BUILD${at}g" -e 's/(handle|PointerId|OwnershipId) [0-9A-F]+/\1 HANDLE/' -e 's/^([A-Z]+|Korvant .*) [0-9A-F]+$/\1 HANDLE/' \
  -e 's#writeString "[0-9]+ [0-9]{2}/[0-9]{2}/[0-9]{2} [0-9:]{8}"#writeString "STAMP"#' printed | grep -E -- "${only:-}" >normal
expected="${case%.scr}.expected"
if [ "$accept" = --accept ]; then
  cp normal "$expected"
  cat errors
  echo "status $actual"
  exit 0
fi
failed=0
if [ "$actual" != "$status" ]; then
  echo "exit status $actual instead of $status"; cat errors; failed=1
fi
if [ -n "$error" ] && ! grep -qF -- "$error" errors; then
  echo "standard error does not say: $error"; cat errors; failed=1
fi
diff -u "$expected" normal || failed=1
exit $failed
