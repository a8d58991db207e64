#!/bin/sh
# Makes the Debian package of a build, holds it to Debian's rules, and tries it in a root of its own. The same sources
# give the same bytes: all times are that of the newest entry of the changelog.
set -eu
build=$1
sources=$(dirname "$0")/..

rm -rf "$build/package"
SOURCE_DATE_EPOCH=$(dpkg-parsechangelog -l "$sources/packaging/changelog" -S Timestamp)
export SOURCE_DATE_EPOCH
(cd "$build" && cpack > package.log 2>&1) || {
    cat "$build/package.log"
    exit 1
}
package=$(ls "$build"/package/*.deb)

as_other=""
[ "$(id -u)" -ne 0 ] || as_other=--allow-root
# shellcheck disable=SC2086
lintian $as_other --fail-on error,warning "$package"
appstreamcli validate --no-net --explain "$sources/packaging/pgbp.metainfo.xml" > "$build/package.log" || {
    cat "$build/package.log"
    exit 1
}
python3 "$sources/tests/packaging/installed.py" "$package" "$build/installed"
echo "$package"
