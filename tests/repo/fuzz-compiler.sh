#!/usr/bin/env bash
# fuzz-compiler.sh CHECKOUT: the fuzz targets are built by the clang that the machine has, under either name.
set -uo pipefail
checkout="$1"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
printf 'include("%s/cmake/FuzzCompiler.cmake")\nmessage(STATUS "chosen: ${CMAKE_CXX_COMPILER}")\n' "$checkout" >"$folder/choose.cmake"
cmake="$(command -v cmake)"
failed=0
choice() { # EXPECTED ARGS...: with the programs of $folder/bin alone
  local expected="$1" said
  shift
  said="$(env -i PATH="$folder/bin" "$cmake" -DCMAKE_FIND_USE_CMAKE_SYSTEM_PATH=OFF "$@" -P "$folder/choose.cmake" 2>&1)"
  grep -qF -- "$expected" <<<"$said" || { echo "FAILED: not \"$expected\" but: $said"; failed=1; }
}
compilers() { # NAME...
  rm -rf "$folder/bin"
  mkdir "$folder/bin"
  local name
  for name in "$@"; do printf '#!/bin/sh\n' >"$folder/bin/$name" && chmod +x "$folder/bin/$name"; done
}
compilers clang++
choice "chosen: $folder/bin/clang++"
compilers clang++ clang++-14
choice "chosen: $folder/bin/clang++-14"
compilers clang++-16
choice "chosen: $folder/bin/clang++-16"
choice 'chosen: mine' -DCMAKE_CXX_COMPILER=mine
compilers
choice 'need clang'
grep -q '"fuzz".*CMAKE_CXX_COMPILER' "$checkout/CMakePresets.json" && { echo "FAILED: the preset names a compiler"; failed=1; }
exit $failed
