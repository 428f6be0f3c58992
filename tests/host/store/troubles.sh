#!/bin/bash
# What can be wrong with a database: one line says so, the exit code is 1, and nothing is harmed.
# usage: troubles.sh IRVELA...
set -euo pipefail
irvela=("$@")
first=$(dirname "$(realpath "$0")")/../../data/store-version-1.sql
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

reading() {
  "${irvela[@]}" read --simulate 523 --groups H --clock "2016-09-10 12:00:05" \
    --from "${from:-2016-09-01}" --to 2016-09-04 "$@" >/dev/null 2>log
}

# NAME WORDS OPTIONS...: a reading that fails with these words.
refused() {
  local name=$1 words=$2 code=0
  shift 2
  reading "$@" || code=$?
  if [ "$code" != 1 ] || ! tail -n 1 log | grep -q "^irvela: .*$words"; then
    echo "$name: exit code $code, said:" >&2
    cat log >&2
    exit 1
  fi
}

hours() { sqlite3 "$1" 'PRAGMA integrity_check; SELECT count(*) FROM hours_523'; }

reading --db good.db
[ "$(hours good.db)" = $'ok\n192' ]

head -c 20000 /dev/urandom >noise.db
before=$(cksum noise.db)
refused "no database" "cannot open noise.db: file is not a database" --db noise.db
[ "$(cksum noise.db)" = "$before" ]

refused "no folder" "cannot open none/a.db: unable to open database file" --db none/a.db

# A page never goes over a store, not even by force, and over another file by force only.
echo text >other.txt
for file in good.db other.txt; do
  cp "$file" kept
  for force in '' --force; do
    [ "$file$force" != other.txt--force ] || continue
    code=0
    "${irvela[@]}" report --db good.db --out "$file" $force 2>log || code=$?
    [ "$code" = 2 ] && cmp "$file" kept || { echo "written over: $file" >&2; exit 1; }
  done
done
"${irvela[@]}" report --db good.db --out other.txt --force 2>log
[ "$(wc -l <log)" = 1 ] && grep -q '^irvela: 1 instrument in other.txt' log || { cat log >&2; exit 1; }

cp good.db newer.db
sqlite3 newer.db 'UPDATE store_version SET version = 1000'
refused "a newer store" "newer.db is a store of version 1000" --db newer.db

# The first version's tables, as its program left them: they open, and hold what an instrument says
# now.
sqlite3 first.db <"$first"
before=$("${irvela[@]}" show --db first.db --groups BTH --format csv)
"${irvela[@]}" read --simulate 521 --groups BTH --clock "2016-09-10 12:00:05" \
  --from "2016-09-10 06:00" --db first.db >/dev/null 2>log
grep -q ' 0 records new, 7 as before' log || { cat log >&2; exit 1; }
[ "$("${irvela[@]}" show --db first.db --groups BH --format csv)" = \
  "$(sed -n '/^# current/,/^$/!p' <<<"$before")" ]

# A limit of a file's size stands for a full disk.
cp good.db full.db
(
  trap '' XFSZ
  ulimit -f 400
  from=2015-09-01 refused "a full disk" "cannot write full.db: " --db full.db
)
reading --db full.db
[ "$(hours full.db | head -n 1)" = ok ]

cp good.db damaged.db
head -c 120000 /dev/zero | dd of=damaged.db bs=4096 seek=2 conv=notrunc 2>/dev/null
refused "a damaged store" "damaged.db: database disk image is malformed" --db damaged.db

# What is not there is not made by asking.
code=0
"${irvela[@]}" list --db none.db 2>log || code=$?
[ "$code" = 1 ] && grep -q 'irvela: there is no store none.db' log && [ ! -e none.db ]

# Two programs wait for each other.
reading --db both.db &
first=$!
"${irvela[@]}" read --simulate k7-523 --groups H --clock "2016-09-10 12:00:05" \
  --from 2016-09-01 --to 2016-09-04 --db both.db >/dev/null 2>other || { cat other >&2; exit 1; }
wait "$first" || { cat log >&2; exit 1; }
[ "$(hours both.db)" = $'ok\n192' ]
