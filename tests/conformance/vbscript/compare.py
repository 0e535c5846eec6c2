#!/usr/bin/env python3
"""Runs the conformance scripts in this engine and in wine's cscript and shows where the two differ.

usage: compare.py RUNNER [folder ...]     RUNNER: the built vbscript_bench_run

Scripts that use Host, boxes or `'!` lines that stop the text from being compiled are left out. A difference
is not a fault by itself: README.md says who is right.
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).parent


def echoed(script):
    script = re.sub(r"'[=!] .*", "", script)
    return re.sub(r"\bSay\b", "WScript.Echo", script)


def run(command, folder):
    environment = dict(os.environ, WINEDEBUG="-all")
    try:
        done = subprocess.run(command, capture_output=True, text=True, errors="replace", timeout=60, env=environment,
                              cwd=folder)
    except subprocess.TimeoutExpired:
        return ["(no end)"]
    return [line.rstrip() for line in done.stdout.splitlines()]


def main():
    runner, folders = os.path.abspath(sys.argv[1]), sys.argv[2:] or ["."]
    for folder in folders:
        for path in sorted((HERE / folder).rglob("*.vbs")):
            script = path.read_text(encoding="utf-8", errors="replace")
            if re.search(r"\bHost\b|MsgBox|InputBox", script) or path.parent.name == "compile":
                continue
            with tempfile.TemporaryDirectory() as scratch:
                pathlib.Path(scratch, "script.vbs").write_text(echoed(script))
                ours = run([runner, "script.vbs"], scratch)
                theirs = run(["wine", "cscript", "//nologo", "script.vbs"], scratch)  # it takes no path with /
            if ours != theirs:
                print(f"{path.relative_to(HERE)}")
                for place in range(max(len(ours), len(theirs))):
                    mine = ours[place] if place < len(ours) else "(nothing)"
                    other = theirs[place] if place < len(theirs) else "(nothing)"
                    if mine != other:
                        print(f"    ours {mine}\n    wine {other}")


main()
