#!/usr/bin/env bash
# plain-path.sh CHECKOUT: a checkout is built where it stands if the tools can take its path, and else through a
# link that is the same each time and comes back when it is gone.
set -uo pipefail
checkout="$1"
folder="$(cd "$(mktemp -d)" && pwd -P)"
links=()
trap 'rm -rf "$folder"; for link in "${links[@]}"; do rm -f "$link"; rmdir "$(dirname "$link")"; done' EXIT
failed=0
fail() { echo "FAILED: $*"; failed=1; }
place() { # NAME: sets $root, a checkout of that name, and $plain, its path for the tools
  root="$folder/$1"
  mkdir -p "$root/script"
  cp "$checkout/script/plain-path" "$root/script/"
  plain="$(cd / && "$root/script/plain-path")"
}
for name in plain 'two words' 'Forgalmi tervek (őrült ÚT) 50%' 'a+b~c=d@e'; do
  place "$name"
  [ "$plain" = "$root" ] || fail "$name is built in $plain"
done
for name in 'a|b' 'a&b' "a'b" 'a"b' 'a#b' 'a;b' 'a$b' 'a:b' 'a,b' 'a<b>' 'a*?' 'a`b' 'a!b' 'ж' '中文'; do
  place "$name"
  links+=("$plain")
  [[ "$plain" =~ ^/var/tmp/korvant-[0-9]+-[0-9a-f]{12}/checkout$ ]] || { fail "$name is built in $plain"; continue; }
  [ "$(realpath "$plain")" = "$root" ] || fail "$plain does not lead to $root"
  rm "$plain"
  rmdir "$(dirname "$plain")"
  [ "$("$root/script/plain-path")" = "$plain" ] || fail "$name has another link than before"
  [ -e "$plain/script" ] || fail "the link of $name did not come back"
done
for name in 'a\b' $'a\nb'; do
  place "$name" 2>"$folder/said"
  [ -z "$plain" ] || fail "$name is built in $plain"
  grep -q 'cannot be built in' "$folder/said" || fail "no reason is given for $name"
done
exit $failed
