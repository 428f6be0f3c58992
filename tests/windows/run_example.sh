#!/bin/bash
# Reads a simulated instrument of each protocol by the example host, as each compiler built it.
# usage: run_example.sh NATIVE_IRVELA WORK_FOLDER EXAMPLE...
set -euo pipefail
here=$(dirname "$(realpath "$0")")
irvela=$(realpath "$1") work=$2
shift 2
examples=()
for example in "$@"; do examples+=("$(realpath "$example")"); done

rm -rf "$work"
mkdir -p "$work"
cd "$work"
source "$here/com_ports.sh"

lines=()
for example in "${examples[@]}"; do
  name=$(basename "$example")
  simulate 521 "$PWD/$name.older"
  simulate k7-523 "$PWD/$name.k7"
  lines+=("$PWD/$name.older" "$PWD/$name.k7")
done
map_ports "${lines[@]}"

failed=0
number=33
for example in "${examples[@]}"; do
  for kind in 1 2; do
    output=$(basename "$example").$kind
    # A section of current values and twelve or thirteen hours.
    if wine "$example" "COM$number" $kind >"$output" 2>"$output.error" &&
      grep -aq '^== O' "$output" && grep -aq '^== H' "$output" &&
      [ "$(grep -acP '^\t20\d\d-\d\d-\d\d \d\d:00:00\t' "$output")" -ge 12 ]; then
      tail -n 1 "$output"
    else
      echo "FAILED: $output"
      cat "$output" "$output.error"
      failed=1
    fi
    number=$((number + 1))
  done
done
exit $failed
