#!/usr/bin/env python3
"""scantable.py BARE OURS: the table of a scan beside the least that any scan must do.

Each file holds a line for each round: seconds, files, and a number of its own (BARE: the files'
bytes, OURS: the greatest memory the process had).
"""
import statistics
import sys


def rounds(path):
    with open(path, encoding="ascii") as lines:
        return [(float(seconds), int(files), int(number))
                for seconds, files, number in (line.split() for line in lines)]


def described(name, seconds):
    low, _, high = statistics.quantiles(seconds, n=4)
    middle = statistics.median(seconds)
    return f"{name:<44} {middle:8.3f} s ±{(high - low) / 2 / middle:4.0%}"


def main():
    bare, ours = (rounds(path) for path in sys.argv[1:])
    files = bare[0][1]
    if any(row[1] != files for row in bare + ours):
        sys.exit("scantable: not the same files")
    print(f"{files} music files, {bare[0][2] / 1e9:.1f} GB, {len(bare)} rounds under Wine")
    print(described("list, open, size, read, close", [row[0] for row in bare]))
    print(described("the scan, every row committed", [row[0] for row in ours]))
    ratio = statistics.median(row[0] for row in ours) / statistics.median(row[0] for row in bare)
    print(f"{'ratio (goal: at most 1.5)':<44} {ratio:8.2f}")
    print(f"{'its greatest memory (goal: below 60 MB)':<44} {max(r[2] for r in ours) / 1e6:8.1f} MB")


if __name__ == "__main__":
    main()
