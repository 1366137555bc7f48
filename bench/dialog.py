#!/usr/bin/env python3
"""What the print features cost the programs that they are in: prints a section of
docs/performance.md. To be run with a print server and a display of its own, see bench/run:
dialog.py PROGRAM MODULE"""
import os
import statistics
import subprocess
import sys

STARTS = 41
DIALOGS = 15
WAITS = 5


def times(program, module, *words):
    """The times that the program tells, with the module or without."""
    environment = {**os.environ, "GTK_MODULES": module}
    output = subprocess.run([program, *words], env=environment, check=True, stdout=subprocess.PIPE,
                            stderr=subprocess.DEVNULL).stdout
    return [float(line) for line in output.split()]


def measure(program, module, rounds, statistic, without, with_module):
    """Of each time, without and with the module; one run of each in turn."""
    runs = [(times(program, "", *without), times(program, module, *with_module))
            for _ in range(rounds)]
    return [[statistic(column) for column in zip(*side)] for side in zip(*runs)]


def pages_with(program, module, printer):
    """How many pages the dialog has with our tab, if any; it has three or more without."""
    for pages in range(9, 2, -1):
        try:
            subprocess.run([program, "open", printer, str(pages)], check=True, timeout=5,
                           env={**os.environ, "GTK_MODULES": module},
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            return pages
        except subprocess.TimeoutExpired:
            continue
    sys.exit("no dialog")


def main():
    program, module = sys.argv[1:]
    (none,), (thin,) = measure(program, module, STARTS, statistics.median, [], [])
    print("\n## Programs with print dialogs\n")
    print(f"A program that never prints takes {none:.2f} ms of the processor to start the toolkit, with")
    print(f"the module in its list {thin - none:.2f} ms more (wanted: at most 1 ms).\n")
    print("The dialog's first paint, and the paint with the printer and our tab if it has one; in")
    print("milliseconds, the first dialog of a program and a second one, the least of several runs.\n")
    print("| printer | paint | without | with | ratio |")
    print("|---|---|---|---|---|")
    names = ("first paint, cold", "printer, cold", "first paint, warm", "printer, warm")
    for printer in ("Office", "Tarvo_QL900"):
        bare, full = (str(pages_with(program, each, printer)) for each in ("", module))
        sides = measure(program, module, DIALOGS, min, ["open", printer, bare], ["open", printer, full])
        for name, without, with_module in zip(names, *(side[1:] for side in sides)):
            print(f"| {printer} | {name} | {without:.1f} | {with_module:.1f} "
                  f"| {with_module / without:.2f} |")

    printer, other = "Office", "Tarvo_QL900"
    opening, painted, switches = (min(column) for column in zip(*(
        times(program, module, "switch", other, "Tarvo Features")[1:] for _ in range(WAITS))))
    print(f"\nThe tab opens with its first panel in {opening:.1f} ms of the processor. A change from panel to")
    print(f"panel takes {switches / 100:.2f} ms (wanted: at most 2 ms), and {painted / 100:.1f} ms with its paint.\n")
    choosing, waiting = zip(*(row[1:] for row in measure(
        program, module, WAITS, min, ["wait", printer, other], ["wait", printer, other])))
    print("A Tarvo printer is chosen whose print server hangs: the main loop's longest pauses in milliseconds,")
    print("the least of several runs. While it is chosen, the toolkit makes its own tabs.\n")
    print("| | without | with | wanted |")
    print("|---|---|---|---|")
    print(f"| while it is chosen | {choosing[0]:.1f} | {choosing[1]:.1f} | |")
    print(f"| while the print server is waited for | {waiting[0]:.1f} | {waiting[1]:.1f} | below 8 |")


if __name__ == "__main__":
    main()
