#!/usr/bin/env bash
# shellcheck disable=SC2016 # the backticks are the table's
# The map check finds what it is there for. Builds a small house, spoils it in one way at a time and reads what it says.
set -euo pipefail

check=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)/tools/map_check.sh
house=$(mktemp -d)
trap 'rm -rf "$house"' EXIT
failed=0

build_house() {
    rm -rf "${house:?}"/*
    mkdir -p "$house"/{docs,src/base,src/platform/posix,src/cat/ui}
    cat >"$house/docs/ARCHITECTURE.md" <<'TABLE'
Prose may say `cat` | `ui` as it likes.
<!-- rooms -->
| Room | May include | What it is |
|---|---|---|
| `base` | nothing | helpers |
| `platform/posix` | nothing | the system |
| `cat` | `base` | the line, not `windows` |
| `cat/ui` | `base`, `cat` | windows |
<!-- end of rooms -->
| `garden` | `base` | not part of the table |
TABLE
    printf '#pragma once\n#include <queue>\n' >"$house/src/base/Signal.h"
    printf '#include "cat/Link.h"\n#include "base/Signal.h"\n' >"$house/src/cat/Link.cpp"
    printf '#include <QWidget>\n  #  include "cat/Link.h"\n#include "base/Signal.h"\n#include "frm.moc"\n' \
        >"$house/src/cat/ui/frm.cpp"
    echo '#include <QCoreApplication>' >"$house/src/cat/main.cpp"
    printf '#include <cerrno>\n#include <sys/stat.h>\n' >"$house/src/platform/posix/Files.cpp"
}

expect() { # expect "what it says" or "fits": the outcome on the house as it stands
    local said status=0
    said=$("$check" "$house") || status=$?
    case $1 in
        fits) [ "$status" = 0 ] && return ;;
        *) [ "$status" != 0 ] && [[ $said == *"$1"* ]] && return ;;
    esac
    printf 'expected: %s\nsaid (%s): %s\n\n' "$1" "$status" "$said"
    failed=1
}

build_house
expect fits

build_house
echo '#include "cat/Link.h"' >>"$house/src/base/Signal.h"
expect 'src/base/Signal.h:3: `base` may not include `cat`'

build_house
echo >"$house/src/cat/Link.cpp"
expect '`cat` may include `base`, but nothing there does'

build_house
echo '#include <QString>' >>"$house/src/cat/Link.cpp"
expect 'src/cat/Link.cpp:3: only windows'

for file in cat/Link.cpp cat/ui/frm.cpp cat/main.cpp platform/posix/Files.h; do
    build_house
    echo '# include <unistd.h>' >>"$house/src/$file"
    expect "src/$file:$(wc -l <"$house/src/$file"): only the sources of platform/posix"
done

build_house
echo '#include <CLI/CLI.hpp>' >>"$house/src/cat/Link.cpp"
expect 'src/cat/Link.cpp:3: only the room options'

build_house
mkdir "$house/src/garden"
touch "$house/src/garden/Tree.h"
expect 'src/garden: this folder is missing'

build_house
rm -r "$house/src/cat/ui"
expect 'no source in room `cat/ui`'

build_house
echo '#include "Link.h"' >>"$house/src/cat/Link.cpp"
expect 'write includes from src/ on'

build_house
sed -i 's/^| `base` | nothing/| `base` | `cat`/' "$house/docs/ARCHITECTURE.md"
echo '#include "cat/Link.h"' >>"$house/src/base/Signal.h"
expect 'which does not stand above it'

build_house
: >"$house/docs/ARCHITECTURE.md"
expect 'no table of rooms'

[ "$failed" = 0 ] && echo "the map check finds what it should"
exit "$failed"
