#!/usr/bin/env python3
"""Writes an element file of many entries: those of the catalogue of 2018, again and again with other mean anomalies.

    bench/compare/many_entries.py 15000 many.txt
"""

import pathlib
import sys

CATALOGUE = pathlib.Path(__file__).resolve().parents[2] / "tests/data/elements/catalogue_2018.txt"
ANOMALY = slice(43, 51)  # of the second line
STEP = 23.7  # degrees from one round to the next


def with_checksum(line):
    return line[:68] + str(sum(int(c) if c.isdigit() else c == "-" for c in line[:68]) % 10)


def main(count, name):
    lines = CATALOGUE.read_text().splitlines()
    entries = [lines[k : k + 3] for k in range(0, len(lines) - 2, 3)]
    with open(name, "w") as out:
        for k in range(count):
            title, first, second = entries[k % len(entries)]
            anomaly = (float(second[ANOMALY]) + k // len(entries) * STEP) % 360.0
            second = with_checksum(second[: ANOMALY.start] + f"{anomaly:8.4f}" + second[ANOMALY.stop :])
            out.write("\n".join([title, first, second]) + "\n")


if __name__ == "__main__":
    main(int(sys.argv[1]), sys.argv[2])
