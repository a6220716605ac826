#!/usr/bin/env bash
# Builds the Debian package, source and binary, from the files of this clone as they are now:
#   tools/package.sh FOLDER        -> FOLDER/korvex_VERSION_ARCHITECTURE.deb and what belongs to it
# The sources are copied to FOLDER/korvex-VERSION and get the date of debian/changelog, so that the same sources give the
# same package wherever and whenever it is built. A build that went well removes its folder.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."
mkdir -p "$1"
folder=$(cd "$1" && pwd)
version=$(dpkg-parsechangelog -S Version)
epoch=$(dpkg-parsechangelog -S Timestamp)
sources=$folder/korvex-$version

our_files() { # each file of the sources, ended by NUL
    if git rev-parse -q --git-dir >/dev/null 2>&1; then
        git ls-files -z --cached --others --exclude-standard | while IFS= read -r -d '' file; do
            [ ! -e "$file" ] || printf '%s\0' "$file"
        done
    else
        find . -path ./build -prune -o -type f -print0
    fi
}

rm -rf "$sources" "$folder"/korvex*_"$version"*
mkdir "$sources"
our_files | tar --null -T - -c | tar -x -C "$sources"
find "$sources" -exec touch -h -d "@$epoch" {} +
chmod -R u=rwX,go=rX "$sources"
cd "$sources"
dpkg-buildpackage -us -uc >"$folder/build.log" 2>&1 || {
    tail -40 "$folder/build.log"
    echo "package: the build failed; all of it is in $folder/build.log" >&2
    exit 1
}
cd "$folder" && rm -rf "$sources"
