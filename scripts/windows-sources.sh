#!/usr/bin/env bash
# Unpacks the sources of the libraries that Debian does not build for Windows into build/sources: the
# Windows build compiles them. What is there already is not fetched again.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

sources=$PWD/build/sources
work=
trap 'rm -rf "$work"' EXIT

# The system's own mirrors and keys, with sources in place of packages.
name_sources() {
  local parts=$1 file
  for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
    [ -f "$file" ] || continue
    sed -nE 's/^[[:space:]]*deb([[:space:]].*)$/deb-src\1/p' "$file" >"$parts/$(basename "${file%.list}").list"
  done
  for file in /etc/apt/sources.list.d/*.sources; do
    [ -f "$file" ] || continue
    sed -E 's/^Types:.*/Types: deb-src/' "$file" >"$parts/$(basename "$file")"
  done
}

# With an index of its own: the system's stays as it is.
apt_sources() {
  apt-get -o Dir::Etc::SourceList=/dev/null -o Dir::Etc::SourceParts="$work/parts" \
    -o Dir::State::Lists="$work/lists" -o Dir::Cache="$work/cache" "$@"
}

unpack() {
  work=$(mktemp -d -p "$sources")
  mkdir -p "$work/parts" "$work/lists/partial" "$work/cache" "$work/unpacked"
  name_sources "$work/parts"
  # An index that fails may not be one that is needed.
  apt_sources update >"$work/log" 2>&1 || true
  (cd "$work/unpacked" && quietly apt_sources source sqlite3 soci) || {
    cat "$work/log" >&2
    return 1
  }
  (cd "$work"/unpacked/sqlite3-*/ && quietly ./configure --disable-tcl && quietly make sqlite3.c)
  rm -rf "$sources/sqlite3" "$sources/soci"
  mv "$work"/unpacked/soci-*/ "$sources/soci"
  mv "$work"/unpacked/sqlite3-*/ "$sources/sqlite3"
}

install_packages build-essential tcl
mkdir -p "$sources"
if [ ! -d "$sources/sqlite3" ] || [ ! -d "$sources/soci" ]; then
  echo "Fetching the sources of SQLite and SOCI ..."
  unpack
fi
