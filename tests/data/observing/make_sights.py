"""Makes sights.txt and iss.iod by python3-skyfield (SGP4, frames) and python3-erfa (motion of the Earth).

sights.txt: directions to the satellite in four frames, free of noise. iss.iod: reports of two stations with 20 seconds of
arc of noise, of a satellite that flies 30 s behind its published elements.

usage: python3 make_sights.py ../elements/visual_2018.txt
"""

import sys

import erfa
import numpy as np
from sgp4.api import WGS72, Satrec
from skyfield.api import EarthSatellite, load, wgs84

AU_KM = 149597870.7
LIGHT_KM_S = 299792.458
rng = np.random.default_rng(21)
ts = load.timescale(builtin=True)
lines = open(sys.argv[1]).read().splitlines()
at = next(i for i, line in enumerate(lines) if line.startswith("ISS"))
published = Satrec.twoline2rv(lines[at + 1], lines[at + 2], WGS72)
START = 58140.0  # 2018-01-22


def time_of(mjd):
    return ts.utc(2018, 1, 22, 0, 0, (mjd - START) * 86400.0)


def satellite_behind(seconds):
    s = Satrec()
    s.sgp4init(WGS72, "i", published.satnum, published.jdsatepoch + published.jdsatepochF - 2433281.5, published.bstar, 0,
               0, published.ecco, published.argpo, published.inclo,
               published.mo - published.no_kozai / 60.0 * seconds, published.no_kozai, published.nodeo)
    return EarthSatellite.from_satrec(s, ts)


def earth_km_s(t):
    return np.array(erfa.epv00(2400000.5, t.tdb - 2400000.5)[1]["v"]) * AU_KM / 86400.0


def angles(x, y, z):
    return np.degrees(np.arctan2(y, x)) % 360, np.degrees(np.arcsin(z / np.sqrt(x * x + y * y + z * z)))


def line(satellite, place, mjd, moving):
    """From the observer to where the light left; `moving`: among the stars, with the Earth on its way."""
    t = time_of(mjd)
    observer, delay = place.at(t).position.km, 0.0
    for _ in range(4):
        then = time_of(mjd - delay / 86400.0)
        vector = satellite.at(then).position.km - observer + (earth_km_s(t) * -delay if moving else 0.0)
        delay = np.linalg.norm(vector) / LIGHT_KM_S
    return t, vector


def sights(satellite, place, mjd):
    t, stars = line(satellite, place, mjd, True)
    _, plain = line(satellite, place, mjd, False)
    dated = t.M @ plain  # true equator and equinox of date
    return angles(*stars), angles(*plain), angles(*dated), horizon(place, t, plain)


def horizon(place, t, vector):
    local = place.rotation_at(t) @ vector
    return angles(*local)


def visible(satellite, place):
    grid = np.arange(0.0, 2.5, 20.0 / 86400.0)
    times = ts.utc(2018, 1, 22, 0, 0, grid * 86400.0)
    high = (satellite - place).at(times).altaz()[0].degrees > 25
    return START + grid[high]


def iod(mjd, station, ra, dec):
    tenths = int(round((mjd % 1.0) * 86400e3))
    day = int(mjd) - 58119 + 1
    h, rest = divmod(tenths, 3600000)
    m, rest = divmod(rest, 60000)
    minutes, d = round(ra * 4.0, 3), round(abs(dec) * 60.0, 2)
    place = f"{int(minutes // 60):02d}{minutes % 60 * 1000:05.0f}{'+' if dec >= 0 else '-'}{int(d // 60):02d}{d % 60 * 100:04.0f}"
    return f"25544 98 067A   {station:04d} G 201801{day:02d}{h:02d}{m:02d}{rest:05d} 15 25 {place} 37"


with open("sights.txt", "w") as out:
    satellite = satellite_behind(0)
    e = satellite.model
    deg = np.degrees
    print("# epoch inclination node eccentricity perigee anomaly rev/day drag UT1-UTC; lines: mjd latitude longitude height,"
          " then pairs: against stars 2000, geometric 2000, true of date, azimuth and elevation", file=out)
    print(f"{e.jdsatepoch + e.jdsatepochF - 2400000.5:.8f} {deg(e.inclo):.6f} {deg(e.nodeo):.6f} {e.ecco:.8f}"
          f" {deg(e.argpo):.6f} {deg(e.mo):.6f} {e.no_kozai * 720 / np.pi:.8f} {e.bstar:.9f} {time_of(START).dut1:.6f}", file=out)
    for site in [(48.2, 16.37, 200.0), (-33.94, 18.51, 10.0)]:
        place = wgs84.latlon(site[0], site[1], site[2])
        for mjd in visible(satellite, place)[::25][:6]:
            pairs = " ".join(f"{a:.7f} {b:.7f}" for a, b in sights(satellite, place, mjd))
            print(f"{mjd:.10f} {site[0]} {site[1]} {site[2]} {pairs}", file=out)

with open("iss.iod", "w") as out:
    satellite = satellite_behind(30)
    print("# made up: the ISS 30 s behind its elements of January 2018, stations 8001 and 8002", file=out)
    for station, site in ((8001, (48.2, 16.37, 200.0)), (8002, (-33.94, 18.51, 10.0))):
        place = wgs84.latlon(site[0], site[1], site[2])
        for mjd in visible(satellite, place)[::6][:10]:
            mjd = round(mjd * 86400e3) / 86400e3
            (ra, dec), *_ = sights(satellite, place, mjd)
            noise = rng.normal(0, 20 / 3600, 2)
            print(iod(mjd, station, (ra + noise[0] / np.cos(np.radians(dec))) % 360, dec + noise[1]), file=out)
