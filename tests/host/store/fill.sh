#!/bin/bash
# What a reading loses is told by gaps and read by --fill; --since-last reads what is new; another
# instrument at the same place is told from the one before.
# usage: fill.sh IRVELA
set -euo pipefail
irvela=$1
work=$(mktemp -d)
simulator=
finish() {
  [ -z "$simulator" ] || kill "$simulator" 2>/dev/null || true
  rm -rf "$work"
}
trap finish EXIT
cd "$work"

fail() {
  echo "$*" >&2
  cat log >&2
  exit 1
}
ask() { sqlite3 kept.db "$1"; }

# CODE OPTIONS...: a reading that ends with this code.
reading() {
  local expected=$1 code=0
  shift
  "$irvela" read --db kept.db "$@" >shown 2>log || code=$?
  [ "$code" = "$expected" ] || fail "exit code $code: read $*"
}
# CODE: of gaps.
gaps() {
  local code=0
  "$irvela" gaps --db kept.db --format json >gaps.json 2>log || code=$?
  [ "$code" = "$1" ] || fail "exit code $code of gaps: $(cat gaps.json)"
}
says() { grep -q -- "$1" log || fail "not said: $1"; }
runs() { grep -c 'Opros End' log; }

for model in 521 k7-521; do
  line=(--simulate "$model" --clock "2016-09-10 12:00:05")
  period=(--from 2016-09-01 --to 2016-09-07)
  rm -f kept.db*
  reading 1 "${line[@]}" --fill
  says "there is no store kept.db"
  reading 0 "${line[@]}" --groups H --from 2016-09-07 --to "2016-09-07 01:00" --number 2
  reading 1 "${line[@]}" --fill
  says "the store has nothing of an instrument at simulate:$model, number 1"

  reading 3 "${line[@]}" --groups MSH "${period[@]}" --fault flipped-bit:40 --attempts 1 --retry-gaps 0
  gaps 3
  before=$(ask "SELECT count(*) FROM absences")
  [ "$before" -gt 0 ] || fail "nothing is missing"
  missing=$(grep -o '"missing":[0-9]*\|"unasked":[0-9]*' gaps.json | cut -d: -f2 | paste -sd+ | bc)
  reading 0 "${line[@]}" --fill=newest "${period[@]}" --format json
  says "filled $missing of "
  says "kept in kept.db: $missing records new$"
  gaps 0

  # A day later: one run for all archives, and only that day.
  reading 0 "${line[@]}" --groups MSH --since-last
  reading 0 --simulate "$model" --clock "2016-09-11 12:00:05" --groups MSH --since-last -v
  [ "$(runs)" = 1 ] || fail "$(runs) runs"
  [ "$(ask "SELECT count(*) FROM records_${model/-/_}_hours WHERE reading = (SELECT max(id) FROM readings)")" = 24 ] ||
    fail "not a day's hours"
  gaps 0
  reading 0 --simulate "$model" --clock "2016-09-11 12:00:05" --fill
  says "nothing to fill"
done

# A 521 where a 523 was: it is read from the last record of that one on.
rm -f kept.db*
for model in 523 521; do
  "$irvela" simulate "$model" --pty line --clock "2016-09-10 12:00:05" >/dev/null 2>&1 &
  simulator=$!
  until [ -e line ]; do sleep 0.1; done
  if [ "$model" = 523 ]; then
    reading 0 --port line --kind older --groups H --from 2016-09-01 --to 2016-09-02
  else
    reading 0 --port line --kind older --groups H --fill --to "2016-09-03 12:00"
  fi
  kill "$simulator"
  wait "$simulator" 2>/dev/null || true
done
says "filled 14 of 14 missing records"
[ "$(ask "SELECT min(time), count(*) FROM hours_521")" = "2016-09-02 23:00:00|14" ] ||
  fail "the other instrument: $(ask "SELECT min(time), count(*) FROM hours_521")"
[ "$(ask "SELECT count(*) FROM hours_523")" = 96 ] || fail "the first instrument was written to"
