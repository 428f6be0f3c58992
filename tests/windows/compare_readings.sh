#!/bin/bash
# Reads each simulated instrument twice, natively and by the Windows program through the DLL over a
# COM port, and compares what the driver wrote and the CSV files byte by byte.
# usage: compare_readings.sh NATIVE_IRVELA WINDOWS_IRVELA WORK_FOLDER [MODEL...]
# Without models: all that the simulator has.
set -euo pipefail
here=$(dirname "$(realpath "$0")")
irvela=$(realpath "$1") program=$(realpath "$2") work=$3
shift 3
if [ $# -gt 0 ]; then
  models=("$@")
else
  mapfile -t models < <("$irvela" models | awk '/^$/ { exit } /^  [^ ]/ { print $1 }')
fi
[ "${#models[@]}" -gt 0 ]

rm -rf "$work"
mkdir -p "$work"
cd "$work"
source "$here/../support/com_ports.sh"

# The instrument stands still at this time, so that both readings find the same values.
instrument=(--clock "2016-03-02 12:10:00" --seed 7)
reading=(--from "2016-02-28 00:00" --to "2016-03-02 11:00" --attempts 2)

lines=()
for model in "${models[@]}"; do
  simulate "$model" "$PWD/$model.native.line" "${instrument[@]}"
  simulate "$model" "$PWD/$model.windows.line" "${instrument[@]}"
  lines+=("$PWD/$model.windows.line")
done
map_ports "${lines[@]}"

# read_both MODEL PORT: both readings at once; fails when one of them does.
read_both() {
  local model=$1 port=$2 kind=older result=0
  [[ $model != k7-* ]] || kind=k7
  "$irvela" read --port "$PWD/$model.native.line" --kind $kind "${reading[@]}" \
    --raw "$model.native.raw" --out "$model.native" >"$model.native.log" 2>&1 &
  local native=$!
  wine "$program" read --port "$port" --kind $kind "${reading[@]}" \
    --raw "$model.windows.raw" --out "$model.windows" >"$model.windows.log" 2>&1 || result=$?
  wait $native || result=$?
  return $result
}

# The two readings are not made in the same second.
drop_clock_difference() {
  sed -i 's/,-\?[0-9]*,"instrument clock/,,"instrument clock/' "$@"
}

failed=0
number=33
for model in "${models[@]}"; do
  if read_both "$model" "COM$number" && cmp "$model.native.raw" "$model.windows.raw" &&
    drop_clock_difference "$model".{native,windows}/index.csv &&
    diff -r "$model.native" "$model.windows"; then
    echo "$model: $(stat -c %s "$model.native.raw") bytes, $(ls "$model.native" | wc -l) files"
  else
    echo "$model: FAILED"
    tail -n 5 "$model.native.log" "$model.windows.log"
    failed=$((failed + 1))
  fi
  number=$((number + 1))
done
echo "$((${#models[@]} - failed)) of ${#models[@]} models read alike"
[ $failed -eq 0 ]
