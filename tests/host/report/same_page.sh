#!/usr/bin/env bash
# Two programs write the same page over one store; only when they did so is their own.
# usage: same_page.sh NATIVE IRVELA...
set -euo pipefail
native=$1
shift
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

# data FILE: what the page was given.
data() {
  grep -A1 '^<script id="data"' "$1" | sed 's/"made":"[^"]*"//'
}

"$native" read --simulate 523 --clock "2016-03-02 12:10:00" --from "2016-02-20" --db page.db \
  --format csv >/dev/null 2>&1
for options in "--lang ru" "--statement 2016-02 --units gj,mpa"; do
  # shellcheck disable=SC2086 # several options
  "$native" report --db page.db -o native.html $options 2>/dev/null
  # shellcheck disable=SC2086
  "$@" report --db page.db -o other.html $options 2>/dev/null
  data native.html | grep -q '"serial":"12822465"' || { echo "no data in the page" >&2; exit 1; }
  cmp <(data native.html) <(data other.html) >&2
done
