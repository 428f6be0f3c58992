#!/bin/bash
# Compares what compilers ask for when a host uses every operation with what the DLL exports: mingw
# and the platform's own, that one with our headers and with plain types. Each name is there, all
# names of an operation lead to the same code, nothing else is exported, and no exported operation
# is missing from the list of uses. The DLL may import from the two system libraries only.
# usage: check_exports.sh CLANG MINGW_GXX OBJDUMP DLL SOURCE_FOLDER
set -euo pipefail
clang=$1 gxx=$2 objdump=$3 dll=$4 source=$5
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# asked_for WHO COMPILER...: "operation name WHO" of each imported name in a function Use...
asked_for() {
  local who=$1
  shift
  "$@" -std=c++20 -O1 -fno-exceptions -fno-rtti "-I$source" "-I$source/include" -S -o - \
    "$source/tests/abi/every_operation.cpp" | awk -v who="$who" '
      /^"?[_?].*:/ { gsub(/[":]/, ""); operation = $1 ~ /^_Use/ ? substr($1, 5) : "" }
      operation && match($0, /__imp__?[^ \t,"()]*/) {
        name = substr($0, RSTART + 6, RLENGTH - 6); sub(/^_/, "", name); print operation, name, who
      }' | sort -u
}
platform=("$clang" --target=i686-pc-windows-msvc)
asked_for mingw "$gxx" > "$folder/uses"
asked_for platform "${platform[@]}" >> "$folder/uses"
asked_for plain "${platform[@]}" -DPLAIN_TYPES >> "$folder/uses"

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

awk '
  NR == FNR { address[$1] = $2; next }
  {
    known[$2] = 1
    if ($3 == "mingw") { code[$1] = address[$2]; used[address[$2]] = 1 }
    ++uses[$3]
    if (!($2 in address)) { print $1 ": not exported: " $2; ++failed }
    constructor = $2 ~ /^\?\?0/  # goes through a forwarding function of its own
    if (!constructor && address[$2] != code[$1]) { print $1 ": other code: " $2; ++failed }
  }
  END {
    for (name in address) {
      if (name ~ /^_Z(N|[0-9])/ && !(address[name] in used)) { print "no use of " name; ++failed }
      if (name ~ /^\?/ && !(name in known)) { print "nobody asks for " name; ++failed }
    }
    print uses["mingw"], uses["platform"], uses["plain"] " uses, " failed + 0 " failures"
    exit failed > 0 || uses["mingw"] < 40 || uses["platform"] < 40 || uses["plain"] < 40
  }' "$folder/exports" "$folder/uses"
