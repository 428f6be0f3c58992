# shellcheck shell=bash
# Simulated instruments behind COM ports of a Wine of their own. Sourced: sets up WINEPREFIX in the
# current folder and takes everything away when the script ends. Needs $irvela, the native program.
source "$(dirname "${BASH_SOURCE[0]}")/simulators.sh"
export WINEPREFIX=$PWD/prefix WINEDEBUG=-all

clean_up() {
  end_simulators
  wineserver -k || true
  rm -rf "$WINEPREFIX"
}
trap clean_up EXIT

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
