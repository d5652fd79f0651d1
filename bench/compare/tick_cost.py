#!/usr/bin/env python3
"""CPU of a real-time tick with ten satellites: Vorlix and gpredict, each together with its display server.

    bench/compare/tick_cost.py build/vorlix [--runs 5] [--seconds 30] [--against other/vorlix]

Both windows have the same size and are drawn on once a second. What the scheduler counted for the program and for its
server while the plot ran is divided by the number of ticks.
"""

import time

import desktop

SETTLING_SECONDS = 4.0


def start_real_time_plot(screen):
    """Presses the keys of the command in the window of Vorlix, which has no window manager to give it the focus."""
    window = screen.tool("search", "--onlyvisible", "--name", "^Vorlix")[0]
    screen.tool("windowfocus", "--sync", window)
    screen.tool("key", "ctrl+r")


def one_run(kind, program, seconds):
    with desktop.Screen() as screen, desktop.Home(kind, program) as home:
        watcher = desktop.Watcher(screen.name)
        process = home.start(screen.name)
        try:
            watcher.wait_for_picture()
            watcher.close()
            if kind == "vorlix":
                start_real_time_plot(screen)
            time.sleep(SETTLING_SECONDS)
            pids = (process.pid, screen.server.pid)
            before = [desktop.cpu_nanoseconds(pid) for pid in pids]
            time.sleep(seconds)
            used = [desktop.cpu_nanoseconds(pid) - start for pid, start in zip(pids, before)]
        finally:
            desktop.stop(process)
        ticks = seconds / desktop.TICK_SECONDS[kind]
        return [nanoseconds / 1e6 / ticks for nanoseconds in used]


def main():
    parser = desktop.arguments(__doc__.splitlines()[0], runs=5)
    parser.add_argument("--seconds", type=float, default=30.0, help="of each run")
    options = parser.parse_args()
    rows = desktop.contestants(options)
    runs = {label: [] for label, _, _ in rows}
    for _ in range(options.runs):
        for label, kind, program in rows:
            runs[label].append(one_run(kind, program, options.seconds))
    for title, pick in (("Tick, program and server", sum), ("Tick, program alone", lambda run: run[0]),
                        ("Tick, server alone", lambda run: run[1])):
        desktop.report(title, "ms", {label: [pick(run) for run in results] for label, results in runs.items()})


if __name__ == "__main__":
    main()
