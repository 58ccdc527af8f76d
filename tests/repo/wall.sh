#!/usr/bin/env bash
# The module sees host api headers and its own; the host names no class of the module and
# includes none of its headers. Fails with the lines that break this.
set -u
status=0
complain() { # title, lines
  [ -z "$2" ] && return
  printf '%s\n%s\n' "$1" "$2"
  status=1
}
complain "The module includes the toolkit, the operating system or a database library:" \
  "$(grep -rnE '#include *<(Q[A-Za-z]|sqlite|unistd|sys/|dirent|fcntl|pthread|dlfcn|filesystem)' korvant)"
internal="$(find host -name '*.h' -not -path '*/api/*' -printf '%f\n' | sort -u)"
for header in $internal; do
  complain "The module includes the host's own header $header:" "$(grep -rnF "#include \"$header\"" korvant)"
done
complain "The host names a class of the module:" "$(grep -rnE '\bC?Trfc[A-Z][A-Za-z]*|KORVANT_OBJ\b' host apps --include='*.cpp' --include='*.h' | grep -v 'korvant\.arx')"
module="$(find korvant -name '*.h' -printf '%f\n' | sort -u)"
for header in $module; do
  complain "The host includes the module's header $header:" "$(grep -rnF "#include \"$header\"" host apps)"
done
complain "A toolkit header in a layer that must not know it:" \
  "$(grep -rnE '#include *<Q[A-Z]' host | grep -vE '^host/(mfc|paint)/')"
complain "A toolkit header in a public header:" "$(grep -rnE '#include *<Q[A-Z]' host/*/api)"
exit $status
