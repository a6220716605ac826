#!/usr/bin/env bash
# What ./dev run does for a newcomer: which packages it asks for, what it says meanwhile, and what is there afterwards;
# and which sources ./dev check lint-changed looks at.
# The machine is played: apt and cmake are stubs that write down what they are asked. With KORVEX_SLOW_TESTS=1 a clean
# clone is built for real, in FOLDER.
#   tests/tools/dev_test.sh FOLDER
set -euo pipefail

source=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
folder=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failed=0

expect() { # expect TEXT WHAT COMMAND...: the command's words hold TEXT; or "expect no TEXT ..."
    local no='' said
    if [ "$1" = no ]; then no=1 && shift; fi
    said=$("${@:3}")
    if [[ $said == *"$1"* ]]; then [ -n "$no" ] || return 0; else [ -z "$no" ] || return 0; fi
    printf '%s: expected %s"%s", got:\n%s\n\n' "$2" "${no:+no }" "$1" "$said"
    failed=1
}

stub() { # NAME: a program that is found first; its lines come from stdin
    { echo '#!/usr/bin/env bash' && cat; } >"$work/bin/$1"
    chmod +x "$work/bin/$1"
}

mkdir -p "$work/bin" "$work/clone"
cp "$source/dev" "$source/CMakePresets.json" "$work/clone"
stub dpkg-query <<<'exit 1'
# shellcheck disable=SC2016 # the stub's own
stub sudo <<<'exec "$@"'
stub apt-get <<STUB
echo "\$@" >>"$work/apt"
echo "Setting up cmake (3.25) ..."
if [ -e "$work/apt-fails" ] && [[ \$* == *install* ]]; then echo "E: no such thing" >&2; exit 100; fi
STUB
stub cmake <<<"echo \"\$@\" >>'$work/cmake'"
dev_run() { (cd "$work/clone" && PATH=$work/bin:$PATH DISPLAY='' WAYLAND_DISPLAY='' ./dev run 2>&1) || true; }

# A bare machine: what the program needs, and not what its tests need.
dev_run >"$work/said"
expect "qt6-base-dev" "packages" cat "$work/apt"
expect no "gtest" "packages" cat "$work/apt"
expect no "hamlib" "packages" cat "$work/apt"
expect "Missing on this machine: cmake" "said" cat "$work/said"
expect "can take some minutes" "said" cat "$work/said"
expect "    Setting up cmake" "said while apt runs" cat "$work/said"

touch "$work/apt-fails"
rm "$work/cmake"
expect "./dev: apt could not install what is missing" "apt fails" dev_run
expect no "cmake" "nothing is built then" ls "$work"
rm "$work/apt-fails"

# What lint-changed looks at: what a branch has beside main; on main, what the last commit brought; without a history, all.
# shellcheck disable=SC2317 # called by way of expect
lint_changed() { (cd "$work/house" && PATH=$work/bin:$PATH ./dev check lint-changed 2>&1) || true; }
in_house() { git -C "$work/house" -c user.name=x -c user.email=x@x -c init.defaultBranch=main "$@" >"$work/git"; }
commit() { # FILE: changes it
    echo "// again" >>"$work/house/$1" && in_house add -A && in_house commit -qm "$1"
}
mkdir -p "$work/house/src" "$work/house/tools"
cp "$work/clone/dev" "$work/clone/CMakePresets.json" "$work/house"
stub ../house/tools/lint.sh <<<'echo "looked at: $*."'
touch "$work/house/src/"{Clock.cpp,Clock.h,Line.cpp}
expect "looked at: build/dev src/Clock.cpp src/Line.cpp." "lint without a history" lint_changed
in_house init -q && commit src/Clock.cpp && commit src/Clock.h
expect "looked at: build/dev src/Clock.cpp." "lint of the last commit" lint_changed
in_house switch -q -c topic && commit src/Line.cpp && commit src/New.cpp
expect "looked at: build/dev src/Line.cpp src/New.cpp." "lint of a branch" lint_changed
in_house rm -q src/New.cpp && commit CMakePresets.json
expect "looked at: build/dev src/Line.cpp." "lint after a file is gone" lint_changed

# What comes of the targets that it builds, in the build that users get, on a machine without a test framework.
dev_run >/dev/null
targets=$(sed -n 's/^--build --preset release --target //p' "$work/cmake")
cmake -S "$source" --preset release -B "$work/release" -DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON >"$work/configured" 2>&1 || {
    cat "$work/configured"
    exit 1
}
# shellcheck disable=SC2317 # called by way of expect
made_by() { ninja -C "$work/release" -t graph "$@" | sed -n 's/.*label="\([^"]*\)".*/\1/p' | sort -u; }
for every in "$targets" korvex korvexctl all; do
    # shellcheck disable=SC2086 # several targets
    expect "data/FT2000_Menu.mdb" "built by $every" made_by $every
done
for program in korvex korvexctl ft2000sim; do
    # shellcheck disable=SC2086
    expect "$program" "built by $targets" made_by $targets
done
expect no "_tests" "built for an installation" made_by all
expect no "bench_" "built for an installation" made_by all

clean_clone() {
    rm -rf "$folder" && git clone -q --shared "$source" "$folder" && cd "$folder"
    export XDG_DATA_HOME=$folder/data XDG_CONFIG_HOME=$folder/config DISPLAY='' WAYLAND_DISPLAY=''
    ./dev run && build/release/korvexctl description export "$folder/menu.tsv" &&
        cut -f 2 "$folder/menu.tsv" | grep -c '^[0-9][0-9][0-9]$'
}
if [ -n "${KORVEX_SLOW_TESTS:-}" ] && [ -e "$source/.git" ]; then
    (clean_clone) >"$work/clone-said" 2>&1 || failed=1
    expect "149 menu items" "in a clean clone" cat "$work/clone-said"
    expect "149" "menu descriptions in a clean clone" tail -1 "$work/clone-said"
    rm -rf "$folder"
fi

[ "$failed" = 0 ] && echo "./dev run does what a newcomer needs"
exit "$failed"
