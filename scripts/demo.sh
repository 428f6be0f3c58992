#!/usr/bin/env bash
# Builds the reading program and shows it: simulated instruments on a pseudo terminal, read at the
# speed of a real line.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

install_packages "${native_packages[@]}"
echo "Building ..."
quietly cmake --preset native
quietly cmake --build --preset native --target irvela

irvela=build/native/irvela
line=$(mktemp -u /tmp/irvela-line-XXXXXX)
simulator=
stop_simulator() {
  if [ -n "$simulator" ]; then
    kill "$simulator" 2>/dev/null || true
    wait "$simulator" 2>/dev/null || true
    simulator=
  fi
}
trap stop_simulator EXIT

# show MODEL KIND FOLDER OPTIONS...: simulates the model and reads it over the line.
show() {
  local model=$1 kind=$2 folder=$3
  shift 3
  rm -rf "$folder"
  echo
  echo "== Model $model, simulated on a line of 2400 bit/s"
  "$irvela" simulate "$model" --pty "$line" --line-speed 2400 --clock "2016-03-02 12:10:00" &
  simulator=$!
  until [ -e "$line" ]; do sleep 0.1; done
  echo "\$ $irvela read --port $line --kind $kind $* --out $folder"
  "$irvela" read --port "$line" --kind "$kind" "$@" --out "$folder"
  stop_simulator
  echo "CSV files:"
  printf '  %s\n' "$folder"/*.csv
}

show 521 older out/demo-521 --from "2016-02-28 00:00" --to "2016-03-02 11:00"
show 523 older out/demo-523 --from "2016-02-29 20:00" --to "2016-03-01 03:00" --rows 6
show k7-521 k7 out/demo-k7-521 --from "2016-02-29 20:00" --to "2016-03-01 03:00" --rows 6

echo
echo "The readings are in out/. Try: $irvela read --simulate 521 -v"
