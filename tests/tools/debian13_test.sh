#!/usr/bin/env bash
# Builds the package on the next Debian, installs it there and runs it: compiler, Qt and libraries two years ahead.
#   tests/tools/debian13_test.sh ROOTS      the Debian 13 with its build packages is kept in ROOTS
set -euo pipefail

roots=$1
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=tests/tools/bare_root.sh
. "$here/bare_root.sh"
need_bare_roots
bare_root trixie "$roots/trixie"
root=$roots/trixie
rm -rf "$root/sources" && mkdir "$root/sources"
(cd "$here/../.." && tar --exclude=./build --exclude=./.git -c .) | tar -x -C "$root/sources"

run_there() { # WHAT COMMAND...
    echo "Debian 13: $1 ..."
    in_root "$root" "${@:2}" >"$roots/trixie.log" 2>&1 && return
    tail -40 "$roots/trixie.log"
    echo "Debian 13: that failed; all of it is in $roots/trixie.log"
    exit 1
}

run_there "installing what the build needs" sh -euc \
    'apt-get -q update; apt-get -qy install --no-install-recommends dpkg-dev; apt-get -qy build-dep --no-install-recommends /sources'
run_there "building" sh -euc 'cd /sources; tools/package.sh /package'
run_there "installing and running" sh -euc 'apt-get -qy install --no-install-recommends /package/korvex_*.deb
    cd /root; korvexctl --version; korvexctl --demo save menu my.mnu; korvexctl --demo compare my.mnu radio'
echo "Debian 13: built, installed and run"
