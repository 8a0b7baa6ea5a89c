#!/usr/bin/env python3
"""Compares instruction counts with the committed ones: speed.py PROGRAM FIGURES [STEP | --update].

Counts do not depend on what else the machine does. They depend on the compiler and on the standard
libraries; the figures are those of Debian 12 on amd64. More than 5 % off in either direction is a
failure, since a gain that is not committed could be lost unseen.
"""

import os
import re
import subprocess
import sys

SLACK = 0.05

# The C library chooses its string routines and their limits by the processor; here it has only what
# every amd64 processor has.
TUNABLES = ":".join([
    "glibc.cpu.hwcaps=-AVX512VL,-AVX512BW,-AVX512F,-AVX2,-AVX,-BMI2,-BMI1,-LZCNT,-MOVBE,-POPCNT,"
    "-SSE4_2,-SSE4_1,-SSSE3,-ERMS,-FSRM,-RTM,-FMA,-FMA4,-XSAVEC,-XSAVE,-Fast_Unaligned_Copy,"
    "-AVX_Fast_Unaligned_Load,-Fast_Copy_Backward,-Prefer_No_VZEROUPPER,-Prefer_ERMS,-Prefer_FSRM",
    "glibc.cpu.x86_data_cache_size=32768",
    "glibc.cpu.x86_shared_cache_size=1048576",
    "glibc.cpu.x86_non_temporal_threshold=786432",
    "glibc.cpu.x86_rep_movsb_threshold=1048576",
    "glibc.cpu.x86_rep_stosb_threshold=1048576",
])


def count(program, step):
    """Instructions of the step. Paths and the environment are kept out of the program's memory."""
    # On one processor, since several share the work in another way each time.
    os.sched_setaffinity(0, {min(os.sched_getaffinity(0))})
    command = ["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null",
               "--collect-atstart=no", "./" + os.path.basename(program), step]
    environment = {"PATH": os.environ["PATH"], "LC_ALL": "C", "GLIBC_TUNABLES": TUNABLES}
    result = subprocess.run(command, cwd=os.path.dirname(program), env=environment, text=True,
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    collected = re.search(r"Collected : (\d+)", result.stdout)
    if result.returncode or not collected or collected[1] == "0":
        sys.exit(f"{' '.join(command)}\n{result.stdout}\nno instructions were counted")
    return int(collected[1])


def read_figures(path):
    with open(path) as file:
        return {step: int(number) for step, number in (line.split() for line in file)}


def compare(step, counted, committed):
    """The finding; empty when the count is what it should be."""
    change = counted / committed - 1
    text = f"{step}: {counted} instructions, {change:+.1%} against the committed {committed}"
    print(text)
    if abs(change) <= SLACK:
        return ""
    return f"{text}: {'slower' if change > 0 else 'faster, which should be kept'}"


def main():
    if len(sys.argv) != 4:
        sys.exit("usage: speed.py PROGRAM FIGURES STEP|--update")
    program, figures, step = os.path.abspath(sys.argv[1]), sys.argv[2], sys.argv[3]
    committed = read_figures(figures)
    if step == "--update":
        with open(figures, "w") as file:
            file.writelines(f"{name} {count(program, name)}\n" for name in committed)
        return
    finding = compare(step, count(program, step), committed[step])
    if finding:
        sys.exit(f"{finding}\nWhere that is meant, commit the new figures:\n"
                 f"  python3 tests/speed/speed.py {program} tests/speed/figures --update")


if __name__ == "__main__":
    main()
