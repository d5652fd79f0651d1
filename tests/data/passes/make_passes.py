#!/usr/bin/python3
"""Finds the figures of passes_2018.txt, apart from Vorlix.

Positions come from the sgp4 package with the WGS72 constants, sidereal time and Sun from ERFA; the conditions are
looked at every 10 seconds and their changes bisected. Run: ./make_passes.py > passes_2018.txt
"""
import sys

import erfa
import numpy as np
from sgp4.api import WGS72, Satrec

START = 58138.0  # 2018-01-20 0h UTC as MJD
DAYS = 3.1
DUT = 69.184  # TT minus UTC, seconds; UT1 counts as UTC
EARTH = 6378.137
FLAT = 1 / 298.257223563
ELEMENTS = "../elements/visual_2018.txt"

SITES = [("Vienna", 48.2, 16.37, 180.0), ("Sydney", -33.87, 151.21, 50.0)]
# what is asked: least elevation, highest Sun, only sunlit satellites
CONDITIONS = [(10.0, -6.0, 1), (10.0, 90.0, 0)]
SATELLITES = [25544, 20580, 27386, 25994, 694, 10967, 16182, 22285, 41337, 28480]


def entries(name):
    lines = [line.rstrip() for line in open(name)]
    for k, line in enumerate(lines[:-1]):
        if line.startswith("1 ") and lines[k + 1].startswith("2 "):
            yield lines[k - 1].strip(), line, lines[k + 1]


def dot(a, b):
    return np.sum(a * b, axis=-1)


def unit(a):
    return a / np.sqrt(dot(a, a))[..., None]


def sun(mjd):
    """Unit vector, true equator and equinox of date, with aberration."""
    tt = mjd + DUT / 86400
    helio, bary = erfa.epv00(2400000.5, tt)
    s = -helio["p"] + 0 * bary["p"]
    s = unit(s) + helio["v"] * 0.0057755183  # velocity of the Earth over that of light
    return unit(np.einsum("...ij,...j", erfa.pnm06a(2400000.5, tt), s))


def to_earth_fixed(v, angle):
    c, s = np.cos(angle), np.sin(angle)
    return np.stack([c * v[..., 0] + s * v[..., 1], -s * v[..., 0] + c * v[..., 1], v[..., 2]], axis=-1)


def geodetic_normal(r):
    p = np.hypot(r[..., 0], r[..., 1])
    e2 = FLAT * (2 - FLAT)
    lat = np.arctan2(r[..., 2], p * (1 - e2))
    for _ in range(8):
        n = EARTH / np.sqrt(1 - e2 * np.sin(lat) ** 2)
        lat = np.arctan2(r[..., 2] + e2 * n * np.sin(lat), p)
    lon = np.arctan2(r[..., 1], r[..., 0])
    return np.stack([np.cos(lat) * np.cos(lon), np.cos(lat) * np.sin(lon), np.sin(lat)], axis=-1)


class Observer:
    def __init__(self, lat, lon, height):
        la, lo = np.radians(lat), np.radians(lon)
        n = EARTH / np.sqrt(1 - FLAT * (2 - FLAT) * np.sin(la) ** 2)
        h = height / 1000
        self.place = np.array([(n + h) * np.cos(la) * np.cos(lo), (n + h) * np.cos(la) * np.sin(lo),
                               (n * (1 - FLAT) ** 2 + h) * np.sin(la)])
        self.up = np.array([np.cos(la) * np.cos(lo), np.cos(la) * np.sin(lo), np.sin(la)])
        self.east = np.array([-np.sin(lo), np.cos(lo), 0.0])
        self.north = np.cross(self.up, self.east)

    def look(self, v):
        u = unit(v)
        az = np.degrees(np.arctan2(dot(u, self.east), dot(u, self.north))) % 360
        return az, np.degrees(np.arcsin(dot(u, self.up)))


class View:
    """One satellite from one place: azimuth, elevation, Sun of the observer and of the satellite, degrees."""

    def __init__(self, satellite, observer):
        self.satellite, self.observer = satellite, observer

    def at(self, mjd):
        mjd = np.atleast_1d(mjd)
        error, r, _ = self.satellite.sgp4_array(np.full(mjd.shape, 2400000.5), mjd)
        assert not error.any()
        fixed = to_earth_fixed(r, erfa.gmst82(2400000.5, mjd))
        s = to_earth_fixed(sun(mjd), erfa.gst94(2400000.5, mjd))
        az, el = self.observer.look(fixed - self.observer.place)
        sunel = np.degrees(np.arcsin(dot(s, self.observer.up)))
        own = np.degrees(np.arcsin(dot(s, geodetic_normal(fixed))))
        dip = np.degrees(np.arccos(np.minimum(1, EARTH / np.sqrt(dot(fixed, fixed)))))
        return az, el, sunel, own + dip


def holds(view, mjd, satel, limit, lit):
    az, el, osunel, sunel = view.at(mjd)
    good = (el >= satel) & (osunel < limit)
    return good & (sunel >= 0) if lit else good


def change(test, a, b):
    """Bisects the time at which the conditions change between a and b."""
    first = test(a)[0]
    for _ in range(20):
        middle = (a + b) / 2
        a, b = (middle, b) if test(middle)[0] == first else (a, middle)
    return (a + b) / 2


def passes(view, satel, limit, lit):
    t = START + np.arange(0, DAYS * 86400, 10.0) / 86400
    good = np.concatenate([holds(view, part, satel, limit, lit) for part in np.array_split(t, 20)])

    def test(x):
        return holds(view, x, satel, limit, lit)

    edge = np.flatnonzero(good[1:] != good[:-1])
    ends = [change(test, t[k], t[k + 1]) for k in edge]
    if good[0]:
        ends.insert(0, t[0])
    if good[-1]:
        ends.append(START + DAYS)
    for begin, end in zip(ends[::2], ends[1::2]):
        grid = np.linspace(begin, end, max(3, int((end - begin) * 864000)))
        el = view.at(grid)[1]
        yield begin, grid[np.argmax(el)], end


def main():
    catalogue = {int(one[2:7]): (name, one, two) for name, one, two in entries(ELEMENTS)}
    print("# Passes of satellites of visual_2018.txt from 2018-01-20 0h UTC on, 3.1 days, found with make_passes.py:")
    print("# sgp4 2.15 with WGS72, ERFA 2.0 for sidereal time and Sun, the conditions looked at every 10 seconds and their")
    print("# changes bisected. A satellite counts as lit while the Sun stands above the plane through it that touches the")
    print("# sphere of 6378.137 km, seen along its geodetic vertical. Nothing is refracted. Lists for one site, satellite")
    print("# and set of conditions: 'list site latitude longitude height number least-elevation highest-Sun lit', then")
    print("# start, greatest elevation and end of each pass: MJD, azimuth, elevation.")
    for site, lat, lon, height in SITES:
        for number in SATELLITES:
            name, one, two = catalogue[number]
            view = View(Satrec.twoline2rv(one, two, WGS72), Observer(lat, lon, height))
            for satel, limit, lit in CONDITIONS:
                print(f"list {site} {lat} {lon} {height} {number} {satel} {limit} {lit}")
                for instants in passes(view, satel, limit, lit):
                    az, el, _, _ = view.at(np.array(instants))
                    print(*(f"{x:.6f} {a:.2f} {e:.2f}" for x, a, e in zip(instants, az, el)))


if __name__ == "__main__":
    main()
