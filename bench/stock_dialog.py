#!/usr/bin/env python3
"""What choosing among many papers costs: prints a section of docs/performance.md. To be run with a
display of its own, see bench/run: stock_dialog.py PROGRAM"""
import os
import subprocess
import sys
import tempfile

ROUNDS = 5
WANTED = {10_000: ("at most 100 ms", "at most 16 ms")}


def times(program, papers):
    """The reading, the menu and the rows."""
    with tempfile.TemporaryDirectory() as home:
        environment = {**os.environ, "XDG_CONFIG_HOME": home, "GTK_MODULES": "", "NO_AT_BRIDGE": "1"}
        output = subprocess.run([program, str(papers)], env=environment, check=True,
                                stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout
    return [float(line) for line in output.split()]


def main():
    print("\n## Choosing among many papers\n")
    print("Reading the user's library, which a task does beforehand; opening the stock menu; and from the library in")
    print("memory to the first paint of its list. The least of several runs, in milliseconds of the processor.\n")
    print("| papers | reading | menu | wanted | list | wanted |")
    print("|---|---|---|---|---|---|")
    for papers in (100, 10_000):
        reading, menu, rows = (min(column) for column in zip(*(times(sys.argv[1], papers) for _ in range(ROUNDS))))
        wanted = WANTED.get(papers, ("", ""))
        print(f"| {papers:,} | {reading:.1f} | {menu:.1f} | {wanted[0]} | {rows:.1f} | {wanted[1]} |")


if __name__ == "__main__":
    main()
