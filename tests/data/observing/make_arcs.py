"""Makes arcs.txt: short arcs of made-up satellites on orbits that are no circles, by python3-skyfield as make_fits.py;
2 seconds of arc of noise.

usage: python3 make_arcs.py > arcs.txt
"""

import contextlib
import io

import numpy as np
from sgp4.api import WGS72, Satrec
from skyfield.api import EarthSatellite, wgs84

with contextlib.redirect_stdout(io.StringIO()):
    from make_fits import EPOCH, SITES, direction, time_of, ts

rng = np.random.default_rng(22)
print("# set: inclination node eccentricity perigee anomaly rev/day drag; lines: mjd site ra dec. UT1-UTC",
      f"{time_of(EPOCH).dut1:.6f}")
number = 0
while number < 30:
    ecc = rng.choice([0.01, 0.1, 0.3, 0.6, 0.72])
    inc, node, argp, m0 = rng.uniform(20, 110), *rng.uniform(0, 360, 3)
    perigee = rng.uniform(6900, 8500)
    n0 = np.sqrt(398600.8 / (perigee / (1 - ecc)) ** 3) * 86400 / (2 * np.pi)
    rad = np.radians
    sat = Satrec()
    sat.sgp4init(WGS72, "i", 1, EPOCH - 33281.0, 0.0, 0, 0, ecc, rad(argp), rad(inc), rad(m0), n0 * 2 * np.pi / 1440,
                 rad(node))
    satellite = EarthSatellite.from_satrec(sat, ts)
    k = rng.integers(0, 3)
    grid = np.arange(0, 1.5, 20 / 86400)
    altitude = (satellite - wgs84.latlon(*SITES[k])).at(ts.utc(2018, 1, 20, 12, 0, grid * 86400.0)).altaz()[0].degrees
    up = np.flatnonzero(altitude > 20)
    if len(up) == 0:
        continue
    arc = np.split(up, np.flatnonzero(np.diff(up) > 1) + 1)[0]
    longest = int(0.2 / n0 * 86400 / 20)  # a fifth of a revolution
    arc = arc[:longest]
    if len(arc) < 8:
        continue
    picks = arc[np.linspace(0, len(arc) - 1, rng.integers(3, 9)).astype(int)]
    number += 1
    print(f"set {inc:.9f} {node:.9f} {ecc:.11f} {argp:.9f} {m0:.9f} {n0:.11f} 0")
    for i in picks:
        mjd = EPOCH + grid[i]
        x, y, z = direction(satellite, SITES[k], mjd)
        ra, dec = np.degrees(np.arctan2(y, x)) % 360, np.degrees(np.arcsin(z))
        noise = rng.normal(0, 2 / 3600, 2)
        print(f"{mjd:.10f} {k} {(ra + noise[0] / np.cos(np.radians(dec))) % 360:.6f} {dec + noise[1]:.6f}")
