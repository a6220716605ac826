#!/usr/bin/env bash
# What an ordinary user does with the installed package; run by package_test.sh inside the bare Debian.
# shellcheck disable=SC2317,SC2086 # its functions are called by way of hold
set -uo pipefail
failed=0

hold() { # WHAT COMMAND...
    if "${@:2}" >said 2>&1; then
        echo "package: $1"
    else
        echo "package: NOT $1:"
        tail -20 said
        failed=1
    fi
}

windows_start() { # they stand for five seconds, and end when they are told to
    QT_QPA_PLATFORM=offscreen korvex --demo &
    local korvex=$!
    sleep 5
    kill -0 $korvex && kill $korvex
}

simulator_answers() {
    ft2000sim --link ./radio &
    local simulator=$!
    sleep 1
    korvexctl -r ./radio send 'FA;' | grep -q '^FA[0-9]*;'
    local answered=$?
    kill $simulator
    return $answered
}

hold "korvexctl saves the menu" korvexctl --demo save menu my.mnu
hold "all of it" test "$(wc -l <my.mnu)" -ge 149
hold "which is what the radio has" korvexctl --demo compare my.mnu radio
hold "the menu descriptions can be read" sh -c 'korvexctl description export - | grep -q 149'
hold "the windows start" windows_start
hold "they have made their folder" test -f .local/share/Korvex/FT2000_Menu.mdb
hold "the simulated radio answers" simulator_answers
for program in korvex korvexctl ft2000sim; do
    hold "$program says its release" sh -c "$program --version | grep -Eqx '$program [0-9.]+'"
    hold "$program has a manual page" test -f /usr/share/man/man1/$program.1.gz
    hold "$program is completed by bash" test -f /usr/share/bash-completion/completions/$program
done
exit $failed
