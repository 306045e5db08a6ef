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
[ ! -e "$prefix/consumer/window-consumer" ] || QT_QPA_PLATFORM=offscreen "$prefix/consumer/window-consumer"

echo "== By pkg-config"
libdir=$(dirname "$(find "$prefix" -name utility-core.pc)")
by_pkg_config() { # PACKAGE SOURCE
    local flags
    # A moved copy: the prefix is told, as a packager would.
    flags=$(PKG_CONFIG_PATH=$libdir pkg-config --define-variable=prefix="$prefix" --cflags --libs "$1")
    # shellcheck disable=SC2086
    g++ "$2" -o "$prefix/by-pkg-config" $flags -Wl,-rpath,"$(dirname "$libdir")"
    QT_QPA_PLATFORM=offscreen "$prefix/by-pkg-config"
}
by_pkg_config utility-core tests/consumer/Consumer.cpp
[ ! -e "$libdir/utility-ui.pc" ] || by_pkg_config utility-ui tests/consumer/WindowConsumer.cpp

echo "== The tool"
"$prefix/bin/utility" --version
if ldd "$(find "$prefix" -name 'libUtilityCore.so.*' | head -1)" | grep -i qt; then
    echo "the core is linked with the widget library"
    exit 1
fi
