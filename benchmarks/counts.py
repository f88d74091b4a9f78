#!/usr/bin/env python3
"""Counts the instructions of benchmarks/counted_work.cpp and compares them with benchmarks/expected.json.

usage: benchmarks/counts.py PROGRAM            fails where a figure has grown by more than 5 %
       benchmarks/counts.py --accept PROGRAM   takes what is counted for what is expected

Counted are the instructions of the program's own files, without those of the libraries under it: which of its string
functions the C library takes depends on the processor. What the program asks of libraries is counted by its calls.
Neither depends on the load of the machine, its processor, its fonts, the user or where the program was built; they do
on the compiler and its options, so the figures are those of the `check` build by Debian's compiler.
"""

import argparse
import json
import pathlib
import subprocess
import sys
import tempfile

EXPECTED = pathlib.Path(__file__).with_name("expected.json")
GROWTH = 1.05

FONTS = """<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig><dir>/usr/share/fonts/truetype/dejavu</dir><cachedir>{}/cache</cachedir></fontconfig>
"""


def count_dump(lines, program):
    """The name of a dump's work, the program's own instructions in it, and its calls of libraries."""
    name, instructions, calls, own, callee_is_own = "", 0, 0, False, False
    lines = iter(lines)
    for line in lines:
        if line.startswith("desc: Trigger: Client Request: "):
            name = line.removeprefix("desc: Trigger: Client Request: ")
        elif line.startswith("ob="):
            own = line == f"ob={program}"
        elif line.startswith("fn="):
            callee_is_own = own  # where no cob= follows
        elif line.startswith("cob="):
            callee_is_own = line == f"cob={program}"
        elif line.startswith("calls="):
            if own and not callee_is_own:
                calls += int(line.removeprefix("calls=").split()[0])
            callee_is_own = own
            next(lines)  # what the call cost
        elif own and line[:1].isdigit():
            instructions += int(line.split()[1])
    return name, instructions, calls


def count(program):
    with tempfile.TemporaryDirectory() as directory:
        scratch = pathlib.Path(directory)
        (scratch / "fonts.conf").write_text(FONTS.format(scratch))
        environment = {"PATH": "/usr/bin:/bin", "HOME": directory, "XDG_RUNTIME_DIR": directory, "LC_ALL": "C.UTF-8",
                       "QT_QPA_PLATFORM": "offscreen", "QT_HASH_SEED": "0",
                       "FONTCONFIG_FILE": str(scratch / "fonts.conf")}
        command = ["valgrind", "--tool=callgrind", "--collect-atstart=no", "--compress-strings=no",
                   "--compress-pos=no", f"--callgrind-out-file={scratch / 'counts'}", program]
        run = subprocess.run(command, env=environment, capture_output=True, text=True, check=False)
        if run.returncode != 0:
            sys.exit(run.stdout + run.stderr)
        figures = {}
        for part in scratch.glob("counts.*"):
            name, instructions, calls = count_dump(part.read_text().splitlines(), program)
            figures[name] = {"instructions": instructions, "calls": calls}
        return dict(sorted(figures.items()))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--accept", action="store_true")
    parser.add_argument("program", type=pathlib.Path)
    arguments = parser.parse_args()
    figures = count(arguments.program.resolve())
    if arguments.accept:
        EXPECTED.write_text(json.dumps(figures, indent=2) + "\n")
        return
    expected = json.loads(EXPECTED.read_text())
    if figures.keys() != expected.keys():
        sys.exit(f"Counted: {', '.join(figures)}\nExpected: {', '.join(expected)}")
    grown = []
    for name, figure in figures.items():
        for what, now in figure.items():
            before = expected[name][what]
            change = 100 * (now / before - 1) if before else 0
            print(f"{name:24}{what:14}{before:10}{now:10}{change:+8.1f} %")
            if now > GROWTH * before:
                grown.append(f"{name}: {what} have grown from {before} to {now}.")
    if grown:
        sys.exit("\n".join([*grown, "If that is worth it: benchmarks/counts.py --accept " + str(arguments.program)]))


if __name__ == "__main__":
    main()
