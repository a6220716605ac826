#!/usr/bin/env bash
# The Debian package as its user meets it: what lintian and the desktop's validators say of it, and whether it runs in a
# bare Debian 12 into which apt has installed it with what it says that it needs, and nothing else.
#   tests/tools/package_test.sh FOLDER ROOTS      FOLDER has the package; the bare Debian is kept in ROOTS
set -euo pipefail

folder=$(cd "$1" && pwd)
roots=$2
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=tests/tools/bare_root.sh
. "$here/bare_root.sh"
work=$(mktemp -d)
root=$roots/bookworm-with-korvex
trap 'rm -rf "$work" "$root"' EXIT
failed=0

hold() { # WHAT COMMAND...: the command succeeds, or what it says is shown
    if "${@:2}" >"$work/said" 2>&1; then
        echo "package: $1"
    else
        echo "package: NOT $1:"
        tail -30 "$work/said"
        failed=1
    fi
}

package=$(find "$folder" -name 'korvex_*.deb')
dpkg-deb -x "$package" "$work/unpacked"
share=$work/unpacked/usr/share
hold "lintian has nothing to say" lintian --allow-root --fail-on error,warning --tag-display-limit 0 "$folder"/korvex_*.changes
hold "desktop entry valid" desktop-file-validate "$share/applications/korvex.desktop"
hold "metainfo valid" appstreamcli validate --no-net --explain "$share/metainfo/org.korvex.korvex.metainfo.xml"
hold "file types valid" update-mime-database "$share/mime"
for ending in mnu mem mef bsr kem; do
    hold "*.$ending is known, and korvex opens it" grep -qF \
        "$(awk -F: -v glob="*.$ending" '$3 == glob { print $2 }' "$share/mime/globs2");" "$share/applications/korvex.desktop"
done

[ $failed = 0 ] || exit 1
need_bare_roots
bare_root bookworm "$roots/bookworm"
cp -a "$roots/bookworm" "$root"
cp "$package" "$root/korvex.deb"
cp "$here/package_user.sh" "$root/usr/local/bin/package_user"
hold "installed into a bare Debian 12" in_root "$root" sh -euc \
    'apt-get -q update; apt-get -qy install --no-install-recommends /korvex.deb; useradd -m shack'
[ $failed = 0 ] || exit 1
in_root "$root" su -l shack -c /usr/local/bin/package_user
