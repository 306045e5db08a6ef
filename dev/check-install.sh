#!/usr/bin/env bash
# Installs a build into a temporary folder and uses it as a stranger would: check-install.sh BUILD
set -euo pipefail
cd "$(dirname "$0")/.."
build=$1
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT

cmake --install "$build" --prefix "$prefix" >"$prefix/install.log" || { cat "$prefix/install.log"; exit 1; }
[ ! -e "$prefix/include/utility/platform/backend" ] || { echo "private headers are installed"; exit 1; }

echo "== By find_package"
cmake -S tests/consumer -B "$prefix/consumer" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_BUILD_TYPE=Debug >/dev/null
cmake --build "$prefix/consumer" >/dev/null
"$prefix/consumer/consumer"

echo "== By pkg-config"
libdir=$(dirname "$(find "$prefix" -name utility-core.pc)")
# A moved copy: the prefix is told, as a packager would.
flags=$(PKG_CONFIG_PATH=$libdir pkg-config --define-variable=prefix="$prefix" --cflags --libs utility-core)
# shellcheck disable=SC2086
g++ tests/consumer/Consumer.cpp -o "$prefix/by-pkg-config" $flags -Wl,-rpath,"$(dirname "$libdir")"
"$prefix/by-pkg-config"

echo "== The tool"
"$prefix/bin/utility" --version
if ldd "$(find "$prefix" -name 'libUtilityCore.so.*' | head -1)" | grep -i qt; then
    echo "the core is linked with the widget library"
    exit 1
fi
