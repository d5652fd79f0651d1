#!/usr/bin/python3
"""Writes mixed.txt: entries of all kinds, from ../elements/catalogue_2018.txt and ../saved_elements. Needs python3-sgp4."""

import pathlib

from sgp4.api import Satrec

HERE = pathlib.Path(__file__).resolve().parent
LINES = (HERE.parent / "elements" / "catalogue_2018.txt").read_text().splitlines()
ENTRIES = [LINES[i:i + 3] for i in range(0, len(LINES), 3)]


def saved(name):
    return (HERE.parent / "saved_elements" / name).read_text().splitlines()


def numeric(entry):
    """A state vector at the epoch."""
    satellite = Satrec.twoline2rv(entry[1], entry[2])
    error, r, v = satellite.sgp4(satellite.jdsatepoch, satellite.jdsatepochF)
    assert error == 0
    first = entry[1]
    return [("N-" + entry[0].strip())[:20],
            f"1 {first[2:7]}  {first[9:17]:8s} {first[18:32]}     0 +++++STATEVCT1+++++          1",
            " " + "".join(f"{1000 * x:20.12e} " for x in r) + "     2",
            " " + "".join(f"{1000 * x:20.12e} " for x in v) + "     3",
            "  150.0   140.0     3.0   2.20000e+00   1.20000e+00   2.00000e-02   4"]


def kepler(entry):
    """Marked for the simple model."""
    return [("K-" + entry[0].strip())[:20], entry[1][:62] + "9" + entry[1][63:], entry[2]]


def mixed():
    lines = ENTRIES[5] + saved("kepler.txt") + ENTRIES[75] + numeric(ENTRIES[100]) + saved("hyperbolic.txt")
    lines += ENTRIES[145] + kepler(ENTRIES[215]) + saved("analytic.txt") + numeric(ENTRIES[300]) + numeric(ENTRIES[305])
    for i in (350, 420, 490, 560, 630, 700, 770, 840, 910):
        lines += ENTRIES[i]
    lines += kepler(ENTRIES[911]) + ["BAD LINE            ", "1 00001U nonsense", "2 no"]
    low, high = ENTRIES[700], ENTRIES[701]
    lines += ["DECAYING            ", low[1][:53] + " 99999+1" + low[1][61:], low[2][:52] + "16.40000000" + low[2][63:]]
    lines += ["SLOW                ", high[1], high[2][:52] + " 0.10000000" + high[2][63:]]
    return lines + numeric(ENTRIES[912])


if __name__ == "__main__":
    (HERE / "mixed.txt").write_text("\n".join(mixed()) + "\n")
