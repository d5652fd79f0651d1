#!/usr/bin/python3
"""Finds the figures of transits_2018.txt, apart from Vorlix: where the shadow of a satellite in the light of the Sun's
centre passes a site. Run: ./make_transits.py > transits_2018.txt
"""
import erfa
import numpy as np
from make_passes import (EARTH, ELEMENTS, FLAT, START, WGS72, Observer, Satrec, entries, dot, sun, to_earth_fixed, unit)

DAYS = 10.0
AU = 149597870.7
HIGHEST_KM = 35.0
LOWEST_SUN = 20.0
NUMBER = 25544
# The first two lie where many lines turn at the highest latitude of the orbit.
SITES = [(-53.77, 142.75, 50.0), (-53.93, 176.96, 1500.0), (-33.87, 151.21, 50.0)]


def sun_between(mjd):
    """The Sun, interpolated between every ten minutes: good to 2e-9."""
    nodes = START - 0.1 + np.arange(0, DAYS + 0.2, 600 / 86400)
    at = sun(nodes)
    return unit(np.stack([np.interp(mjd, nodes, at[:, k]) for k in range(3)], axis=-1))


def ground_points(satellite, mjd, height):
    """Geodetic points of the ellipsoid at a height, radians; NaN where the ray misses."""
    error, r, _ = satellite.sgp4_array(np.full(mjd.shape, 2400000.5), mjd)
    assert not error.any()
    r = to_earth_fixed(r, erfa.gmst82(2400000.5, mjd))
    s = to_earth_fixed(sun_between(mjd), erfa.gst94(2400000.5, mjd)) * AU
    ray = unit(r - s)
    axes = np.array([1, 1, 1 - FLAT]) * EARTH + height / 1000
    p, d = r / axes, ray / axes
    a, b, c = dot(d, d), dot(p, d), dot(p, p) - 1
    root = b * b - a * c
    k = np.where(root > 0, (-b - np.sqrt(np.abs(root))) / a, np.nan)
    k[k < 0] = np.nan
    g = r + k[..., None] * ray
    return np.arctan2(g[..., 2] / axes[2] ** 2, np.hypot(g[..., 0], g[..., 1]) / axes[0] ** 2), np.arctan2(
        g[..., 1], g[..., 0])


def distance(satellite, mjd, lat, lon, height):
    """Along the surface, by the radii of curvature at the site."""
    la, lo = ground_points(satellite, mjd, height)
    la0, lo0 = np.radians(lat), np.radians(lon)
    e2 = FLAT * (2 - FLAT)
    w = 1 - e2 * np.sin(la0) ** 2
    north = (la - la0) * EARTH * (1 - e2) / w**1.5
    east = np.remainder(lo - lo0 + np.pi, 2 * np.pi) - np.pi
    east = east * np.cos((la + la0) / 2) * EARTH / np.sqrt(w)
    return np.hypot(north, east)


def transits(satellite, lat, lon, height):
    observer = Observer(lat, lon, height)
    t = START + np.arange(0, DAYS * 86400, 1.0) / 86400
    up = dot(to_earth_fixed(sun_between(t[::60]), erfa.gst94(2400000.5, t[::60])), observer.up) > np.sin(np.radians(5))
    t = t[np.repeat(up, 60)[: len(t)]]
    d = distance(satellite, t, lat, lon, height)
    d[np.isnan(d)] = 1e9
    low = np.flatnonzero((d[1:-1] < d[:-2]) & (d[1:-1] <= d[2:]) & (d[1:-1] < HIGHEST_KM + 20)) + 1
    for k in low:
        fine = t[k] + np.arange(-2, 2, 0.002) / 86400
        df = distance(satellite, fine, lat, lon, height)
        best = np.nanargmin(df)
        s = to_earth_fixed(sun_between(fine[best:best + 1]), erfa.gst94(2400000.5, fine[best:best + 1]))
        if df[best] < HIGHEST_KM and np.degrees(np.arcsin(dot(s, observer.up)))[0] > LOWEST_SUN:
            yield fine[best], df[best]


def main():
    for _, one, two in entries(ELEMENTS):
        if int(one[2:7]) == NUMBER:
            satellite = Satrec.twoline2rv(one, two, WGS72)
    print("# Transits of 25544 of visual_2018.txt before the Sun, 10 days from 2018-01-20 0h UTC on, found with")
    print("# make_transits.py: sgp4 2.15 with WGS72, ERFA 2.0 for sidereal time and Sun; the ray from the centre of the Sun")
    print(f"# through the satellite is cut with the ellipsoid in every second, closer ones in every 2 ms. Sun above "
          f"{LOWEST_SUN:g} degrees.")
    print("# 'site latitude longitude height', then time (MJD) and distance of the line from the site (km) of each one.")
    for lat, lon, height in SITES:
        print(f"site {lat} {lon} {height}")
        for time, km in transits(satellite, lat, lon, height):
            print(f"{time:.7f} {km:.3f}")


if __name__ == "__main__":
    main()
