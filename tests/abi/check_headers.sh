#!/bin/bash
# Each public header alone is enough for every compiler that a host may be built with.
# usage: check_headers.sh INCLUDE_FOLDER CLANG MINGW_GXX
set -euo pipefail
include=$1 clang=$2 gxx=$3
compilers=("c++" "$clang" "$clang --target=i686-pc-windows-msvc" "$gxx")
count=0
for header in "$include"/TKSplDrv/*.h; do
  for compiler in "${compilers[@]}"; do
    $compiler -std=c++17 -Wall -Wextra -Wpedantic -Werror "-I$include" -fsyntax-only -x c++ \
      -include "$header" /dev/null
    count=$((count + 1))
  done
done
echo "$count headers compiled"
[ $count -ge 20 ]
