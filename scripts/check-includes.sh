#!/bin/bash
# Checks every include of the code against the order written in docs/architecture.md: a folder
# includes itself, its own subfolders and parents, and the folders that its line names; a line names
# only folders that stand above it, so that no two folders can include each other.
set -euo pipefail
cd "$(dirname "$0")/.."

git ls-files --cached --others --exclude-standard '*.h' '*.cpp' |
  while read -r file; do [ ! -e "$file" ] || echo "$file"; done |
  xargs grep -HoE '^#include "[^"]+"' |
  awk -v document=docs/architecture.md '
    function complain(text) { print text; faults++ }

    # The listed folder that a path lies in: the longest one.
    function room(path) {
      while (sub(/\/[^\/]*$/, "", path)) if (path in line) return path
      return ""
    }
    function related(a, b) { return index(a "/", b "/") == 1 || index(b "/", a "/") == 1 }
    function allowed(from, to,    i, names) {
      if (related(from, to) || may[from] == " anything ") return 1
      return index(may[from], " " to " ") > 0
    }

    BEGIN {
      while ((getline text < document) > 0) {
        if (text ~ /^<!-- include order -->/) { listing = 1; continue }
        if (text ~ /^<!-- end of include order -->/) listing = 0
        if (!listing || text !~ /^[a-z]/) continue
        count = split(text, word, / +/)
        line[word[1]] = ++lines
        may[word[1]] = " "
        for (i = 2; i <= count; i++) {
          may[word[1]] = may[word[1]] word[i] " "
          if (word[i] != "anything" && !(word[i] in line))
            complain(document ": " word[1] " names " word[i] ", which does not stand above it")
        }
      }
      if (lines == 0) complain(document ": the include order is missing")
    }
    {
      split($0, part, /:#include "/)
      file = part[1]
      header = part[2]
      sub(/"$/, "", header)
      if (header ~ /^TKSplDrv\//) header = "include/" header
      if (header !~ /\//) next  # a neighbour in the same folder
      from = room(file)
      to = room(header)
      if (from == "") complain(file ": its folder has no line in " document)
      else if (to == "") complain(file ": includes " header ", whose folder has no line in " document)
      else if (!allowed(from, to)) complain(file ": " from " may not include " header)
      includes++
    }
    END {
      if (includes == 0) complain("no include was found")
      exit faults > 0
    }'
