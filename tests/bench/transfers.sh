#!/usr/bin/env bash
# How near korvexctl comes to what line and radio allow, beside a bare query loop and hamlib's rigctl, interleaved on the
# same simulated radio. Times are those of the radio's log, from the first command to the last answer.
#   tests/bench/transfers.sh FOLDER_OF_THE_BENCHES FOLDER_OF_THE_PROGRAMS [ROUNDS]
set -euo pipefail
bench=$1 bin=$2 rounds=${3:-3}
work=$(mktemp -d)
sim=
trap '[ -z "$sim" ] || kill "$sim"; rm -rf "$work"' EXIT

start_radio() { # SPEED TURNAROUND
    : > "$work/log"
    "$bin/ft2000sim" --line "$1,n,8,2" --turnaround "$2" --link "$work/radio" --log "$work/log" > "$work/device" &
    sim=$!
    until [ -s "$work/device" ]; do sleep 0.05; done
}

stop_radio() {
    kill "$sim"
    wait "$sim" || true
    sim=
}

# What was said since the last look, from the first line that holds FIRST on.
said_since() { # LINES FIRST
    tail -n "+$(($1 + 1))" "$work/log" | awk -v first="$2" 'index($0, first) && $2 == "<" { on = 1 } on'
}

# Milliseconds that it took, and that the line and the turnaround allow.
took_and_limit() { # SPEED TURNAROUND
    awk -v character="$(awk -v s="$1" 'BEGIN { print 11000 / s }')" -v turnaround="$2" '
        { text = substr($0, 13); gsub(/\\x../, "x", text); characters += length(text); }
        NR == 1 { begin = $1 }
        $2 == ">" { end = $1; answers += gsub(/;/, ";", text) }
        END { printf "%.0f %.0f\n", 1000 * (end - begin), characters * character + answers * turnaround }'
}

median() { sort -n | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }

korvexctl() { "$bin/korvexctl" --settings "$work/ini" -r "$work/radio" "$@" 2> /dev/null; }

one_transfer() { # SPEED TURNAROUND VERB KIND FIRST
    local speed=$1 turnaround=$2 verb=$3 kind=$4 first=$5 lines limit took loop=() mine=() rig=()
    for _ in $(seq "$rounds"); do
        lines=$(wc -l < "$work/log")
        korvexctl -s "$speed,n,8,2" "$verb" "$kind" "$work/$kind" || true
        said_since "$lines" "$first" > "$work/said"
        read -r took limit < <(took_and_limit "$speed" "$turnaround" < "$work/said")
        mine+=("$took")
        awk '$2 == "<" { print substr($0, 13) }' "$work/said" > "$work/queries"
        lines=$(wc -l < "$work/log")
        timeout 60 "$bench/bench_bare_loop" "$work/radio" "$speed" "$work/queries"
        read -r took _ < <(said_since "$lines" "$first" | took_and_limit "$speed" "$turnaround")
        loop+=("$took")
        if [ "$verb $kind" != "save menu" ] || ! command -v rigctl > /dev/null; then continue; fi
        lines=$(wc -l < "$work/log")
        sed 's/.*/W & ;/' "$work/queries" | timeout 60 rigctl -m 1029 -r "$work/radio" -s "$speed" > /dev/null 2>&1 || true
        read -r took _ < <(said_since "$lines" "$first" | took_and_limit "$speed" "$turnaround")
        rig+=("$took")
    done
    local m l r=-
    m=$(printf '%s\n' "${mine[@]}" | median)
    l=$(printf '%s\n' "${loop[@]}" | median)
    [ ${#rig[@]} -eq 0 ] || r=$(printf '%s\n' "${rig[@]}" | median)
    printf '  %5s %4s ms  %-17s %8s %8s %8s %8s %8s\n' "$speed" "$turnaround" "$verb $kind" "$limit" "$l" "$r" "$m" \
        "$(awk -v a="$m" -v b="$limit" 'BEGIN { printf "%.3f", a / b }')"
}

echo "Transfers, median of $rounds (ms); at most 1.053 of the limit for a reading that is answered at once, 1.1 for a write"
printf '  %5s %7s  %-17s %8s %8s %8s %8s %8s\n' line answer "" limit "bare loop" rigctl korvexctl "of limit"
for line in "38400 0" "38400 20" "4800 0"; do
    read -r speed turnaround <<< "$line"
    start_radio "$speed" "$turnaround"
    one_transfer "$speed" "$turnaround" save menu 'EX001;'
    one_transfer "$speed" "$turnaround" save memory 'MR001;'
    [ "$line" != "38400 0" ] || one_transfer "$speed" "$turnaround" save bandstack 'BS00;'
    one_transfer "$speed" "$turnaround" restore menu 'EX001'
    one_transfer "$speed" "$turnaround" restore memory 'MW001'
    stop_radio
done
