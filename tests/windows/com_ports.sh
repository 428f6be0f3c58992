# shellcheck shell=bash
# Simulated instruments behind COM ports of a Wine of their own. Sourced: sets up WINEPREFIX in the
# current folder and takes everything away when the script ends. Needs $irvela, the native program.
export WINEPREFIX=$PWD/prefix WINEDEBUG=-all
simulators=()

clean_up() {
  [ ${#simulators[@]} -eq 0 ] || kill "${simulators[@]}" 2>/dev/null || true
  wineserver -k || true
  rm -rf "$WINEPREFIX"
}
trap clean_up EXIT

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

# map_ports LINE...: the lines become COM33, COM34 ... Wine looks at them when it starts. Each takes
# one reading: a pseudo terminal has no parity, and is refused when a second program asks for what
# the first one has set.
map_ports() {
  local number=33 line
  for line in "$@"; do
    wine reg add 'HKLM\Software\Wine\Ports' /v "COM$number" /t REG_SZ /d "$line" /f >/dev/null
    number=$((number + 1))
  done
  wineserver -k
  wineserver -w
}
