#!/usr/bin/env python3
"""The cost of all passes of a catalogue: Vorlix, a plain loop of its steps, and python3-ephem on the same task.

    bench/compare/passes.py build [--runs 5] [--against build-of-other-code] [--ephem-runs 1]

The argument is a build folder with the benchmarks in it. The programs take turns, so that what else the machine does
meets all of them; figures are medians, with the least and the greatest. CPU is that of the whole process, the clock
that of the scan. python3-ephem takes a minute for one run; its median counts however few there are.
"""

import argparse
import pathlib
import re
import statistics
import subprocess

HERE = pathlib.Path(__file__).resolve().parent


def contestants(options):
    """Label, command, runs."""
    bench = pathlib.Path(options.build) / "bench"
    rows = [
        ("all passes", [bench / "scan_passes"], options.runs),
        ("visible passes", [bench / "scan_passes", "visible"], options.runs),
        ("all passes, two workers", [bench / "scan_passes", "workers=2"], options.runs),
        ("plain loop", [bench / "plain_loop"], options.runs),
    ]
    if options.against:
        rows.append(("other code, all passes", [pathlib.Path(options.against) / "bench" / "scan_passes"], options.runs))
    if options.ephem_runs > 0:
        rows.append(("python3-ephem", ["/usr/bin/python3", HERE / "passes_ephem.py"], options.ephem_runs))
    return rows


def figures(command):
    """The numbers that a program prints, by the word in front of each."""
    output = subprocess.run([str(word) for word in command], check=True, capture_output=True, text=True).stdout
    return {name: float(value) for name, value in re.findall(r"([a-z]+) ([0-9.]+)", output)}


def spread(values):
    return f"{statistics.median(values):9.3f}  ({min(values):.3f} to {max(values):.3f}, {len(values)} runs)"


def report(results):
    for label, runs in results.items():
        print(f"{label:26s} {int(runs[0]['passes']):6d} passes   CPU {spread([run['cpu'] for run in runs])}")

    def ratio(what, one, other, key="cpu"):
        if one in results and other in results:
            parts = [statistics.median([run[key] for run in results[label]]) for label in (one, other)]
            print(f"{what:48s} {parts[0] / parts[1]:8.3f}")

    print()
    ratio("all passes / plain loop", "all passes", "plain loop")
    ratio("visible passes / all passes", "visible passes", "all passes")
    ratio("one worker / two workers, by the clock", "all passes", "all passes, two workers", "clock")
    ratio("python3-ephem / all passes", "python3-ephem", "all passes")
    ratio("other code / all passes", "other code, all passes", "all passes")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build")
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--against")
    parser.add_argument("--ephem-runs", type=int, default=1)
    options = parser.parse_args()
    rows = contestants(options)
    results = {label: [] for label, _, _ in rows}
    for number in range(max(count for _, _, count in rows)):
        for label, command, count in rows:
            if number < count:
                results[label].append(figures(command))
    report(results)


if __name__ == "__main__":
    main()
