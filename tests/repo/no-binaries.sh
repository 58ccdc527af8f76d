#!/usr/bin/env bash
# Drawings and previews are made from scripts; a committed binary could not be reviewed.
set -u
files="$(git ls-files 2>/dev/null | grep -iE '\.(dwg|bmp|png|pdf|xls|mdb|arx|so|o)$')"
[ -z "$files" ] && exit 0
printf 'Committed binaries:\n%s\n' "$files"
exit 1
