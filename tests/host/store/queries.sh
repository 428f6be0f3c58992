# shellcheck shell=bash
# Asks the example queries of docs/store.md. Sourced, not run.

# ask_examples PAGE COMMAND...: the command takes a query as its last word; each query has an answer.
ask_examples() {
  local page=$1 count=0 query
  shift
  while IFS= read -r -d ';' query; do
    [ -n "$("$@" "$query")" ] || { echo "no answer to: $query" >&2; return 1; }
    count=$((count + 1))
  done < <(sed -n '/^```sql$/,/^```$/p' "$page" | grep -v '^```')
  [ "$count" = 5 ] || { echo "$count example queries" >&2; return 1; }
}
