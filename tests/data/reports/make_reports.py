#!/usr/bin/python3
"""Composes the reports in this directory, apart from Vorlix: positions from the sgp4 package with the WGS72 constants,
the Sun from ERFA; the frames, the search for passes and the layout of the lines written anew from their description.

Run: ./make_reports.py, which writes the files *.txt beside it.
"""
import math

import erfa
import numpy as np
from sgp4.api import WGS72, Satrec

ELEMENTS = "../elements/visual_2018.txt"
YEAR, ZONE = 2018, 1.0  # 2018-01-20 1h of the zone one hour east
START = 58138.0
TT_UT = 70.184  # seconds, the default of that year
PLACE, LAT, LNG, HEIGHT = "Vienna", 48.25, 16.5, 200.0
EARTH = 6378.137
MINUTE = 1.0 / 1440
DEG = math.pi / 180


def load(number):
    lines = open(ELEMENTS).read().splitlines()
    for k, line in enumerate(lines):
        if line.startswith(f"1 {number:5d}"):
            return lines[k - 1][:20], line, lines[k + 1]


def xrot(a):
    c, s = math.cos(a), math.sin(a)
    return np.array([[1, 0, 0], [0, c, s], [0, -s, c]])


def yrot(a):
    c, s = math.cos(a), math.sin(a)
    return np.array([[c, 0, -s], [0, 1, 0], [s, 0, c]])


def zrot(a):
    c, s = math.cos(a), math.sin(a)
    return np.array([[c, s, 0], [-s, c, 0], [0, 0, 1]])


def nutation(T):
    """The five largest terms; the matrix from mean to true equator, and the equation of the equinoxes in seconds."""
    turn = lambda a, b: 2 * math.pi * math.fmod(a + b * T, 1.0)
    ls, D = turn(0.993133, 99.997306), turn(0.827362, 1236.853087)
    F, N = turn(0.259089, 1342.227826), turn(0.347346, -5.372447)
    sin, cos = math.sin, math.cos
    arcsec = 4.8481368111e-6
    dpsi = arcsec * (-17.2 * sin(N) - 1.319 * sin(2 * (F - D + N)) - 0.227 * sin(2 * (F + N))
                     + 0.206 * sin(2 * N) + 0.143 * sin(ls))
    deps = arcsec * (9.203 * cos(N) + 0.574 * cos(2 * (F - D + N)) + 0.098 * cos(2 * (F + N)) - 0.09 * cos(2 * N))
    eps0 = (23.43929111 - ((0.00059 - 0.001813 * T) * T + 46.815) * T / 3600) * 0.0174532925199
    eps = eps0 + deps
    return xrot(-eps) @ zrot(-dpsi) @ xrot(eps0), cos(eps) * dpsi * 13750.9870831


def sidereal(mjd, longitude, eqeq):
    M = math.trunc(mjd)
    T0 = (M - 51544.5) / 36525
    G = 6.697374558 + 1.0027379093 * (mjd - M) * 24 + ((0.093104 - 6.2e-6 * T0) * T0 + 8640184.812866) * T0 / 3600
    return (math.fmod((G + longitude / 15) / 24, 1.0) * 24 + eqeq / 3600) * math.pi / 12


def polar(v):
    rho = math.hypot(v[0], v[1])
    return math.atan2(v[1], v[0]) % (2 * math.pi), math.atan2(v[2], rho)


def packed(x):
    """Degrees as DD.MMSS; seconds from 59.5 on carry."""
    a = abs(x)
    d = int(a)
    m = int((a - d) * 60)
    s = ((a - d) * 60 - m) * 60
    if s >= 59.5:
        s, m = 0.0, m + 1
    if m >= 60:
        m, d = 0, d + 1
    return math.copysign(d + m / 100 + s / 10000, x)


def unpacked(x):
    b = abs(x) * (1 + 3.33e-16)
    d = int(b)
    m = int(100 * (b - d) + 1e-13)
    s = 100 * math.fmod(100 * b, 1.0)
    return math.copysign(d + m / 60 + s / 3600, x)


class View:
    """One satellite from the place, in the coordinates of date."""

    def __init__(self, number):
        self.name, one, two = load(number)
        self.satellite = Satrec.twoline2rv(one, two, WGS72)
        self.epoch = self.satellite.jdsatepoch - 2400000.5 + self.satellite.jdsatepochF
        self.rev = float(two[52:63])

    def at(self, mjd):
        error, r, v = self.satellite.sgp4_tsince((mjd - self.epoch) * 1440)
        assert error == 0
        self.mjd = mjd
        N, self.eqeq = nutation((mjd + TT_UT / 86400 - 51544.5) / 36525)
        self.N = N
        self.mean = [zrot(-self.eqeq / 13750.9870831) @ np.array(x) for x in (r, v)]
        self.r, self.v = N @ self.mean[0], N @ self.mean[1]
        self.gast = sidereal(mjd, 0.0, self.eqeq)
        self.look()
        self.sub_point()
        return self

    def horizon(self, v, eqeq):
        v = yrot(math.pi / 2 - LAT * DEG) @ zrot(sidereal(self.mjd, LNG, eqeq)) @ v
        phi, el = polar(v)
        return math.degrees(math.pi - phi) % 360, math.degrees(el)

    def look(self):
        lat, e2 = LAT * DEG, 0.00669438499959
        n, h = 1 / math.sqrt(1 - e2 * math.sin(lat) ** 2), HEIGHT / 6378137.0
        rho, z = (n + h) * math.cos(lat), (0.99330561500041 * n + h) * math.sin(lat)
        S = sidereal(self.mjd, LNG, self.eqeq)
        sight = self.r - EARTH * np.array([rho * math.cos(S), rho * math.sin(S), z])
        ra, dec = polar(sight)
        self.ra, self.dec = packed(math.degrees(ra) / 15), packed(math.degrees(dec))
        self.az, self.el = self.horizon(sight, self.eqeq)

    def sub_point(self):
        e2 = 0.0066943799901413165
        p = math.hypot(self.r[0], self.r[1])
        dz = e2 * self.r[2]
        for _ in range(4):
            Z = self.r[2] + dz
            sine = Z / math.hypot(p, Z)
            n = EARTH / math.sqrt(1 - e2 * sine * sine)
            dz = e2 * n * sine
        Z = self.r[2] + dz
        self.lat, self.hgt = math.degrees(math.atan2(Z, p)), math.hypot(p, Z) - n
        self.lng = (math.degrees(polar(self.r)[0] - self.gast) + 180) % 360 - 180

    def ground_point(self, ra, dec):
        """Where the line from a point of the sky through the satellite meets the ground, or none; no refraction."""
        ra, dec = unpacked(ra) * 15 * DEG, unpacked(dec) * DEG
        scale = EARTH / (HEIGHT / 1000 + EARTH)
        r = self.r / EARTH * scale
        d = -scale * np.array([math.cos(dec) * math.cos(ra), math.cos(dec) * math.sin(ra), math.sin(dec)])
        r[2] /= 0.996633
        d[2] /= 0.996633
        d /= np.linalg.norm(d)
        b = -(r @ d)
        D = b * b + 1 - r @ r
        if not 0 <= 1 - D < 1:
            return 0.0, 100.0
        t = b - math.sqrt(D)
        if t < 0:
            return 0.0, 100.0
        P = r + t * d
        P[2] *= 0.996633
        lng = (math.degrees(polar(P)[0] - self.gast) + 180) % 360 - 180
        return lng, math.degrees(math.atan2(P[2], 0.993305615 * math.hypot(P[0], P[1])))


def refracted(el):
    if not -2 < el < 85:
        return el
    if el >= 10:
        return el + 0.01521154622 / math.tan(el * DEG)
    return el + 3.5689 * (0.1594 + 0.0196 * el + 0.0002 * el * el) / (1 + 0.505 * el + 0.0845 * el * el)


MONTHS = "JAN FEB MAR APR MAY JUN JUL AUG SEP OCT NOV DEC".split()


def clock(mjd):
    """Day of January 2018, hour, minute, second."""
    seconds = (mjd - 58118) % 1 * 86400
    return int(mjd - 58118), int(seconds // 3600), int(seconds % 3600 // 60), seconds % 60


def stamp(mjd, a, b, time_only=False):
    day, h, m, s = clock(mjd + ZONE / 24)
    s = int(s + 0.4999)
    if s == 60:
        s, m = 0, m + 1
    if m == 60:
        m, h = 0, h + 1
    date = " " if time_only else "JAN %2i " % day
    return date + " %2i:%02i:%02i (%3.0f,%3.0f)" % (h, m, s, a, b)


# --- the search for passes, every pass above `satel` whatever the Sun


class Search:
    def __init__(self, view, satel):
        self.view, self.satel = view, satel

    def holds(self, t):
        return self.view.at(t).el >= self.satel

    def row(self, t):
        v = self.view.at(t)
        return [t, v.az, v.el]

    def next(self, t0, t1):
        start = end = None
        best = [0, 0, -1000]
        t = t0
        while t <= t1:
            holds = self.holds(t)
            row = [t, self.view.az, self.view.el]
            if holds and not start:
                start, best = row, row
            elif holds and row[2] > best[2]:
                best = row
            elif start and not holds:
                end = row
                break
            last = row
            t += 0.0069 if row[2] < -25 else MINUTE
        if not start:
            return None
        if not end:
            end = [t1] + last[1:]
        start = self.bisected(start, True) if start[0] > t0 else start
        end = self.bisected(end, False) if t0 < end[0] < t1 else end
        return self.with_maximum(start, best, end)

    def bisected(self, row, wanted):
        h = MINUTE / 2
        trial = row[0] - h
        for _ in range(6):
            hit = self.holds(trial) == wanted
            h /= 2
            if hit:
                row = [trial, self.view.az, self.view.el]
            trial += -h if hit else h
        return row

    def with_maximum(self, start, best, end):
        second = 1.157407407e-5
        if best[0] > end[0]:
            return start, end, end
        if start[0] > best[0]:
            return start, start, end
        e1, e2 = (self.view.at(best[0] + d).el for d in (-second, second))
        if e1 == e2:
            return start, best, end
        if e1 > e2:
            t, limit = max(start[0], best[0] - MINUTE), best[0]
        else:
            t, limit = best[0], min(end[0], best[0] + MINUTE)
        top = -100.0
        while t <= limit:
            row = self.row(t)
            if row[2] > best[2]:
                best, top = row, row[2]
            if row[2] < top:
                break
            t += second
        return start, best, end

    def all(self, days):
        t, end = START, START + days
        while t <= end:
            found = self.next(t, end)
            if not found:
                return
            yield found
            t = found[2][0] + MINUTE + (1 / 24 if self.view.rev > 14 else 0)


def pass_line(rows):
    return "".join(stamp(t, az, el, k > 0) for k, (t, az, el) in enumerate(rows))


def aos_list(number, days):
    view = View(number)
    lines = [f" Geographic Location: {PLACE}",
             f" Lat.: {LAT:g}   Long.: {LNG:g}   Height: {HEIGHT:g}",
             " ",
             f" Satellite: {view.name}",
             " " + 71 * "=",
             " min.Sat.Elev.: 10   max.Sun Elev.: 90",
             f" Year: {YEAR:4d}  +++ Timezone: {ZONE:g} +++",
             " ",
             "    Start (Azim.,Elev.)    Maximum (Azim.,Elev.)  End (Azim.,Elev.)"]
    for k, rows in enumerate(Search(view, 10.0).all(days)):
        if k % 10 == 0:
            lines.append(" ")
        lines.append("." + pass_line(rows))
    return "\n\n\n" + "".join(line + "\n" for line in lines)


def all_passes(numbers, days):
    text = (f"Geographic Location: {PLACE}\n Lat.: {LAT:g}   Long.: {LNG:g}   Height: {HEIGHT:g} \n"
            f" min.Sat.Elev.: 10   max.Sun Elev.: 90\n Year: {YEAR:4d}  +++ Timezone: {ZONE:g} +++ \n" + 71 * "=" +
            "\n  Start (Azim.,Elev.)    Maximum (Azim.,MaxElev.)     End (Azim.,Elev.)\n")
    lines = []
    for number in numbers:
        view = View(number)
        lines += [pass_line(rows) + "   " + view.name for rows in Search(view, 10.0).all(days)]
    lines.sort(key=lambda line: line[:16])
    for k, line in enumerate(lines):
        text += ("\n" if k % 5 == 0 else "") + line + "\n"
    return text


# --- details of a pass


def details_heading(view, columns):
    text = "\n\n\n" + view.name + "\n" + 54 * "_" + "\n" + f"Year: {YEAR:4d}  +++> Timezone {ZONE:g} <+++\n"
    return text + ("\n" + 29 * " " + columns + "\n" if columns else "")


def sub_point_columns(v):
    return "    %10.5f  %10.5f  %12.3f" % (v.lng, v.lat, v.hgt)


def pole_lines(view, t):
    view.at(t - 15 / 86400)
    p1 = direction(view)
    view.at(t + 15 / 86400)
    p2 = direction(view)
    n = np.cross(p1, p2)
    view.mjd = t
    az, el = view.horizon(n, 0.0)
    if el < 0:
        n = -n
        az, el = view.horizon(n, 0.0)
    ra, dec = polar(n)
    return ("\n\nApparent Pole of orbit (Azim   Elev   R.A.  Decl)\n           %7.2f %7.2f    %9.4f  %9.4f"
            % (az, el, packed(math.degrees(ra) / 15), packed(math.degrees(dec))))


def direction(v):
    ra, dec = unpacked(v.ra) * 15 * DEG, unpacked(v.dec) * DEG
    return np.array([math.cos(dec) * math.cos(ra), math.cos(dec) * math.sin(ra), math.sin(dec)])


def details(number, start, minutes, line, heading, characters):
    """The steps from the next full minute or second on, while the satellite stands above 10 degrees."""
    view = View(number)
    step = minutes / 1440
    day, h, m, s = clock(start)
    t = 58118 + day + (h + ((m + 1) if characters == 13 else (m + (int(s) + 1) / 60)) / 60) / 24
    text, best = details_heading(view, heading), (-100, 0)
    first = True
    while view.at(t).el >= 10.0:
        text += ("" if first else "\n") + stamp(t, 0, 0)[:characters] + line(view)
        first = False
        best = max(best, (view.el, t))
        t += step
    return text, view, best[1]


def saved_details(number, start):
    heading = 9 * " " + "Azim.  Elev." + 17 * " " + "R.A.   Decl"
    line = lambda v: "    %8.3f  %8.3f     %9.4f  %9.4f" % (v.az, refracted(v.el), v.ra, v.dec)
    text, view, best = details(number, start, 1, line, heading, 13)
    return text + pole_lines(view, best)


def ground_track(number, start):
    return details(number, start, 0.5, sub_point_columns, "", 16)[0]


def event_line(ra, dec):
    def line(v):
        lng, lat = v.ground_point(ra, dec)
        return "   No Intersection" if lat >= 100 else "   %10.5f  %10.5f " % (lng, lat)
    return line


def saved_events(number, start, ra, dec):
    text, view, best = details(number, start, 1, event_line(ra, dec), " Ctr.Line  long.    lat.", 13)
    return text + pole_lines(view, best)


# --- orbit track


def track(number, steps, minutes, event=None):
    view = View(number)
    text = f"\n Year: {YEAR:4d}  +++> Timezone {ZONE:g} <+++\n" + 21 * " "
    text += " Ctr.Line  long.    lat.\n\n" if event else "\n\n"
    t = START
    for _ in range(steps):
        view.at(t)
        t += minutes / 1440
        text += stamp(view.mjd, 0, 0)[:16]
        if event:
            lng, lat = view.ground_point(*event)
            text += "   %10.5f  %10.5f " % (lng, lat) + ("  No Intersection" if lat >= 100 else "")
        else:
            text += sub_point_columns(view)
        text += "\n"
    return text


# --- local details


def sun(view):
    """The Sun with aberration, true equator of date, Earth radii."""
    tt = view.mjd + TT_UT / 86400
    helio, _ = erfa.epv00(2400000.5, tt)
    s = -np.array(helio["p"])
    s += np.linalg.norm(s) * np.array(helio["v"]) * 0.0057755183
    mean = erfa.pmat76(2400000.5, tt) @ s
    return view.N @ mean * 23454.79106062


def geocentric(view, lat, lng, height, eqeq):
    """A place in km, true equator of date."""
    e2 = 0.00669438499959
    n, h = 1 / math.sqrt(1 - e2 * math.sin(lat * DEG) ** 2), height / 6378137.0
    S = sidereal(view.mjd, lng, eqeq)
    rho = (n + h) * math.cos(lat * DEG)
    return EARTH * np.array([rho * math.cos(S), rho * math.sin(S), (0.99330561500041 * n + h) * math.sin(lat * DEG)])


def azimuth_elevation(view, v, lat, lng):
    phi, el = polar(yrot(math.pi / 2 - lat * DEG) @ zrot(sidereal(view.mjd, lng, view.eqeq)) @ v)
    return math.degrees(math.pi - phi), math.degrees(el)


def local_details(number, mjd):
    v = View(number).at(mjd)
    star = sun(v) * EARTH
    _, osunel = azimuth_elevation(v, star - geocentric(v, LAT, LNG, HEIGHT, v.eqeq), LAT, LNG)
    sunaz, own = azimuth_elevation(v, star - geocentric(v, v.lat, v.lng, v.hgt * 1000, v.eqeq), v.lat, v.lng)
    dip = 90 - math.degrees(math.asin(EARTH / np.linalg.norm(v.r)))
    x = v.v / np.linalg.norm(v.v)
    y = np.cross(v.r, v.v)
    y /= np.linalg.norm(y)
    M = np.array([x, y, np.cross(x, y)])
    beta = math.degrees(math.asin(y @ star / np.linalg.norm(star)))
    north = polar(M @ np.array([0, 0, 1]))[0]
    yaw, pitch = polar(M @ (geocentric(v, LAT, LNG, HEIGHT, 0.0) - v.r))
    a, b, dl = LAT * DEG, v.lat * DEG, (LNG - v.lng) * DEG
    d = math.acos(math.sin(a) * math.sin(b) + math.cos(a) * math.cos(b) * math.cos(dl))
    azimuth = math.degrees(math.atan2(math.sin(dl) * math.cos(a),
                                      math.cos(b) * math.sin(a) - math.sin(b) * math.cos(a) * math.cos(dl))) % 360
    text = f"Lat: {LAT:g},  Long: {LNG:g},   SunElev:{osunel:6.1f}\n\n{v.name}"
    text += f"\n\tAzim:{v.az:7.2f},\tElev:{refracted(v.el):7.2f},\tSun:{own + dip:6.1f}"
    text += f"\n\n\tAlong-the-Surface-Distance:{EARTH * d:8.1f} km\n\n\tState Vector in km and km/s"
    for name, value in zip("x y z vx vy vz".split(), [*v.mean[0], *v.mean[1]]):
        text += f"\n{name}\t{value:16.8e} "
    text += f"\n\n\tBeta Angle: {beta:7.2f}"
    text += f"\n\n\tSun Azimuth (from +V): {(sunaz - math.degrees(north)) % 360:7.2f}\n\tSun Elevation: {own:7.2f}"
    return text + (f"\n\n\tObserver (Yaw, Pitch, Azimuth): {-math.degrees(yaw) % 360:7.2f}  {math.degrees(pitch):7.2f}"
                   f"  {azimuth:7.2f}")


ISS = 25544
SECOND_PASS = 58138.06773  # half a minute past 2:37 in the zone
STAR = (12.0, 20.3)  # right ascension and declination, packed


def main():
    files = {
        "aos_list.txt": aos_list(ISS, 1.0),
        "all_passes.txt": all_passes([25544, 20580, 25994], 1.0),
        "pass_details.txt": saved_details(ISS, SECOND_PASS),
        "pass_events.txt": saved_events(ISS, SECOND_PASS, *STAR),
        "ground_track.txt": ground_track(ISS, SECOND_PASS),
        "local_details.txt": local_details(ISS, 58138.0695),
        "orbit_track.txt": track(ISS, 48, 2),
        "orbit_track_events.txt": track(ISS, 48, 2, STAR),
    }
    for name, text in files.items():
        with open(name, "w") as file:
            file.write(text)


if __name__ == "__main__":
    main()
