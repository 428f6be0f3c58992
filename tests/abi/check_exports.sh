#!/bin/bash
# Compares what two compilers ask for when a host uses every operation with what the DLL exports:
# each name is there, both names of an operation lead to the same code, and no exported operation
# is missing from the list of uses. The DLL may import from the two system libraries only.
# usage: check_exports.sh CLANG MINGW_GXX OBJDUMP DLL SOURCE INCLUDE_FOLDER
set -euo pipefail
clang=$1 gxx=$2 objdump=$3 dll=$4 source=$5 include=$6
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# "operation name" of each imported name in the functions Use... of an assembly listing.
imports() {
  awk '/^"?_Use[A-Za-z]*"?:/ { gsub(/[":]/, ""); operation = substr($1, 5) }
       match($0, /__imp__?[^ \t,"()]*/) {
         name = substr($0, RSTART + 6, RLENGTH - 6); sub(/^_/, "", name); print operation, name
       }' "$1" | sort -u
}
options=(-std=c++20 -O1 -fno-exceptions "-I$include" -S)
$clang --target=i686-pc-windows-msvc "${options[@]}" -fno-rtti -o "$folder/platform.s" "$source"
$gxx "${options[@]}" -o "$folder/mingw.s" "$source"
imports "$folder/platform.s" > "$folder/platform"
imports "$folder/mingw.s" > "$folder/mingw"

libraries=$($objdump -p "$dll" | sed -n 's/.*DLL Name: //p' | sort | paste -sd ' ')
if [ "$libraries" != "KERNEL32.dll msvcrt.dll" ]; then
  echo "imports from: $libraries"
  exit 1
fi

# "name address" of each export.
$objdump -p "$dll" | awk '
  /^\[Ordinal\/Name Pointer\] Table/ { names = 1 }
  /Export RVA$/ { sub(/^.*\+base\[ *[0-9]+\] /, ""); address[count++] = $1 }
  names && /^\t\[ *[0-9]+\]/ {
    sub(/^\t\[ */, ""); split($0, part, /\] */); print part[2], address[part[1] + 0]
  }' | sort > "$folder/exports"

join "$folder/platform" "$folder/mingw" | awk -v exports="$folder/exports" '
  BEGIN { while ((getline line < exports) > 0) { split(line, part, " "); address[part[1]] = part[2] } }
  {
    ++uses; used[address[$3]] = 1
    for (i = 2; i <= 3; ++i) if (!($i in address)) { print $1 ": not exported: " $i; ++failed }
    constructor = $2 ~ /^\?\?0/  # goes through a forwarding function of its own
    if (!constructor && address[$2] != address[$3]) { print $1 ": two names, two addresses"; ++failed }
    if ($2 ~ /^\?/) known[$2] = 1
  }
  END {
    for (name in address) {
      if (name ~ /^_Z(N|[0-9])/ && !(address[name] in used)) { print "no use of " name; ++failed }
      if (name ~ /^\?/ && !(name in known)) { print "nobody asks for " name; ++failed }
    }
    print uses " operations, " failed + 0 " failures"
    exit failed > 0 || uses < 40
  }'
