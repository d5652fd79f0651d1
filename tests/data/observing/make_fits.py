"""Makes fits.txt: sets of observations of made-up satellites by python3-skyfield (SGP4 of python3-sgp4), with light
time and 20 seconds of arc of noise, geometric directions in the equator and equinox of 2000.

usage: python3 make_fits.py > fits.txt
"""

import numpy as np
from sgp4.api import WGS72, Satrec
from skyfield.api import EarthSatellite, load, wgs84

rng = np.random.default_rng(20)
ts = load.timescale(builtin=True)
SITES = [(48.2, 16.37, 200.0), (-33.94, 18.51, 10.0), (30.3, -97.7, 160.0)]
EPOCH = 58138.5
LIGHT_KM_S = 299792.458


def time_of(mjd):
    return ts.utc(2018, 1, 20, 12, 0, (mjd - EPOCH) * 86400.0)


def direction(satellite, site, mjd):
    t = time_of(mjd)
    observer = wgs84.latlon(site[0], site[1], site[2]).at(t).position.km
    delay = 0.0
    for _ in range(3):
        line = satellite.at(time_of(mjd - delay / 86400.0)).position.km - observer
        delay = np.linalg.norm(line) / LIGHT_KM_S
    return line / np.linalg.norm(line)


print("# set: inclination node eccentricity perigee anomaly rev/day drag; lines: mjd site ra dec. UT1-UTC",
      f"{time_of(EPOCH).dut1:.6f}")
for number in range(100):
    inc, node, argp, m0 = rng.uniform(30, 110), *rng.uniform(0, 360, 3)
    ecc, n0, bstar = rng.uniform(0.002, 0.02), rng.uniform(13.2, 15.2), rng.uniform(1e-5, 3e-4)
    rad = np.radians
    sat = Satrec()
    sat.sgp4init(WGS72, "i", number + 1, EPOCH - 33281.0, bstar, 0, 0, ecc, rad(argp), rad(inc), rad(m0),
                 n0 * 2 * np.pi / 1440, rad(node))
    satellite = EarthSatellite.from_satrec(sat, ts)
    days, wanted = rng.uniform(1, 5), rng.integers(6, 31)
    grid = np.arange(0, days, 60 / 86400)
    seen = []
    for k, (lat, lon, height) in enumerate(SITES):
        times = ts.utc(2018, 1, 20, 12, 0, grid * 86400.0)
        altitude = (satellite - wgs84.latlon(lat, lon, height)).at(times).altaz()[0].degrees
        seen += [(EPOCH + grid[i], k) for i in np.flatnonzero(altitude > 15)]
    seen.sort()
    picks = sorted({0, len(seen) - 1, *rng.choice(len(seen), wanted - 2, replace=False)})
    print(f"set {inc:.9f} {node:.9f} {ecc:.11f} {argp:.9f} {m0:.9f} {n0:.11f} {bstar:.10f}")
    for mjd, k in (seen[i] for i in picks):
        x, y, z = direction(satellite, SITES[k], mjd)
        ra, dec = np.degrees(np.arctan2(y, x)) % 360, np.degrees(np.arcsin(z))
        noise = rng.normal(0, 20 / 3600, 2)
        print(f"{mjd:.10f} {k} {(ra + noise[0] / np.cos(np.radians(dec))) % 360:.6f} {dec + noise[1]:.6f}")
