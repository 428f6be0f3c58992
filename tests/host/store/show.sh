#!/usr/bin/env bash
# What the store shows is what the reading told, for every model; only when an archive was read is
# not kept with it.
# usage: show.sh IRVELA...
set -euo pipefail
irvela=("$@")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
period=(--clock "2016-03-02 12:10:00" --from "2016-02-28 20:00")

fail() {
  echo "$*" >&2
  exit 1
}

# same LEFT RIGHT: folders that hold the same sections with the same rows.
same() {
  diff -r --exclude=index.csv "$1" "$2" >&2 || fail "$2 is not $1"
  diff <(cut -d, -f1-6 "$1/index.csv") <(cut -d, -f1-6 "$2/index.csv") >&2 || fail "index of $2"
}

# The driver's pauses take most of the time of a reading.
readings=()
for model in 521 522 523 521.1x 721 k7-521 k7-523; do
  "${irvela[@]}" read --simulate "$model" "${period[@]}" --db "$model.db" --raw "$model.raw" \
    --out "read-$model" >/dev/null 2>&1 &
  readings+=($!)
done
for reading in "${readings[@]}"; do wait "$reading" || fail "a reading failed"; done

for model in 521 522 523 521.1x 721 k7-521 k7-523; do
  "${irvela[@]}" show --db "$model.db" --out "shown-$model" >/dev/null
  same "read-$model" "shown-$model"
done

# The files of a reading bring the same into another store, once.
for model in 523 721 k7-523; do
  for source in "$model.raw" "read-$model"; do
    "${irvela[@]}" import "$source" --db taken.db 2>log
    grep -q ' 0 records new' log && fail "nothing came of $source"
    "${irvela[@]}" show --db taken.db --out taken >/dev/null
    same "read-$model" taken
    "${irvela[@]}" import "$source" --db taken.db 2>log
    grep -q ' 0 records new, [0-9]* as before.\?$' log || fail "$source came twice: $(cat log)"
    rm -rf taken taken.db*
  done
done

# What a reading brought stays, unless it is to be replaced.
cp 523.db taken.db
hours() { "${irvela[@]}" show --db taken.db --groups H --format csv; }
hours >before
"${irvela[@]}" read --simulate 523 "${period[@]}" --sim-units 1 --raw other.raw >/dev/null 2>&1
"${irvela[@]}" import other.raw --db taken.db 2>log
grep -q '[1-9][0-9]* otherwise, left as kept.\?$' log || fail "not left: $(cat log)"
hours | cmp before - || fail "a file changed what a reading brought"
"${irvela[@]}" import other.raw --replace --db taken.db 2>log
grep -q ' [1-9][0-9]* changed.\?$' log || fail "not replaced: $(cat log)"

# A change of units is no change of values.
"${irvela[@]}" show --db 523.db --units gj,kpa --out wanted >/dev/null
"${irvela[@]}" decode 523.raw --units gj,kpa --out decoded >/dev/null
same decoded wanted

"${irvela[@]}" export --db 523.db --format jsonl --out rows.jsonl 2>/dev/null
"${irvela[@]}" export --db 523.db --format influx --utc-offset 3 --out points 2>/dev/null
rows=$(tail -q -n +2 shown-523/[0-9]*.csv | wc -l)
[ "$(wc -l <rows.jsonl)" = "$rows" ] || fail "not all rows exported"
[ "$(sed -E 's/ [^ ]+( [0-9]+)$/\1/' points | sort -u | wc -l)" = "$rows" ] ||
  fail "points that another one would replace"
grep -q '^hours,serial=12822465,model=УРМ523,system=ТВ1 .*q_gcal=[0-9.]*.* 1456678800000000000$' \
  points || fail "no point of 2016-02-28 20:00"
