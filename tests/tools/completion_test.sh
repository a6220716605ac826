#!/usr/bin/env bash
# What bash, zsh and fish offer at the places of a command line, each shell that is installed here asked in its own words;
# and that man finds nothing wrong with the manual pages.   tests/tools/completion_test.sh FOLDER_OF_THE_PROGRAMS
# shellcheck disable=SC2317 # in_bash and so on are called by name
set -euo pipefail

programs=$(cd "$1" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
mkdir folder && touch shack.mnu
failed=0

in_bash() { # WORD... with the last one to be completed
    # shellcheck disable=SC2016 # the inner shell's own
    bash -c 'compopt() { :; }
        . <("$0" --completion bash)
        COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))
        "_$1" || true
        printf "%s\n" "${COMPREPLY[@]}"' "$programs/$1" "$@"
}

in_zsh() { # the functions that zsh gives to a completion say what they were asked to offer
    # shellcheck disable=SC2016
    zsh -fc 'compdef() { : }
        compadd() { print -l -- "${@:#--}" | grep "^$PREFIX" }
        _describe() { print -l -- "${(@P)@[-1]%%:*}" | grep -e "^$PREFIX" }
        _files() { [[ $1 == -/ ]] && print -l -- *(/N) || print -l -- *(N) }
        compset() { PREFIX=${PREFIX#*=} }
        . <("$0" --completion zsh)
        words=("$@") CURRENT=$# PREFIX=${@[-1]}
        "_$1"' "$programs/$1" "$@"
}

in_fish() {
    # shellcheck disable=SC2016
    HOME=$work fish --no-config -c 'for program in korvex korvexctl ft2000sim
            $argv[1]/$program --completion fish | source
        end
        complete -C "$argv[2]"' "$programs" "$*" | cut -f1
}

offers() { # WANTED WORD...: among what is offered for the last word are the words WANTED, in every shell
    local shell offered wanted
    for shell in bash zsh fish; do
        command -v $shell >/dev/null || continue
        offered=$(in_$shell "${@:2}" 2>&1 | tr '\n' ' ') || true
        for wanted in $1; do
            [[ " $offered " != *" $wanted "* && " $offered " != *" $wanted/ "* ]] || continue
            printf '%s: "%s" wants %s, got: %s\n' $shell "${*:2}" "$wanted" "$offered"
            failed=1
        done
    done
}

offers "save restore restore-all backup compare ports description" korvexctl ''
offers "restore restore-all" korvexctl --demo -s 38400,n,8,2 rest
offers "menu memory list bandstack keyer" korvexctl save ''
offers "shack.mnu" korvexctl --device /dev/ttyUSB0 save menu sh
offers "shack.mnu" korvexctl restore menu --verify ''
offers "radio" korvexctl compare shack.mnu ra
offers "export import" korvexctl description ''
offers "shack.mnu" korvexctl description import ''
offers "folder" korvexctl backup ''
offers "--demo --device" korvexctl --de
offers "--verify" korvexctl restore menu shack.mnu --ver
offers "answered 100" korvexctl ports --pace ''
offers "slow= garbage none" ft2000sim --fault ''
offers "shack.mnu" ft2000sim --state ''
offers "--program-folder" korvex --pro
offers "folder" korvex --demo --program-folder ''

for program in korvex korvexctl ft2000sim; do
    if command -v man >/dev/null && man -w >/dev/null 2>&1; then
        "$programs/$program" --manual >"$program.1"
        LC_ALL=C.UTF-8 MANWIDTH=100 man --warnings -l "$program.1" >shown 2>complaints
        if [ -s complaints ] || ! grep -q "EXIT STATUS" shown; then
            printf '%s: the manual page is not as man wants it:\n' "$program"
            cat complaints
            failed=1
        fi
    fi
done
exit $failed
