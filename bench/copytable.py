#!/usr/bin/env python3
"""copytable.py NAME BARE OURS: a row of the table of copies beside the system's bare call.

Each file holds a line for each round: seconds, files, bytes.
"""
import statistics
import sys


def rounds(path):
    with open(path, encoding="ascii") as lines:
        return [(float(seconds), int(files), int(size))
                for seconds, files, size in (line.split() for line in lines)]


def main():
    name, bare, ours = sys.argv[1], *(rounds(path) for path in sys.argv[2:])
    if len({row[1:] for row in bare + ours}) != 1:
        sys.exit("copytable: not the same files")
    _, files, size = bare[0]
    times = [statistics.median(row[0] for row in half) for half in (bare, ours)]
    print(f"{name:<14} {files:5} files {size / 1e6:7.1f} MB   bare {times[0]:7.3f} s   "
          f"ours {times[1]:7.3f} s   ratio {times[1] / times[0]:5.2f}")


if __name__ == "__main__":
    main()
