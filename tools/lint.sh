#!/usr/bin/env bash
# clang-tidy over every source of ours that BUILD compiles. A source that passed is not looked at again until it, one of
# our headers below it, its compile command or .clang-tidy changes: its stamp is a hash of all of these.
#
# usage: tools/lint.sh BUILD [SOURCE...]    a built build folder (the header lists come from ninja's own records);
#                                           of SOURCEs, paths from the repository on, only these
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

build=$1
wanted=("${@:2}")
stamps=$build/lint
mkdir -p "$stamps"

# "SOURCE HEADER HEADER ..." for every source of ours, paths from the repository on
dependencies() {
    ninja -C "$build" -t deps | awk -v root="$PWD/" '
        function tell() { if (line != "" && line ~ /^(src|tests)\//) print line; line = "" }
        /^[^ ]/ { tell(); next }
        NF == 0 { next }
        {
            path = $1
            outsideBuild = sub("^" root, "", path)
            while (sub("^[.][.]/", "", path)) outsideBuild = 1
            if (outsideBuild && path ~ /^(src|tests)\//) line = line (line == "" ? "" : " ") path
            else if (line == "") line = "-"
        }
        END { tell() }' | sort -u
}

stamp_of() { # SOURCE HEADER...: the hash of all that the verdict depends on
    {
        cat .clang-tidy tools/lint.sh "$@"
        grep -F "/$1\"" "$build/compile_commands.json"
    } | sha256sum | cut -d' ' -f1
}

# gcc's own warning names mean nothing to clang and are no fault of the source. The analyzer stays within a function and
# its small helpers: going deeper takes three times as long, and the sanitizers see what happens in there.
options="--quiet -p $build --extra-arg=-Wno-unknown-warning-option
    --extra-arg=-Xclang --extra-arg=-analyzer-config --extra-arg=-Xclang --extra-arg=mode=shallow"

lint() { # STAMP SOURCE
    local said
    # shellcheck disable=SC2086 # a list of words
    if said=$(clang-tidy $options "$2" 2>/dev/null); then
        touch "$stamps/$1"
    else
        printf '%s\n%s\n' "$2" "$said"
        return 1
    fi
}
export -f lint
export options stamps

total=0
todo=()
while read -r source headers; do
    [ ${#wanted[@]} = 0 ] || [[ " ${wanted[*]} " == *" $source "* ]] || continue
    total=$((total + 1))
    # shellcheck disable=SC2086 # a list of words
    stamp=$(stamp_of "$source" $headers)
    [ -f "$stamps/$stamp" ] || todo+=("$stamp $source")
done < <(dependencies)

echo "lint: ${#todo[@]} of $total sources to look at"
[ ${#todo[@]} = 0 ] || printf '%s\n' "${todo[@]}" | xargs -P "$(nproc)" -L 1 bash -c 'lint "$@"' lint
