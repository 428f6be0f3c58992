#!/bin/bash
# An instrument that loses power, whose clock is set, and that is replaced: what irvela check says.
# usage: story.sh IRVELA SUPPORT_FOLDER
set -euo pipefail
irvela=$1
work=$(mktemp -d)
cd "$work"
# shellcheck source=tests/support/simulators.sh
source "$2/simulators.sh"
trap 'end_simulators; rm -rf "$work"' EXIT

fail() {
  echo "$*" >&2
  cat found >&2
  exit 1
}

# meet OPTIONS...: reads the instrument that is at the place now, and takes it away.
meet() {
  simulate k7-523 meter "$@"
  "$irvela" read --port meter --kind k7 --groups SHT --from "$(date -d '-4 days' +%F)" \
    --to "$(date -d '+1 day' +%F)" --db kept.db >/dev/null 2>log || [ $? = 3 ] || { cat log >&2; exit 1; }
  kill "${simulators[0]}"
  wait "${simulators[0]}" || true
  simulators=()
}

check() {
  local code=0
  "$irvela" check --db kept.db "$@" >found || code=$?
  echo "$code"
}

# The totals of simulated instruments begin anew each September.
rules=(--rule hours-days --rule clock --rule clock-changed --rule ahead --rule working-time --rule replaced)

meet
[ "$(check "${rules[@]}")" = 0 ] || fail "something is found where nothing is wrong"
meet --clock "$(date -d '+3 hours' '+%F %T')"
[ "$(check "${rules[@]}")" = 3 ] || fail "the clock is not found"
meet --seed 2
# No current for two days.
day="(SELECT min(period) + 1 FROM records_k7_523_days)"
sqlite3 kept.db "UPDATE records_k7_523_days SET tw = 0, v1 = 0 WHERE section = (SELECT min(section)
  FROM records_k7_523_days) AND period IN ($day, $day + 1)"
[ "$(check)" = 3 ] || fail "nothing is found"
cat found

says() { grep -Eq "$1" found || fail "nothing of: $1"; }
says '^УРМ523, number 2[0-9]{7}, read at serial:meter, number 1$'
says '^  hours-days .*v1: 24 hours add up to .* m3, the day says 0 m3'
says '^  working-time .*days ТВ1 .*it worked 0 of 48 h$'
says '^  clock  .*the clock was (3 h|2 h 59 min).* ahead in 1 reading, which brought [1-9][0-9]* records made since'
says '^  clock-changed .*the clock was set forward by (3 h|2 h 59 min)'
says '^  ahead .*hours ТВ1 .*up to .* ahead of the reading'
says '^  replaced \(note\) .*it has replaced УРМ523, number 2[0-9]{7} at serial:meter, number 1$'
"$irvela" check --db kept.db --format json >found && fail "no findings as JSON"
python3 -c 'import json; assert len(json.load(open("found"))) > 5' || fail "no JSON"
