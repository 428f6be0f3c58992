#!/bin/bash
# Replays the recorded readings natively and by the Windows program through the DLL, and compares the
# streams with each other and the exit codes with the recorded ones.
# usage: replay_traces.sh NATIVE_IRVELA WINDOWS_IRVELA TRACES WORK_FOLDER
set -euo pipefail
irvela=$(realpath "$1") program=$(realpath "$2") traces=$(realpath "$3") work=$4
export WINEDEBUG=-all
rm -rf "$work"
mkdir -p "$work"
cd "$work"
# A path that begins with a slash is an option to a Windows program.
cp -- "$traces"/*.jsonl .

# replay NAME: writes what came of it into NAME.result.
replay() {
  local name=$1 recorded code=0
  recorded=$(sed -nE '$s/.*"exit":([0-9]+).*/\1/p' "$name.jsonl")
  "$irvela" replay "$name.jsonl" --raw "$name.native.raw" >"$name.native.log" 2>&1 || true
  wine "$program" replay "$name.jsonl" --raw "$name.windows.raw" \
    >"$name.windows.log" 2>&1 || code=$?
  if [ "$code" = "$recorded" ] && cmp "$name.native.raw" "$name.windows.raw"; then
    echo "$name: $(stat -c %s "$name.windows.raw") bytes, exit code $code" >"$name.result"
  else
    { echo "$name: FAILED with $code, recorded $recorded" && tail -n 3 "$name".*.log; } \
      >"$name.result"
  fi
}

count=0
for trace in *.jsonl; do
  replay "$(basename "$trace" .jsonl)" &
  count=$((count + 1))
  # They wait most of the time.
  [ $((count % 8)) -ne 0 ] || wait
done
wait
cat -- *.result
[ "$count" -gt 0 ] && [ "$(ls -- *.result | wc -l)" = "$count" ] && ! grep -q FAILED -- *.result
