# shellcheck shell=bash disable=SC2034
# The Debian packages that the scripts need, and how they are installed. Sourced, not run.

native_packages=(
  build-essential cmake ninja-build
  libasio-dev libcli11-dev libfmt-dev nlohmann-json3-dev
  libsoci-dev libboost-dev libsqlite3-dev libpq-dev zlib1g-dev
  doctest-dev libbenchmark-dev libmodbus-dev pkg-config file
)
# What the tests look at the store with.
database_packages=(sqlite3 postgresql)
# What the tests look at the report's page with; the font has the letters of both languages.
browser_packages=(chromium fonts-liberation poppler-utils)
windows_packages=(g++-mingw-w64-i686-posix clang lld llvm libz-mingw-w64-dev)
wine_packages=(wine wine32:i386)

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    echo "This needs root: run it as root, or install sudo." >&2
    return 1
  fi
}

# Runs a command and shows its output only when it fails.
quietly() {
  local log status
  log=$(mktemp)
  if "$@" >"$log" 2>&1; then
    rm -f "$log"
  else
    status=$?
    cat "$log" >&2
    rm -f "$log"
    return "$status"
  fi
}

apt_get() {
  as_root env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=300 "$@"
}

# An index that is out of step fails the update although the others are new: what matters is whether
# the packages can be installed afterwards.
update_index() {
  apt_get update >/dev/null 2>&1 || true
}

missing() {
  local package
  for package in "$@"; do
    dpkg-query -W -f='${Status}\n' "$package" 2>/dev/null | grep -q '^install ok installed' ||
      echo "$package"
  done
}

install_packages() {
  local wanted
  mapfile -t wanted < <(missing "$@")
  [ "${#wanted[@]}" -eq 0 ] && return
  echo "Installing ${wanted[*]} ..."
  update_index
  quietly apt_get install -y --no-install-recommends "${wanted[@]}"
}

# 32-bit Wine takes packages of the i386 architecture. Where the security suite's i386 index is out
# of step with the installed amd64 packages, only the release's own versions fit together; some
# systems come to them by the target release alone, others only when those versions are preferred to
# newer ones that are installed.
install_wine() {
  local wanted release preferences
  mapfile -t wanted < <(missing "${wine_packages[@]}")
  [ "${#wanted[@]}" -eq 0 ] && return
  echo "Installing ${wanted[*]} ..."
  dpkg --print-foreign-architectures | grep -qx i386 || as_root dpkg --add-architecture i386
  update_index
  release=$(. /etc/os-release && echo "$VERSION_CODENAME")
  preferences=$(mktemp)
  printf 'Package: *\nPin: release n=%s,l=Debian\nPin-Priority: 1001\n' "$release" >"$preferences"
  apt_wine >/dev/null 2>&1 ||
    apt_wine -t "$release" --allow-downgrades >/dev/null 2>&1 ||
    quietly apt_wine -o Dir::Etc::Preferences="$preferences" --allow-downgrades
  rm -f "$preferences"
}

apt_wine() {
  apt_get install -y --no-install-recommends "$@" "${wine_packages[@]}"
}
