#!/bin/bash
# Makes the zip for Windows, unpacks it and uses it: runs the program, and builds a consumer of the
# library with mingw's import library.
# usage: check_zip.sh BUILD_FOLDER WORK_FOLDER CONSUMER_FOLDER CPACK CMAKE MINGW_GXX
set -euo pipefail
build=$1 work=$2 consumer=$3 cpack=$4 cmake=$5 gxx=$6
rm -rf "$work"
mkdir -p "$work"
cd "$work"
export WINEDEBUG=-all
(cd "$build" && "$cpack" -G ZIP -B "$work" >"$work/cpack.log") || { cat cpack.log; exit 1; }
package=$(echo irvela-*-windows-x86.zip)
"$cmake" -E tar xf "$package"
cd "${package%.zip}"
for library in libasio-dev libcli11-dev libfmt-dev nlohmann-json3-dev "GCC RUNTIME LIBRARY EXCEPTION" \
  libsoci-dev libsqlite3-dev mingw-w64-i686-dev; do
  grep -qF "$library" THIRD-PARTY.txt || { echo "no notice of $library"; exit 1; }
done
ls bin/TKSplDrv.dll lib/libTKSplDrv.dll.a lib/TKSplDrv.lib include/TKSplDrv/driver.h README.md \
  examples/host/host.cpp bin/example_host.exe >/dev/null

wine bin/irvela.exe models | grep -q 521
"$gxx" -std=c++17 -static -Iinclude "$consumer/consumer.cpp" lib/libTKSplDrv.dll.a \
  -o bin/consumer.exe
[ "$(wine bin/consumer.exe | tr -d '\r')" = "$(printf 'Irvela 52x/72x\nIrvela K7')" ]
echo "$package is usable"
