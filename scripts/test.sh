#!/usr/bin/env bash
# Builds everything and runs every test, natively and as 32-bit Windows programs under Wine.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

usage() {
  cat <<TEXT
usage: scripts/test.sh [--no-windows] [--sanitizers]
  --no-windows  leave out the Windows half (no mingw, no Wine)
  --sanitizers  also run the native tests under the address, undefined-behaviour and thread
                sanitizers
TEXT
}

windows=yes
presets=(native)
for option in "$@"; do
  case "$option" in
    --no-windows) windows=no ;;
    --sanitizers) presets+=(asan tsan) ;;
    --help) usage; exit 0 ;;
    *) usage >&2; exit 2 ;;
  esac
done

install_packages "${native_packages[@]}" "${database_packages[@]}" "${browser_packages[@]}"
./scripts/page-sources.sh
if [ "$windows" = yes ]; then
  install_packages "${windows_packages[@]}"
  install_wine
  ./scripts/windows-sources.sh
  presets+=(windows)
  export WINEDEBUG=-all WINEPREFIX=$PWD/build/wine
  mkdir -p "$WINEPREFIX"
fi

# One Wine for all tests: starting it anew for each would take most of the time.
stop_wine() { wineserver -k || true; }
start_wine() {
  trap stop_wine EXIT
  wineserver -p
  quietly wine cmd /c exit
}

passed=0
failed=0
summary=()

# Adds what ctest's last line says to the sums.
count() {
  local preset=$1 log=$2 line bad all
  line=$(grep -E 'tests? failed out of [0-9]+' "$log" | tail -n 1 || true)
  if [ -z "$line" ]; then
    summary+=("$preset: no test ran")
    failed=$((failed + 1))
    return
  fi
  bad=$(sed -E 's/.* ([0-9]+) tests? failed out of.*/\1/' <<<"$line")
  all=$(sed -E 's/.*failed out of ([0-9]+).*/\1/' <<<"$line")
  passed=$((passed + all - bad))
  failed=$((failed + bad))
  summary+=("$preset: $((all - bad)) passed, $bad failed")
}

jobs=$(nproc)

for preset in "${presets[@]}"; do
  [ "$preset" != windows ] || start_wine
  echo "== $preset: building"
  quietly cmake --preset "$preset"
  quietly cmake --build --preset "$preset"
  echo "== $preset: testing"
  log=build/$preset/test.log
  ctest --preset "$preset" -j "$jobs" 2>&1 | tee "$log" |
    grep -vE '^ +Start +[0-9]+:|^ *[0-9]+/[0-9]+ Test .* Passed' || true
  count "$preset" "$log"
done

echo
printf '%s\n' "${summary[@]}"
[ "$windows" = yes ] || echo "windows: left out (--no-windows)"
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
