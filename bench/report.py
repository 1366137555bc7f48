#!/usr/bin/env python3
"""Turns a Google Benchmark result (JSON, aggregates) into docs/performance.md."""
import json
import os
import platform
import re
import sys

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def results(path, aggregate):
    """name -> (nanoseconds, bytes per second or None, bytes of memory or None, nanoseconds of the
    processor by a program that was started, or None); the first is the time of the processor, but
    of the clock where another program or thread has a share"""
    with open(path, encoding="utf-8") as file:
        rows = json.load(file)["benchmarks"]
    result = {}
    for row in rows:
        if row.get("error_occurred"):
            sys.exit(f"{row['run_name']}: {row['error_message']}")
        if row.get("aggregate_name") == aggregate:
            name, is_of_clock = re.subn(r"(/iterations:\d+)?/(real|manual)_time$", "",
                                        row["run_name"])
            result[name] = (
                row["real_time" if is_of_clock else "cpu_time"] * NANOSECONDS[row["time_unit"]],
                row.get("bytes_per_second"),
                row.get("peak"),
                row["cpu"] * 1e9 if "cpu" in row else None,
            )
    return result


def time(nanoseconds):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("us", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"


def memory(row):
    return f"{row[2] / 1e6:.0f} MB"


def speed(row):
    return f"{row[1] / 1e6:.0f} MB/s" if row[1] else ""


def processor():
    with open("/proc/cpuinfo", encoding="utf-8") as file:
        for line in file:
            if line.startswith("model name"):
                return line.split(":", 1)[1].strip()
    return platform.machine()


def main():
    rows = results(sys.argv[1], "median")
    least = results(sys.argv[1], "least")
    print("# Performance\n")
    print("Made by `bench/run`: medians of five runs of the release build. Machines differ; the")
    print("ratios, taken in one run, are what to look at.\n")
    print(f"Machine: {processor()}, {os.cpu_count()} cores.\n")

    print("## Property lists\n")
    print("| | time | speed | wanted |")
    print("|---|---|---|---|")
    for name in ("read 10 MB", "write 10 MB"):
        row = rows["property list/" + name]
        print(f"| {name} | {time(row[0])} | {speed(row)} | above 100 MB/s |")

    print("\n## Export, beside libxml2's xmlTextWriter writing the same bytes\n")
    print("The export reads the ticket; xmlTextWriter is handed prepared names and texts.\n")
    print("| ticket | export | speed | xmlTextWriter | ratio | wanted |")
    print("|---|---|---|---|---|---|")
    wanted = {"exceptions/1500": "at most 0.5"}
    for name in ("small ticket/1", "exceptions/1500", "exceptions/15000", "inserts/100000"):
        ours, theirs = rows["export/" + name], rows["xmlTextWriter/" + name]
        print(f"| {name} | {time(ours[0])} | {speed(ours)} | {time(theirs[0])} "
              f"| {ours[0] / theirs[0]:.2f} | {wanted.get(name, '')} |")
    growth = rows["export/exceptions/15000"][0] / rows["export/exceptions/1500"][0]
    print(f"\nTen times the exception pages take {growth:.1f} times the time (wanted: at most 11).")

    print("\n## Special pages\n")
    print("The least of five runs. Ranges anywhere, half of them over others; the second size is ten")
    print("times the first.\n")
    print("| | first size | time | second size | time | growth | wanted |")
    print("|---|---|---|---|---|---|---|")
    for name, first, second, wanted in (
            ("merge ranges at once", 1_000, 10_000, "well within 1 s"),
            ("merge ranges one by one", 1_000, 10_000, "well within 1 s"),
            ("add inserts", 10_000, 100_000, "well within 1 s"),
            ("describe exception pages", 1_000, 10_000, ""),
            ("page list as single pages", 1_000_000, 9_999_999, "")):
        small, large = least[f"{name}/{first}"][0], least[f"{name}/{second}"][0]
        print(f"| {name} | {first:,} | {time(small)} | {second:,} | {time(large)} "
              f"| {large / small:.1f} | {wanted} |")

    print("\n## Import, beside xmllint --noout\n")
    print("Whole programs, from start to end; the reader alone, and with the ticket that the command line")
    print("writes.\n")
    print("| exceptions | import alone | memory | tarvo-ticket import | memory | xmllint | memory "
          "| time | wanted | memory | wanted |")
    print("|---|---|---|---|---|---|---|---|---|---|---|")
    for count, size in (("1500", "1 MB"), ("15000", "10 MB"), ("70000", "47 MB")):
        reader, program, theirs = (rows[f"{name}/exceptions/{count}"] for name in
                                   ("import alone", "tarvo-ticket import", "xmllint --noout"))
        wanted = {"1500": ("at most 1.0", ""), "70000": ("", "at most 0.1")}.get(count, ("", ""))
        print(f"| {count}, {size} | {time(reader[0])} | {memory(reader)} | {time(program[0])} "
              f"| {memory(program)} | {time(theirs[0])} | {memory(theirs)} "
              f"| {reader[0] / theirs[0]:.2f} | {wanted[0]} | {reader[2] / theirs[2]:.2f} | {wanted[1]} |")
    growth = rows["import/exceptions/15000"][0] / rows["import/exceptions/1500"][0]
    print(f"\nIn memory the reader makes {speed(rows['import/exceptions/1500'])}; ten times the pages take "
          f"{growth:.1f} times the time.")

    print("\nA document of a million elements that nothing asks for, on the processor:\n")
    print("| | processor | wanted | memory |")
    print("|---|---|---|---|")
    for name, wanted in (("import alone", "at most 100 ms"), ("tarvo-ticket import", "at most 100 ms"),
                         ("tarvo-ticket import --json", ""), ("xmllint --noout --stream", "")):
        row = rows[name + "/a million elements"]
        print(f"| {name} | {time(row[3])} | {wanted} | {memory(row)} |")

    print("\n## Descriptions of printers\n")
    print("Opening and describing, beside the library's reader alone; and the whole program beside")
    print("`lpoptions -l`, which asks a print server of its own for the file first: by the clock and,")
    print("without the server's part, of the processor.\n")
    print("| PPD | describe | ppdOpenFile | ratio | wanted | tarvo-ticket printer | lpoptions -l "
          "| processor: tarvo-ticket printer | lpoptions -l |")
    print("|---|---|---|---|---|---|---|---|---|")
    for name in ("QL900", "1,000 options of 20 choices"):
        ours, theirs = rows["describe/" + name][0], rows["ppdOpenFile/" + name][0]
        program, other = rows["tarvo-ticket printer/" + name], rows["lpoptions -l/" + name]
        print(f"| {name} | {time(ours)} | {time(theirs)} | {ours / theirs:.2f} | at most 1.3 "
              f"| {time(program[0])} | {time(other[0])} | {time(program[3])} | {time(other[3])} |")

    print("\n## The user's stock library\n")
    print("Loading makes the index for matching too. Adding includes the disk's confirmation.\n")
    print("| papers | parse the file | load | ratio | wanted | match | wanted | add | menu | printer's list |")
    print("|---|---|---|---|---|---|---|---|---|---|")
    for count in (100, 1000, 10000):
        parse, load, match, add, menu, printer = (
            rows[f"stock library/{name}/{count}"][0]
            for name in ("parse", "load", "match", "add", "menu", "printer's list"))
        print(f"| {count:,} | {time(parse)} | {time(load)} | {load / parse:.2f} | at most 1.3 | {time(match)} "
              f"| at most 5 us | {time(add)} | {time(menu)} | {time(printer)} |")

    print("\n## Stocks of a printer\n")
    print("Asking a printer of the same machine and making stocks of its media. Beside it, with the same")
    print("reply: `ipptool`, a whole program that reads the media and prints nothing, and")
    print("`tarvo-ticket stocks fetch`, one that prints what became of every member of every medium; the")
    print("wanted ratio is that of the first two. By the clock, and of the processor without the printer's")
    print("part.\n")
    print("| media | fetch | ipptool | ratio | wanted | stocks fetch "
          "| processor: fetch | ipptool | ratio | stocks fetch |")
    print("|---|---|---|---|---|---|---|---|---|---|")
    for media in (5000, 20000):
        ours, theirs, program = (rows[f"{name}/{media}"] for name in
                                 ("fetch stocks", "ipptool", "tarvo-ticket stocks fetch"))
        print(f"| {media:,} | {time(ours[0])} | {time(theirs[0])} | {ours[0] / theirs[0]:.3f} | at most 0.125 "
              f"| {time(program[0])} | {time(ours[3])} | {time(theirs[3])} | {ours[3] / theirs[3]:.3f} "
              f"| {time(program[3])} |")
    print("\nThe same beside the library alone, `cupsDoFileRequest` in this process:\n")
    print("| media | fetch | cupsDoFileRequest | ratio | wanted | longest turn of the main context "
          "| wanted |")
    print("|---|---|---|---|---|---|---|")
    for media in (500, 5000, 20000, 50000):
        ours = rows[f"fetch stocks/{media}"][0]
        theirs = rows.get(f"cupsDoFileRequest/{media}")
        turn = rows.get(f"longest turn of the main context/{media}")
        print(f"| {media:,} | {time(ours)} "
              f"| {time(theirs[0]) if theirs else ''} "
              f"| {format(ours / theirs[0], '.3f') if theirs else ''} "
              f"| {'at most 0.125' if theirs else ''} "
              f"| {time(turn[0]) if turn else ''} | {'below 8 ms' if turn else ''} |")
    growth = rows["fetch stocks/50000"][0] / rows["fetch stocks/5000"][0]
    print(f"\nTen times the media take {growth:.1f} times the time.\n")
    print("Closing the dialog while the worker waits:\n")
    print("| printer | close | wanted | worker gone | wanted |")
    print("|---|---|---|---|---|")
    for name in ("silent", "drip"):
        print(f"| {name} | {time(rows['close/' + name][0])} | within 100 ms "
              f"| {time(rows['worker gone/' + name][0])} | within 1 s |")

    print("\n## Start of the command line\n")
    print("| | time | processor |")
    print("|---|---|---|")
    for name in ("true --version", "tarvo-ticket --version"):
        start = rows["start/" + name]
        print(f"| {name} | {time(start[0])} | {time(start[3])} |")
    over = rows["start/tarvo-ticket --version"][0] - rows["start/true --version"][0]
    print(f"\nDifference: {time(over)} (wanted: at most 3 ms).")

    print("\n## Hostile tickets, the whole program\n")
    print("| | time | wanted |")
    print("|---|---|---|")
    for name in ("a million keys", "a text of 50 MB"):
        print(f"| {name} | {time(rows['hostile ticket/' + name][0])} | within 1 s |")


if __name__ == "__main__":
    main()
