#!/bin/bash
# Writes what the built programs list into a page of docs/, behind its mark; with --check only tells
# whether the page shows it.
# usage: listed-page.sh [--check] records|fields [PROGRAM]
set -euo pipefail
cd "$(dirname "$0")/.."
check=
if [ "${1:-}" = --check ]; then
  check=1
  shift
fi
page=${1:?usage: listed-page.sh [--check] records|fields [PROGRAM]}
document=docs/$page.md
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

list() {
  case $page in
    records) "${1:-build/native/list_records}" ;;
    fields) echo '```text' && "${1:-build/native/irvela}" models --fields && echo '```' ;;
  esac
}

list "${@:2}" > "$folder/list"
sed '/^<!-- .* -->$/q' "$document" > "$folder/document"
cat "$folder/list" >> "$folder/document"
if [ -z "$check" ]; then
  cp "$folder/document" "$document"
elif ! diff -u "$document" "$folder/document"; then
  echo "run scripts/listed-page.sh $page" >&2
  exit 1
fi
