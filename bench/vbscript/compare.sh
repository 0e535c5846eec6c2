#!/bin/sh
# Runs the equal programs of programs/ in this engine, in Lua 5.4 and in wine's cscript, and prints seconds side
# by side. usage: compare.sh RUNNER [no-wine]   (RUNNER: the built vbscript_bench_run)
#
# User seconds for this engine and Lua, the best of three. What runs the script for cscript is no child of the
# command, so its time is taken by the clock, less what an empty script takes; it counts only if it prints what
# this engine prints.
here=$(dirname "$0")
runner=$1
export WINEDEBUG=-all
scratch=$(mktemp -d)
export WINEPREFIX="$scratch/wine"
stop_wine() { wineserver -k 2> /dev/null || true; }
trap 'stop_wine; rm -r "$scratch"' EXIT
best() { # the user seconds of a command
    for turn in 1 2 3; do
        { /usr/bin/env TIMEFORMAT=%U bash -c 'time "$@" > "$0"' "$scratch/out" "$@"; } 2>&1 | tail -1
    done | sort -n | head -1
}
by_cscript() { # one run of a program, which cscript wants in its own folder; it is given up after two minutes
    (cd "$here/programs" && { /usr/bin/env TIMEFORMAT=%R bash -c 'time timeout 120 "$@" > "$0" 2> /dev/null' \
        "$scratch/cscript" wine cscript //nologo "$1"; } 2>&1 | tail -1)
    stop_wine
}
against_cscript() { # its seconds net of start-up and how many times ours; > where it was given up
    seconds=$(echo "$(by_cscript "$1") - $start" | bc)
    if [ "$(echo "$seconds + $start >= 120" | bc)" = 1 ]; then
        printf '>%s %sx' "$seconds" ">$(echo "$seconds / $2" | bc)"
    elif tr -d '\r' < "$scratch/cscript" | cmp -s - "$scratch/ours"; then
        printf '%s %sx' "$seconds" "$(echo "$seconds / $2" | bc)"
    else
        printf 'failed -'
    fi
}
if [ "$2" != no-wine ]; then
    : > "$here/programs/empty.vbs"
    by_cscript empty.vbs > /dev/null # the first run sets wine up
    start=$(by_cscript empty.vbs)
    rm "$here/programs/empty.vbs"
fi
printf '%-14s %10s %10s %10s %10s\n' program vbscript lua cscript "times ours"
for program in strings loop calls collections generator; do
    ours=$(best "$runner" "$here/programs/$program.vbs")
    mv "$scratch/out" "$scratch/ours"
    lua=$(best lua5.4 "$here/programs/$program.lua")
    other='- -'
    if [ "$2" != no-wine ]; then
        other=$(against_cscript $program.vbs "$ours")
    fi
    # shellcheck disable=SC2086 # two words
    printf '%-14s %10s %10s %10s %10s\n' "$program" "$ours" "$lua" $other
    sum_ours="${sum_ours:-0} + $ours"
    sum_lua="${sum_lua:-0} + $lua"
done
printf '%-14s %10s %10s\n' sum "$(echo "$sum_ours" | bc)" "$(echo "$sum_lua" | bc)"
