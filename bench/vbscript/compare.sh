#!/bin/sh
# Runs the equal programs of programs/ in this engine, in Lua 5.4 and in wine's cscript, and prints user
# seconds side by side. usage: compare.sh RUNNER [no-wine]   (RUNNER: the built vbscript_bench_run)
here=$(dirname "$0")
runner=$1
export WINEDEBUG=-all
user() { # best of three user times of a command; its output must be $expected, if that is set
    best=
    for turn in 1 2 3; do
        seconds=$( { /usr/bin/env TIMEFORMAT=%U bash -c 'time "$@" > /tmp/compare.$$.out' compare "$@"; } 2>&1 | tail -1)
        if [ -z "$best" ] || [ "$(echo "$seconds < $best" | bc)" = 1 ]; then best=$seconds; fi
    done
    echo "$best"
}
wine_start=0
printf '%-14s %10s %10s %10s\n' program vbscript lua cscript
for program in strings loop calls collections generator; do
    ours=$(user "$runner" "$here/programs/$program.vbs")
    lua=$(user lua5.4 "$here/programs/$program.lua")
    other=-
    if [ "$2" != no-wine ]; then
        other=$(user wine cscript //nologo "$here/programs/$program.vbs")
    fi
    printf '%-14s %10s %10s %10s\n' "$program" "$ours" "$lua" "$other"
    sum_ours="${sum_ours:-0} + $ours"
    sum_lua="${sum_lua:-0} + $lua"
done
printf '%-14s %10s %10s\n' sum "$(echo "$sum_ours" | bc)" "$(echo "$sum_lua" | bc)"
