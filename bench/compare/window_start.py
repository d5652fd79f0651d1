#!/usr/bin/env python3
"""Start to first picture of the window, and memory, of Vorlix and of gpredict under the same virtual display.

    bench/compare/window_start.py build/vorlix [--runs 11] [--against other/vorlix]

The clock runs from the start of the process until the middle of the window holds more colours than an empty window
has: the welcome text of Vorlix with its settings read and ten satellites selected, the map of gpredict with ten
satellites. Memory is read two seconds later; then Vorlix has drawn its map as well.
"""

import time

import desktop


def one_run(kind, program):
    with desktop.Screen() as screen, desktop.Home(kind, program) as home:
        watcher = desktop.Watcher(screen.name)
        started = time.monotonic()
        process = home.start(screen.name)
        try:
            seen = watcher.wait_for_picture()
            used = desktop.cpu_nanoseconds(process.pid) / 1e6
            time.sleep(2.0)
            return ((seen - started) * 1e3, used, *desktop.memory_megabytes(process.pid))
        finally:
            desktop.stop(process)
            watcher.close()


def main():
    options = desktop.arguments(__doc__.splitlines()[0], runs=11).parse_args()
    rows = desktop.contestants(options)
    runs = {label: [] for label, _, _ in rows}
    for number in range(options.runs + 1):
        for label, kind, program in rows:
            result = one_run(kind, program)
            if number > 0:  # the first one fills the caches of the disk
                runs[label].append(result)
    for i, (title, unit) in enumerate((("Start to first picture", "ms"), ("CPU until then", "ms"),
                                       ("Memory, proportional set", "MB"), ("Memory, resident set", "MB"))):
        desktop.report(title, unit, {label: [run[i] for run in results] for label, results in runs.items()})


if __name__ == "__main__":
    main()
