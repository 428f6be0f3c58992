#!/bin/bash
# Writes the sections and columns that the built driver gives into docs/records.md; with --check
# only tells whether the document shows them.
# usage: records.sh [--check] [LIST_RECORDS]
set -euo pipefail
cd "$(dirname "$0")/.."
check=
if [ "${1:-}" = --check ]; then
  check=1
  shift
fi
list=${1:-build/native/list_records}
document=docs/records.md
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

"$list" > "$folder/sections"
sed '/<!-- sections by the built driver -->/q' "$document" > "$folder/document"
cat "$folder/sections" >> "$folder/document"
if [ -z "$check" ]; then
  cp "$folder/document" "$document"
elif ! diff -u "$document" "$folder/document"; then
  echo "run scripts/records.sh" >&2
  exit 1
fi
