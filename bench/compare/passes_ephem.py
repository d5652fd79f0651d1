#!/usr/bin/python3
"""All passes above 10 degrees of every entry of an element file with the next_pass of python3-ephem.

    bench/compare/passes_ephem.py [FILE] [DAYS] [EVERY]

The task of bench/scan_passes: from 2018-01-20 0h UTC on, seen from Vienna. With EVERY only each of so many entries is
taken, for a quick look. Prints entries, passes and the CPU time of the whole process.
"""

import pathlib
import sys
import time

import ephem

HERE = pathlib.Path(__file__).resolve().parent
CATALOGUE = HERE.parent.parent / "tests" / "data" / "elements" / "catalogue_2018.txt"


def observer():
    site = ephem.Observer()
    site.lat, site.lon, site.elevation = "48.2", "16.37", 180.0
    site.horizon = "10"
    site.pressure = 0
    return site


def count_passes(satellite, site, start, end):
    """From the end of each pass on; a satellite that never rises or never sets raises a ValueError, a decayed one a
    RuntimeError."""
    count = 0
    t = start
    try:
        while t < end:
            site.date = t
            rise, _, _, highest, settles, _ = site.next_pass(satellite)
            if rise is None or settles is None or min(rise, settles) > end:
                break
            count += highest >= site.horizon  # passes below the horizon of the observer are found as well
            t = max(settles, t) + ephem.minute
    except (ValueError, RuntimeError):
        pass
    return count


def main():
    path = sys.argv[1] if len(sys.argv) > 1 else CATALOGUE
    days = float(sys.argv[2]) if len(sys.argv) > 2 else 3.1
    every = int(sys.argv[3]) if len(sys.argv) > 3 else 1
    lines = pathlib.Path(path).read_text().splitlines()
    site = observer()
    start = ephem.Date("2018/1/20")
    passes = entries = 0
    for i in range(0, len(lines) - 2, 3 * every):
        satellite = ephem.readtle(*lines[i:i + 3])
        passes += count_passes(satellite, site, start, start + days)
        entries += 1
    print(f"entries {entries} passes {passes} cpu {time.process_time():.3f}")


if __name__ == "__main__":
    main()
