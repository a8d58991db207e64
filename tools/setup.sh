#!/bin/sh
# Installs the Debian packages that are missing, without asking: those of the project and those named. Does nothing where
# all are there.
set -eu

packages="
    g++ cmake make ninja-build ccache python3
    qt6-base-dev fonts-dejavu-core fonts-liberation libqpdf-dev poppler-utils
    libsqlitecpp-dev libsqlite3-dev
    libpugixml-dev nlohmann-json3-dev libcsv-dev zlib1g-dev
    unixodbc-dev odbc-mariadb mariadb-server
    libgtest-dev libgmock-dev libbenchmark-dev
    gnumeric
    librsvg2-bin mandoc desktop-file-utils dpkg-dev file bubblewrap
    xvfb openbox python3-xlib
    clang-format clang-tidy clang-14 libclang-rt-14-dev
"

mkdir -p build
missing=""
for package in $packages "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing="$missing $package"
done
[ -n "$missing" ] || exit 0

as_root=""
[ "$(id -u)" -eq 0 ] || as_root="sudo"
echo "Installing:$missing"
$as_root apt-get update -qq
# shellcheck disable=SC2086
$as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing > build/setup.log 2>&1 || {
    cat build/setup.log
    exit 1
}
