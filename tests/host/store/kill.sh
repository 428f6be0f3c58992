#!/bin/bash
# Kills readings at random moments: the store stays whole and holds every row that was shown, and a
# reading that fills what it lacks completes it.
# usage: kill.sh KILLS IRVELA...
set -euo pipefail
kills=$1
shift
irvela=("$@")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

fail() {
  echo "$*" >&2
  exit 1
}

# Seven months of hours, in about a second. For a shell of its own, that becomes the program.
reading() {
  exec "${irvela[@]}" read --simulate 521 --groups H --clock "2016-09-10 12:00:05" \
    --from 2016-01-01 --to 2016-07-31 "$@" 2>log
}
all=5112

ask() { sqlite3 "$1" "$2"; }

# Rows are shown as they arrive while an instrument is followed; the last line may be cut, and the
# current values at the end are no hour's.
lost() {
  LC_ALL=C grep -aE '^[0-9-]{10} [0-9]{2}:00:00,' shown | sed '$d' | cut -d, -f1 | sort >shown_times || true
  ask kept.db 'SELECT time FROM hours_521' | sort >kept_times
  comm -23 shown_times kept_times
}

for ((i = 1; i <= kills; i++)); do
  reading --db kept.db --follow --format csv >shown &
  program=$!
  sleep "$(awk -v seed="$RANDOM" 'BEGIN { srand(seed); print 1.5 + 1.5 * rand() }')"
  kill -KILL "$program"
  wait "$program" 2>/dev/null || true
  [ "$(ask kept.db 'PRAGMA integrity_check')" = ok ] || fail "kill $i: the store is damaged"
  [ -z "$(lost)" ] || fail "kill $i: rows that were shown are lost: $(lost | head -n 3) of $(wc -l <shown)"
  # Without the table it was killed before the store was made.
  count=$(ask kept.db 'SELECT count(*) FROM hours_521' 2>/dev/null || echo 0)
  echo "kill $i: $(wc -l <shown_times) rows were shown, $count are kept"
  # Killed too late to leave anything to do.
  [ "$count" -lt "$all" ] || [ "$i" = "$kills" ] || rm -f kept.db*
done

# What the archive lacks now is told, and read; no record comes twice. Killed before the first record,
# there is nothing to fill.
[ "$count" -gt 0 ] || (exec "${irvela[@]}" read --simulate 521 --groups H --clock "2016-09-10 12:00:05" \
  --from 2016-03-01 --to 2016-03-02 --db kept.db >/dev/null 2>log)
code=0
"${irvela[@]}" gaps --db kept.db --from 2016-01-01 --to 2016-07-31 >gaps || code=$?
[ "$code" = 3 ] || [ "$count" = "$all" ] || fail "no gaps: $(cat gaps)"
(reading --db kept.db --fill >/dev/null)
"${irvela[@]}" gaps --db kept.db --from 2016-01-01 --to 2016-07-31 >gaps || fail "gaps: $(cat gaps)"
(reading --db whole.db >/dev/null)
contents='SELECT system, time, sp, t1, v1, m1, q FROM hours_521 ORDER BY system, time'
[ "$(ask kept.db "$contents")" = "$(ask whole.db "$contents")" ] || fail "the archive is not whole"
[ "$(ask whole.db 'SELECT count(*) FROM hours_521')" = "$all" ] || fail "not all was read"
[ "$(ask kept.db 'SELECT count(*) FROM former_records')" = 0 ] || fail "records changed"
