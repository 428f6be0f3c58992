#!/bin/bash
# The store on a real server, started here for the time of the test: the same archive as in a file,
# nothing twice, and one clear line when the server goes away in the middle.
# usage: postgres.sh IRVELA PAGE_OF_THE_STORE
set -euo pipefail
irvela=$1
page=$2
source "$(dirname "$0")/queries.sh"

# The server refuses to run as root.
as_server() {
  if [ "$(id -u)" -eq 0 ]; then
    (cd / && runuser -u postgres -- "$@")
  else
    "$@"
  fi
}

bin=$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | tail -n 1)
if [ -z "$bin" ] || ! as_server true 2>/dev/null; then
  echo "LEFT OUT: there is no PostgreSQL server here, or no user that it runs as"
  exit 77
fi

work=$(mktemp -d)
chmod 755 "$work"
server=$(as_server mktemp -d)
stop() { as_server "$bin/pg_ctl" -D "$server/data" -m "$1" -w stop >/dev/null 2>&1 || true; }
start() {
  as_server "$bin/pg_ctl" -D "$server/data" -w -l "$server/log" \
    -o "-c listen_addresses='' -c unix_socket_directories='$server'" start >/dev/null
}
trap 'stop immediate; rm -rf "$work"; as_server rm -rf "$server"' EXIT
as_server "$bin/initdb" -D "$server/data" -U irvela -A trust --locale=C -E UTF8 >/dev/null
start
db="postgresql://irvela@/postgres?host=$server"
cd "$work"

fail() {
  echo "$*" >&2
  cat log >&2
  exit 1
}
ask() { as_server psql -XqtA -h "$server" -U irvela postgres -c "$1"; }
reading() {
  local model=$1
  shift
  "$irvela" read --simulate "$model" --clock "2016-09-10 12:00:05" "$@" >/dev/null 2>log
}

# What stands in a file stands on the server; the first reading loses records.
for place in file.db "$db"; do
  code=0
  reading 523 --groups MSH --from 2016-08-31 --to 2016-09-03 --fault no-reply:30 --attempts 1 \
    --retry-gaps 0 --db "$place" || code=$?
  [ "$code" = 3 ] || fail "exit code $code with gaps"
done
for model in 523 k7-523; do
  for place in file.db file.db "$db" "$db"; do
    reading "$model" --from 2016-09-01 --to 2016-09-04 --db "$place" || fail "$model: $place"
  done
  grep -q 'irvela: kept in .*: 0 records new, [0-9]* as before' log || fail "$model: read again"
done
for question in \
  'SELECT system, time, ns, sp, p1, t1, v1, m1, q, tw FROM hours_523' \
  'SELECT system, time, sp, t1, q, ti, tf FROM days_k7_523' \
  'SELECT kind, system, period, state FROM absences a JOIN sections s ON s.id = a.section' \
  'SELECT system, time, entry FROM log_entries e JOIN sections s ON s.id = e.section' \
  'SELECT position, field, unit, caption, name FROM columns' \
  'SELECT kind, system, clock, content FROM snapshots p JOIN sections s ON s.id = p.section'; do
  sqlite3 file.db "$question" | sort >in_file
  ask "$question" | sort >on_server
  # Whole numbers of a column of reals: 1.0 and 1.
  sed -i -E 's/\.0(\||$)/\1/g' in_file
  [ -s in_file ] || fail "nothing to compare: $question"
  diff in_file on_server >log || fail "$question"
done

# same WORDS...: a command says the same of both; only when something was learnt, and where, differs.
same() {
  "$irvela" "$@" --db file.db >in_file 2>log || [ $? = 3 ] || fail "$*"
  "$irvela" "$@" --db "$db" >on_server 2>log || [ $? = 3 ] || fail "$* on the server"
  [ -s in_file ] || fail "nothing to compare: $*"
  sed -i -E 's/("(learnt|reading|noticed)": ?")[^"]*/\1/g; s/20[2-9][0-9]-[0-9: -]*//g; s/"store":"[^"]*"//' in_file on_server
  diff in_file on_server >log || fail "$* differs"
}
same list --format json
same params --format json
same check --format json --tolerance 0
same export --format jsonl
same show --serial 12822465 --groups HE --format csv
same report --out -
same gaps --from 2016-08-31 --format json
grep -q '"state":"missing"' in_file || fail "no gaps"
ask_examples "$page" sqlite3 file.db
ask_examples "$page" ask

# The server goes away and comes back.
reading 523 --groups H --from 2016-06-01 --to 2016-08-31 --db "$db" &
program=$!
for ((i = 0; i < 600; i++)); do
  [ "$(ask 'SELECT count(*) > 300 FROM hours_523')" = t ] && break
  sleep 0.05
done
stop immediate
start
code=0
wait "$program" || code=$?
[ "$code" = 1 ] || fail "exit code $code"
tail -n 1 log | grep -q 'irvela: the reading failed after .*: cannot write postgresql://' ||
  fail "no reason"
kept=$(ask 'SELECT count(*) FROM hours_523')
[ "$kept" -gt 300 ] && [ "$kept" -lt 4416 ] || fail "$kept records"
reading 523 --groups H --from 2016-06-01 --to 2016-08-31 --fill --db "$db" || fail "the filling"
[ "$(ask 'SELECT count(*) FROM hours_523')" = 4608 ] || fail "$(ask 'SELECT count(*) FROM hours_523')"
[ "$(ask 'SELECT count(*) FROM former_records')" = 0 ] || fail "records changed"
