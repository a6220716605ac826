#!/usr/bin/env bash
# Runs the benches and prints their tables. Every figure stands beside its yardstick, measured in the same run.
#   tests/bench/run.sh FOLDER_OF_THE_BENCHES
set -euo pipefail
bin=$1

milliseconds() {  # of one run of a program
    local begin=$EPOCHREALTIME
    "$@" > /dev/null 2>&1
    local end=$EPOCHREALTIME
    echo $(((${end/./} - ${begin/./}) / 1000))
}

median() { sort -n | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }

ratio() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.2f", a / b }'; }

start_up() {
    local empty=() start=()
    "$bin/bench_start_window" > /dev/null 2>&1  # the very first start fills the program's folder
    for _ in $(seq 21); do
        empty+=("$(milliseconds "$bin/bench_start_window" empty)")
        start+=("$(milliseconds "$bin/bench_start_window")")
    done
    local e s
    e=$(printf '%s\n' "${empty[@]}" | median)
    s=$(printf '%s\n' "${start[@]}" | median)
    echo "Start-up, median of 21 (ms)"
    printf '  %-34s %8s\n' "empty window of the toolkit" "$e" "settled start window" "$s"
    printf '  %-34s %8s   at most 1.6\n\n' "ratio" "$(ratio "$s" "$e")"
}

at_rest() {
    local pss cpu switches
    read -r pss cpu switches < <("$bin/bench_start_window" rest 2> /dev/null)
    echo "At rest, start window"
    printf '  %-34s %8s   at most 35\n' "memory (PSS, MiB)" "$pss"
    printf '  %-34s %8s\n' "CPU in 5 s (ms)" "$cpu" "wake-ups in 5 s" "$switches"
    echo
}

receiving() {
    local title=$1 bytes=$2 speed=$3 limit=$4 bare mine
    read -ra bare < <("$bin/bench_receive" bare "$bytes" "$speed" 2> /dev/null)
    read -ra mine < <("$bin/bench_receive" korvex "$bytes" "$speed" 2> /dev/null)
    echo "$title"
    printf '  %-26s %14s %14s %14s   %s\n' "" "CPU ms per MB" "answers lost" "standstill ms" "memory at 1/4 2/4 3/4 4/4 (MiB)"
    printf '  %-26s %14s %14s %14s   %s\n' "bare text window" "${bare[0]}" "${bare[1]}" "${bare[2]}" "${bare[*]:3}"
    printf '  %-26s %14s %14s %14s   %s\n' "terminal window" "${mine[0]}" "${mine[1]}" "${mine[2]}" "${mine[*]:3}"
    printf '  %-26s %14s   at most %s\n\n' "ratio" "$(ratio "${mine[0]}" "${bare[0]}")" "$limit"
}

menu_read() {
    local commands took meant drift
    read -r commands took meant drift < <("$bin/bench_menu_read" 2> /dev/null)
    echo "A menu read, from the first to the last of its commands"
    printf '  %-34s %8s\n' "commands" "$commands" "took (ms)" "$took" "at 100 ms each (ms)" "$meant"
    printf '  %-34s %8s   below 1\n' "drift (%)" "$drift"
}

start_up
at_rest
receiving "Receiving 25 600 bytes a second for 20 s, terminal visible" 512000 25600 1.25
receiving "Receiving 10 MB as fast as a pseudo terminal gives them" 10000000 0 1.5
menu_read
echo
"$(dirname "$0")/transfers.sh" "$bin" "$bin/../.."
