#!/usr/bin/env bash
# Builds the reading program and shows it: simulated instruments on a pseudo terminal, read at the
# speed of a real line.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

install_packages "${native_packages[@]}"
./scripts/page-sources.sh
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

# show MODEL KIND SPEED OPTIONS...: simulates the model on a line of this speed and reads it.
show() {
  local model=$1 kind=$2 speed=$3 folder=out/demo-$1
  shift 3
  rm -rf "$folder"
  echo
  echo "== Model $model, simulated on a line of $speed bit/s"
  "$irvela" simulate "$model" --pty "$line" --line-speed "$speed" --clock "2016-03-02 12:10:00" &
  simulator=$!
  until [ -e "$line" ]; do sleep 0.1; done
  echo "\$ $irvela read --port $line --kind $kind --baud $speed $* --out $folder"
  "$irvela" read --port "$line" --kind "$kind" --baud "$speed" "$@" --out "$folder"
  stop_simulator
  echo "CSV files:"
  printf '  %s\n' "$folder"/*.csv
}

show 521 older 2400 --from 2016-02-28T00:00 --to 2016-03-02T11:00
show 523 older 2400 --from 2016-02-29T20:00 --to 2016-03-01T01:00 --rows 6
show k7-521 k7 9600 --from 2016-02-29T20:00 --to 2016-03-01T03:00 --rows 6

# What the program is for: an archive without holes.
db=out/demo.db
rm -f "$db"*
run() {
  echo "\$ $irvela $*"
  "$irvela" "$@"
}
echo
echo "== A database, with a record that is lost on purpose"
hours=(read --simulate 521 --clock "2016-03-02 12:10:00" --groups SH --db "$db")
run "${hours[@]}" --from 2016-02-28 --rows 4 --fault frozen:30:1 --attempts 1 --retry-gaps 0 || [ $? = 3 ]
echo
run gaps --db "$db" --format map || [ $? = 3 ]
echo
run gaps --db "$db" || [ $? = 3 ]
echo
run "${hours[@]}" --fill
echo
run gaps --db "$db"

echo
run report --db "$db" -o out/demo.html

echo
echo "The readings are in out/; open out/demo.html in a browser. Try: $irvela read --simulate 521 -v"
