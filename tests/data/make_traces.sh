#!/bin/bash
# Makes the traces that the tests replay: a reading of each model, one with each fault, one that was
# stopped and one that waited in vain. Only their times differ from one making to the next.
# usage: make_traces.sh IRVELA [FOLDER]
set -euo pipefail
irvela=$(realpath "$1") folder=${2:-$(dirname "$(realpath "$0")")/traces}
mkdir -p "$folder"
cd "$folder"
rm -f -- *.jsonl

# make NAME SIMULATED_MODEL OPTIONS...: a failed reading is as good as any.
make() {
  local name=$1 model=$2
  shift 2
  "$irvela" read --simulate "$model" --clock "2016-03-02 12:10" --trace "$name.jsonl" "$@" \
    >/dev/null 2>&1 || [[ $? = [13] ]]
}

hours=(--from "2016-03-02 07:00" --to "2016-03-02 09:00" --groups TH)
small=("${hours[@]}" --attempts 2)
mapfile -t models < <("$irvela" models | awk '/^$/ { exit } /^  [^ ]/ { print $1 }')
for model in "${models[@]}"; do
  make "$model" "$model" --from "2016-03-01 22:00" --to "2016-03-02 02:00"
done
# The table of faults: those of all models, then those of each protocol.
faults() {
  "$irvela" models |
    awk -v "head=$1" '$0 ~ head { on = 1; next } /^$/ { on = 0 } on { print $1 }'
}
for fault in $(faults '^Faults') $(faults '^521, 521.1x'); do
  make "521-$fault" 521 "${small[@]}" --fault "$fault:3"
done
for fault in $(faults '^Faults') $(faults '^k7-521, k7-523 only'); do
  make "k7-521-$fault" k7-521 "${small[@]}" --fault "$fault:3"
done
make "k7-523-waited" k7-523 "${hours[@]}" --fault no-reply --attempts 100 --patience 1s
make "521-followed" 521 --from "2016-03-02 11:00" --groups T --follow --count 1 --line-speed 9600
du -bc -- *.jsonl | tail -n 1
