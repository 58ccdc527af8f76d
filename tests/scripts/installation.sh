# Sourced by cases that change an installation. Needs $console; sets $folder, which goes with the script.
checkout="$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)"
home="$(cd "$(dirname "$console")/../home" && pwd)"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
failed=0
begin() { # NAME: goes to a folder with a fresh installation, whose settings name its own library, and a fresh user
  mkdir -p "$folder/$1/home" "$folder/$1/data"
  cp -r "$home/." "$folder/$1/home/"
  cd "$folder/$1" || exit 1
  export KORVANT_HOME="$PWD/home" KORVANT_LOCALAPPDATA="$PWD/data"
  bash "$checkout/library/place-library.sh" "$checkout/install/bin/settings.ini" "$PWD/home/library" >home/bin/settings.ini
}
fail() { echo "FAILED ($(basename "$PWD")): $*"; cat printed errors; failed=1; }
run() { # STATUS ARGS...: what it prints goes to the files "printed" and "errors"
  local status="$1"
  shift
  "$console" "$@" >printed 2>errors </dev/null
  local actual=$?
  [ "$actual" = "$status" ] || fail "$* gave $actual instead of $status"
}
says() { grep -qF -- "$1" printed || fail "does not say: $1"; }
says_not() { ! grep -qF -- "$1" printed || fail "says: $1"; }
