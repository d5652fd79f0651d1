#!/usr/bin/python3
"""Finds the figures of flares_2018.txt, apart from Vorlix: mirror normals, Sun and observer as plain vectors, looked at
in every second of each pass. Run: ./make_flares.py > flares_2018.txt
"""
import erfa
import numpy as np
from make_passes import EARTH, FLAT, START, WGS72, Observer, Satrec, dot, entries, geodetic_normal, sun, to_earth_fixed, unit

ELEMENTS = "../elements/iridium_2018.txt"
DAYS = 2.0
SITES = [("Vienna", 48.2, 16.37, 180.0), ("Sydney", -33.87, 151.21, 50.0), ("Quito", -0.2, -78.5, 2850.0),
         ("Qaanaaq", 77.47, -69.23, 20.0)]
FAINTEST = -0.5
AU = 149597870.7
MIRRORS = [("Front", 0.0), ("Left", -120.0), ("Right", 120.0)]
PITCH = np.radians(40.0)


class Scene:
    """Satellite, Sun and observer at the given times; frame of the Earth, velocity without its rotation; km."""

    def __init__(self, satellite, observer, mjd):
        error, r, v = satellite.sgp4_array(np.full(mjd.shape, 2400000.5), mjd)
        self.failed = error != 0
        r[self.failed] = [4e4, 0, 0]
        angle = erfa.gmst82(2400000.5, mjd)
        self.r, v = to_earth_fixed(r, angle), to_earth_fixed(v, angle)
        nodes = np.arange(mjd.min() - 0.02, mjd.max() + 0.02, 0.01)
        at = sun(nodes)
        s = np.stack([np.interp(mjd, nodes, at[:, k]) for k in range(3)], axis=-1)
        self.sun = to_earth_fixed(s, erfa.gst94(2400000.5, mjd))
        self.forward, self.normal = unit(v), unit(np.cross(self.r, v))
        self.line = observer.place - self.r
        self.range = np.sqrt(dot(self.line, self.line))
        self.el = np.degrees(np.arcsin(-dot(unit(self.line), observer.up)))
        self.osunel = np.degrees(np.arcsin(dot(self.sun, observer.up)))
        dip = np.degrees(np.arccos(EARTH / np.sqrt(dot(self.r, self.r))))
        self.sunel = np.degrees(np.arcsin(dot(self.sun, geodetic_normal(self.r)))) + dip

    def visible(self):
        return (self.el >= 10) & (self.sunel >= 0) & ~self.failed

    def mirror(self, yaw):
        yaw = np.radians(yaw)
        level = np.cos(yaw) * self.forward - np.sin(yaw) * self.normal
        return np.cos(PITCH) * level - np.sin(PITCH) * np.cross(self.forward, self.normal)

    def panel(self):
        height = dot(self.sun, self.normal)[..., None]
        flat = unit(self.sun - height * self.normal)
        beta = np.abs(np.degrees(np.arcsin(height[..., 0])))
        return np.cos(PITCH) * flat + np.sin(PITCH) * np.sign(height) * self.normal, (beta >= 40) & (beta <= 65)

    def magnitude(self, normal, panel):
        d = unit(self.sun * AU - self.r)
        cosine = dot(d, normal)
        ray = 2 * cosine[..., None] * normal - d
        offset = np.degrees(np.arccos(np.clip(dot(ray, unit(self.line)), 0.0001, 0.9999999999)))
        m = 5 * np.log10(self.range) - 14.4 - 2.5 * np.log10(np.maximum(cosine, 1e-4))
        m += np.where(self.el < 33, 2.9935 - 0.828865 * np.log(np.maximum(self.el, 0.01)), 0)
        if panel:
            m += np.where(offset < 3.5, 0.993 * offset - 4.567, 1.5 * offset - 6.3415)
        else:
            m += np.maximum(-0.2, 3.2437 * np.log(offset) + 5.71785) - 8.7
        axes = np.array([1, 1, 1 - FLAT]) * EARTH
        p, q = self.r / axes, unit(ray / axes)
        hits = (dot(p, q) < 0) & (dot(p, p) - dot(p, q) ** 2 < 1)
        return np.where((cosine >= 0) & hits, m, 99.0)

    def surfaces(self):
        for name, yaw in MIRRORS:
            yield name, self.magnitude(self.mirror(yaw), False)
        normal, possible = self.panel()
        yield "Solar", np.where(possible, self.magnitude(normal, True), 99.0)


def passes(satellite, observer):
    t = START + np.arange(0, DAYS * 86400, 30.0) / 86400
    scene = Scene(satellite, observer, t)
    good = np.append(scene.visible(), False)
    start = None
    for k, now in enumerate(good):
        if now and start is None:
            start = t[k] - 30 / 86400
        elif not now and start is not None:
            yield np.arange(start, t[min(k, len(t) - 1)], 1 / 86400)
            start = None


def flares(satellite, observer):
    """The brightest moment of each surface in each pass."""
    for t in passes(satellite, observer):
        scene = Scene(satellite, observer, t)
        for index, (name, mag) in enumerate(scene.surfaces()):
            k = np.argmin(np.where(scene.visible(), mag, 99.0))
            if mag[k] > FAINTEST + 2:
                continue
            fine = t[k] + np.arange(-1.5, 1.5, 0.02) / 86400
            close = Scene(satellite, observer, fine)
            mag = np.where(close.visible(), list(close.surfaces())[index][1], 99.0)
            best = np.argmin(mag)
            if mag[best] <= FAINTEST:
                yield fine[best], name, mag[best]


def main():
    print("# Flares of the satellites of iridium_2018.txt in two days from 2018-01-20 0h UTC on, found with make_flares.py:")
    print("# sgp4 2.15 with WGS72, ERFA 2.0 for sidereal time and Sun; every second of each pass above 10 degrees, lit, at")
    print("# whatever Sun; around the best one in steps of 0.02 s. 'site name latitude longitude height', then")
    print("# time (MJD), catalogue number, surface and magnitude of the brightest moment of each surface in each pass.")
    satellites = [(int(one[2:7]), Satrec.twoline2rv(one, two, WGS72)) for _, one, two in entries(ELEMENTS)]
    for site, lat, lon, height in SITES:
        print(f"site {site} {lat} {lon} {height}", flush=True)
        observer = Observer(lat, lon, height)
        found = [(t, number, name, mag) for number, one in satellites for t, name, mag in flares(one, observer)]
        for t, number, name, mag in sorted(found):
            print(f"{t:.7f} {number} {name} {mag:.2f}", flush=True)


if __name__ == "__main__":
    main()
