#!/bin/bash
# Reads a simulated instrument of each protocol by the example host, as each compiler built it.
# usage: run_example.sh NATIVE_IRVELA WORK_FOLDER [--wine] EXAMPLE...
set -euo pipefail
support=$(dirname "$(realpath "$0")")/../support
irvela=$(realpath "$1") work=$2
shift 2
start=()
[ "$1" != --wine ] || { start=(wine); shift; }
examples=()
for example in "$@"; do examples+=("$(realpath "$example")"); done

rm -rf "$work"
mkdir -p "$work"
cd "$work"
if [ ${#start[@]} -gt 0 ]; then source "$support/com_ports.sh"; else source "$support/simulators.sh"; fi

lines=()
for example in "${examples[@]}"; do
  name=$(basename "$example")
  simulate 521 "$PWD/$name.1.line"
  simulate k7-523 "$PWD/$name.2.line"
  lines+=("$PWD/$name.1.line" "$PWD/$name.2.line")
done
ports=("${lines[@]}")
if [ ${#start[@]} -gt 0 ]; then
  map_ports "${lines[@]}"
  for i in "${!lines[@]}"; do ports[i]=COM$((33 + i)); done
fi

failed=0
for example in "${examples[@]}"; do
  for kind in 1 2; do
    output=$(basename "$example").$kind
    # The names of the columns, and twelve or thirteen hours with values.
    if "${start[@]}" "$example" "${ports[0]}" $kind >"$output" 2>"$output.error" &&
      grep -aqP '^\tDT\t.*\tt1\t' "$output" &&
      [ "$(grep -acP '^\t20\d\d-\d\d-\d\d \d\d:00(\t-?[0-9.e+-]+){8,}' "$output")" -ge 12 ]; then
      echo "$output: $(tail -n 1 "$output")"
    else
      echo "FAILED: $output"
      cat "$output" "$output.error"
      failed=1
    fi
    ports=("${ports[@]:1}")
  done
done
exit $failed
