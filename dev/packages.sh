#!/usr/bin/env bash
# Installs what building, testing and running need, from Debian's packages; quick when all is there.
set -euo pipefail

build=(g++ cmake ninja-build ccache lld pkg-config git
    unixodbc-dev libsqlite3-dev zlib1g-dev libcli11-dev libexpat1-dev libncurses-dev
    libsystemd-dev libgtest-dev libgmock-dev libbenchmark-dev)
windows=(qt6-base-dev) # the tool does without
run=(odbcinst libsqliteodbc sqlite3 kicad-symbols)
test=(clang-14 clang libclang-rt-14-dev llvm-14 clang-format-14 clang-format python3 strace
    odbc-postgresql odbc-mariadb postgresql mariadb-server locales dbus
    fritzing-parts qelectrotech-data kicad-demos unzip zip p7zip-full libarchive-tools
    xvfb xauth xdotool openbox fonts-dejavu-core)
# The peers that benchmarks set beside the library; one that is absent is left out.
benchmarks=(libre2-dev libpugixml-dev libxml2-dev libcsv-dev libzip-dev libssl-dev libglib2.0-dev
    libpq-dev libmariadb-dev libsoci-dev libboost-dev libqt6sql6-odbc)

wanted=()
for set in "${@:-run}"; do
    case $set in
        run) wanted+=("${build[@]}" "${run[@]}") ;;
        windows) wanted+=("${build[@]}" "${windows[@]}") ;;
        test) wanted+=("${build[@]}" "${run[@]}" "${windows[@]}" "${test[@]}") ;;
        benchmarks) wanted+=("${build[@]}" "${run[@]}" "${windows[@]}" "${test[@]}" "${benchmarks[@]}") ;;
        *) echo "packages.sh: unknown set '$set' (run, windows, test, benchmarks)" >&2; exit 2 ;;
    esac
done

missing=()
for package in "${wanted[@]}"; do
    status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

if [ "$(id -u)" != 0 ]; then
    echo "These packages are missing, and only root can install them: ${missing[*]}" >&2
    exit 1
fi
echo "== Installing ${#missing[@]} packages: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
apt-get update -qq
# A package's own service must not start by itself: the tests start what they need.
policy=/usr/sbin/policy-rc.d
made=
if [ ! -e $policy ]; then
    printf '#!/bin/sh\nexit 101\n' >$policy
    chmod +x $policy
    made=1
fi
trap '[ -z "$made" ] || rm -f $policy' EXIT
apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
