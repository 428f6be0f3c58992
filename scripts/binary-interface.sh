#!/bin/bash
# Writes the tables of exports, imports and slots of the built DLL into docs/binary-interface.md;
# with --check only tells whether the document shows this DLL.
# usage: binary-interface.sh [--check] [DLL]
set -euo pipefail
cd "$(dirname "$0")/.."
check=
if [ "${1:-}" = --check ]; then
  check=1
  shift
fi
dll=${1:-build/windows/TKSplDrv.dll}
document=docs/binary-interface.md
tools=i686-w64-mingw32
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# address name name ...: an operation's names stand in one row.
exports() {
  awk '
    /^\[Ordinal\/Name Pointer\] Table/ { names = 1 }
    /Export RVA$/ { sub(/^.*\+base\[ *[0-9]+\] /, ""); address[count++] = $1 }
    names && /^\t\[ *[0-9]+\]/ {
      sub(/^\t\[ */, ""); split($0, part, /\] */); print part[2], address[part[1] + 0]
    }' "$folder/headers"
}

# The operation, mingw's name, the platform compilers' names by our headers and with plain types. A
# constructor has two addresses.
export_rows() {
  sed -n '/plain types/,$s/^ *"\(.*\)" = .*/\1/p' library/TKSplDrv.def > "$folder/plain"
  exports | awk '
    NR == FNR { plain[$1] = 1; next }
    $1 ~ /^\?\?0/ { constructor = $1; next }
    $1 ~ /^\?/ { other[$2, $1 in plain] = $1; next }
    $1 !~ /(C2|D2)E/ { address[$1] = $2 }
    END {
      for (name in address) {
        ours = name ~ /C1E/ ? constructor : other[address[name], 0]
        print name, ours ? "`" ours "`" : "-", other[address[name], 1]
      }
    }' "$folder/plain" - | while read -r name ours plain; do
    echo "| \`$($tools-c++filt -n "$name")\` | \`$name\` | ${ours#-} | ${plain:+\`$plain\`} |"
  done | LC_ALL=C sort
}

import_rows() {
  awk '
    /DLL Name:/ { library = $3 }
    library && /^\t[0-9a-f]+\t *[0-9]+  / { print library, $3 }
    /^There is an export table/ { exit }' "$folder/headers" |
    LC_ALL=C sort | awk '
      $1 != library { printf "%s| %s | %s", end, $1, $2; library = $1; end = " |\n"; next }
      { printf ", %s", $2 }
      END { printf "%s", end }'
}

# The 13 pointers behind the two words that every table of mingw begins with.
table_of() {
  local start
  start=$((16#$(awk -v name="__ZTV$1" '$3 == name { print $1 }' "$folder/symbols") + 8))
  $tools-objdump -s --start-address=$start --stop-address=$((start + 52)) "$dll" |
    sed -n 's/^ [0-9a-f]\{8\} \(.\{35\}\).*/\1/p' | tr ' ' '\n' | grep . |
    sed 's/\(..\)\(..\)\(..\)\(..\)/\4\3\2\1/' | while read -r address; do
      name=$(awk -v a="$address" '$1 == a && $2 == "T" { print substr($3, 2) }' "$folder/symbols")
      if [ -n "$name" ]; then $tools-c++filt -n "$name"; else echo pure; fi
    done
}

slot_rows() {
  paste -d'|' <(seq 0 12) <(table_of 8TKSplDrv) <(table_of 8TavDrvV1) |
    awk -F'|' '{ printf "| %d | `%s` | %s |\n", $1, $2, $3 == "pure" ? $3 : "`" $3 "`" }'
}

tables() {
  echo "### Slots"
  echo
  echo "| Slot | TKSplDrv | TavDrvV1 |"
  echo "|---|---|---|"
  slot_rows
  echo
  echo "### Imports"
  echo
  echo "| Library | Functions |"
  echo "|---|---|"
  import_rows
  echo
  echo "### Exports"
  echo
  echo "| Operation | mingw | Platform's own compilers | With plain types, where it differs |"
  echo "|---|---|---|---|"
  export_rows
}

$tools-objdump -p "$dll" > "$folder/headers"
$tools-nm "$dll" > "$folder/symbols"
tables > "$folder/tables"
awk -v tables="$folder/tables" '
  /<!-- end of tables -->/ { skip = 0 }
  !skip { print }
  /<!-- tables of the built DLL -->/ { while ((getline line < tables) > 0) print line; skip = 1 }
' "$document" > "$folder/document"
if [ -z "$check" ]; then
  cp "$folder/document" "$document"
elif ! diff -u "$document" "$folder/document"; then
  echo "run scripts/binary-interface.sh" >&2
  exit 1
fi
