#!/usr/bin/python3
"""Finds the figures of first_road_2018.txt, apart from Vorlix.

Passes as in make_passes.py, over another place; contacts of two satellites from their points on the ground and their
heights, looked at every 10 seconds and their changes bisected. Run: ./make_first_road.py > first_road_2018.txt
"""
import erfa
import numpy as np
from sgp4.api import WGS72, Satrec

import make_passes as base

NAME, LAT, LON, HEIGHT = "Delhi", 28.61, 77.21, 220.0
ZONE = 5.5
DAYS = 2.5
CONTACT_DAYS = 2.3  # no contact is under way then
SATELLITES = [25544, 27386, 20580]  # in the order of their selection
CONDITIONS = [("plain", 10.0, -6.0, 0), ("visible", 10.0, -6.0, 1), ("all", 10.0, 90.0, 0)]


def point_below(satellite, mjd):
    """Geodetic latitude and longitude in degrees, height in km."""
    error, r, _ = satellite.sgp4_array(np.full(mjd.shape, 2400000.5), mjd)
    assert not error.any()
    fixed = base.to_earth_fixed(r, erfa.gmst82(2400000.5, mjd))
    lon, lat, height = erfa.gc2gde(base.EARTH, base.FLAT, fixed)
    return np.degrees(lat), np.degrees(lon), height


class Pair:
    def __init__(self, prime, second):
        self.prime, self.second = prime, second

    def contact(self, mjd):
        """The two points on the ground are nearer than the sum of the two horizon angles."""
        mjd = np.atleast_1d(mjd)
        lat1, lon1, h1 = point_below(self.prime, mjd)
        lat2, lon2, h2 = point_below(self.second, mjd)
        apart = np.degrees(erfa.seps(np.radians(lon1), np.radians(lat1), np.radians(lon2), np.radians(lat2)))
        horizon = sum(np.degrees(np.arccos(base.EARTH / (base.EARTH + h))) for h in (h1, h2))
        return apart < horizon


def contacts(pair):
    t = base.START + np.arange(0, base.DAYS * 86400, 10.0) / 86400
    good = pair.contact(t)
    edge = np.flatnonzero(good[1:] != good[:-1])
    ends = [base.change(pair.contact, t[k], t[k + 1]) for k in edge]
    if good[0]:
        ends.insert(0, t[0])
    if good[-1]:
        ends.append(base.START + base.DAYS)
    return zip(ends[::2], ends[1::2])


def main():
    base.START = 58138.0 - ZONE / 24
    base.DAYS = DAYS
    catalogue = {int(one[2:7]): (one, two) for _, one, two in base.entries(base.ELEMENTS)}
    satellites = [Satrec.twoline2rv(*catalogue[number], WGS72) for number in SATELLITES]
    print(f"# Passes over {NAME} ({LAT}, {LON}, {HEIGHT} m) of satellites of visual_2018.txt, from 2018-01-20 0h civil time")
    print(f"# on ({ZONE:g} hours east), {DAYS} days, found with make_first_road.py: sgp4 2.15 with WGS72, ERFA 2.0, the")
    print("# conditions looked at every 10 seconds and their changes bisected. A pass needs an elevation of 10 degrees;")
    print("# plain: Sun below -6; visible: the satellite in sunlight besides (see passes_2018.txt); all: any Sun.")
    print("# 'list conditions number', then start, greatest elevation and end of each pass: MJD UTC, azimuth, elevation.")
    print("# 'contact prime second': while two satellites see each other over the limb, whatever the light,")
    print(f"# {CONTACT_DAYS} days: start and end, MJD UTC, longitude and latitude of the prime one.")
    for name, satel, limit, lit in CONDITIONS:
        for number, satellite in zip(SATELLITES, satellites):
            view = base.View(satellite, base.Observer(LAT, LON, HEIGHT))
            print(f"list {name} {number}")
            for instants in base.passes(view, satel, limit, lit):
                az, el, _, _ = view.at(np.array(instants))
                print(*(f"{x:.6f} {a:.2f} {e:.2f}" for x, a, e in zip(instants, az, el)))
    print(f"contact {SATELLITES[0]} {SATELLITES[1]}")
    base.DAYS = CONTACT_DAYS
    for ends in contacts(Pair(satellites[0], satellites[1])):
        lat, lon, _ = point_below(satellites[0], np.array(ends))
        print(*(f"{x:.6f} {a:.2f} {e:.2f}" for x, a, e in zip(ends, lon, lat)))


if __name__ == "__main__":
    main()
