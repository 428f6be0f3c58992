# shellcheck shell=bash
# Simulated instruments on pseudo terminals. Sourced: ends them when the script ends. Needs $irvela,
# the native program.
simulators=()

end_simulators() {
  [ ${#simulators[@]} -eq 0 ] || kill "${simulators[@]}" 2>/dev/null || true
}
trap end_simulators EXIT

# simulate MODEL LINK OPTIONS...: starts an instrument; the link leads to its line.
simulate() {
  local model=$1 link=$2
  shift 2
  "$irvela" simulate "$model" --pty "$link" "$@" >"$link.log" 2>&1 &
  simulators+=($!)
  for _ in $(seq 100); do
    [ -e "$link" ] && return
    sleep 0.1
  done
  cat "$link.log"
  return 1
}
