#!/usr/bin/env python3
"""copytable.py NAME BARE OURS...: a row of the table of copies beside the system's bare call.

Each file holds a line for each round: seconds, files, bytes. The ratio is the median of the rounds'
own ratios, with half the distance between their quartiles. Of several pairs of files the rounds are
added up, as if all had been copied at once.
"""
import statistics
import sys


def rounds(path):
    with open(path, encoding="ascii") as lines:
        return [(float(seconds), int(files), int(size))
                for seconds, files, size in (line.split() for line in lines)]


def added(paths):
    return [tuple(map(sum, zip(*parts))) for parts in zip(*map(rounds, paths), strict=True)]


def main():
    name, bare, ours = sys.argv[1], added(sys.argv[2::2]), added(sys.argv[3::2])
    if len({row[1:] for row in bare + ours}) != 1:
        sys.exit("copytable: not the same files")
    _, files, size = bare[0]
    times = [statistics.median(row[0] for row in half) for half in (bare, ours)]
    ratios = [own[0] / plain[0] for plain, own in zip(bare, ours, strict=True)]
    first, _, third = statistics.quantiles(ratios, n=4, method="inclusive")
    print(f"{name:<14} {files:5} files {size / 1e6:7.1f} MB   bare {times[0]:7.3f} s   "
          f"ours {times[1]:7.3f} s   ratio {statistics.median(ratios):5.2f} "
          f"±{(third - first) / 2:.2f}")


if __name__ == "__main__":
    main()
