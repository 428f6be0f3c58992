#!/bin/bash
# Makes the Debian package, unpacks it and uses it: runs the program, and builds a consumer of the
# library by pkg-config and by CMake. Each library whose headers the program was built with has its
# notice.
# usage: check_deb.sh BUILD_FOLDER WORK_FOLDER CONSUMER_FOLDER CPACK
set -euo pipefail
build=$1 work=$2 consumer=$3 cpack=$4
rm -rf "$work"
mkdir -p "$work"
cd "$work"
(cd "$build" && "$cpack" -G DEB -B "$work" >"$work/cpack.log") || { cat cpack.log; exit 1; }
package=$(echo irvela_*_amd64.deb)
dpkg-deb -I "$package" | grep -E '^ (Package|Version|Architecture|Depends):'
dpkg-deb -x "$package" root
documents=root/usr/share/doc/irvela
ls root/usr/lib/libTKSplDrv.so.0 root/usr/share/man/man1/irvela.1* \
  root/usr/include/TKSplDrv/driver.h $documents/README.md $documents/examples/host/host.cpp >/dev/null

libraries=$(ninja -C "$build" -t deps |
  sed -n '/^\(host\|simulator\)\//,/^$/s|^ *\(/usr/include/.*\)|\1|p' | sort -u | xargs dpkg -S |
  cut -d: -f1 | sort -u | grep -vE '^(libc6|libstdc[+][+]-.*|linux-libc)-dev$')
[ -n "$libraries" ]
# What stands in the page is in the program.
libraries+=$'\nfflate\nuplot'
for library in $libraries; do
  grep -qx "$library" $documents/copyright || { echo "no notice of $library"; exit 1; }
done

root/usr/bin/irvela models | grep -q 521
export LD_LIBRARY_PATH=$work/root/usr/lib
expected=$(printf 'Irvela 52x/72x\nIrvela K7')

read -ra flags <<<"$(PKG_CONFIG_PATH=root/usr/lib/pkgconfig pkg-config --cflags --libs TKSplDrv)"
c++ -std=c++17 "$consumer/consumer.cpp" -o by_pkg_config "${flags[@]}"
[ "$(./by_pkg_config)" = "$expected" ]

cmake -S "$consumer" -B by_cmake -DCMAKE_PREFIX_PATH="$work/root/usr" >cmake.log
cmake --build by_cmake >>cmake.log
[ "$(by_cmake/consumer)" = "$expected" ]
echo "$package is usable, with the notices of ${libraries//$'\n'/, }"
