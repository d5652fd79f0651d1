"""Makes iss.fits: a frame with stars, a gradient, noise and the streak of the ISS, by astropy and skyfield.

usage: python3 make_frame.py ../elements/visual_2018.txt
"""

import sys

import numpy as np
from astropy.io import fits
from astropy.wcs import WCS
from skyfield.api import EarthSatellite, load, wgs84

ts = load.timescale(builtin=True)
lines = open(sys.argv[1]).read().splitlines()
at = next(i for i, line in enumerate(lines) if line.startswith("ISS"))
satellite = EarthSatellite(lines[at + 1], lines[at + 2], "ISS", ts)
place = wgs84.latlon(-33.94, 18.51, 10)
rng = np.random.default_rng(1)
W, H, SCALE = 480, 320, 60 / 3600

h = fits.Header()
h["CTYPE1"], h["CTYPE2"], h["CUNIT1"], h["CUNIT2"] = "RA---TAN", "DEC--TAN", "deg", "deg"
h["CRVAL1"], h["CRVAL2"], h["CRPIX1"], h["CRPIX2"] = 191.5, 9.5, 240.5, 160.5
h["CD1_1"], h["CD1_2"], h["CD2_1"], h["CD2_2"] = -SCALE, 0.1 * SCALE, 0.1 * SCALE, SCALE
h["DATE-OBS"], h["EXPTIME"] = "2018-01-22T06:36:34.000", 10.0
h["SITELAT"], h["SITELONG"], h["SITEELEV"] = -33.94, 18.51, 10.0
wcs = WCS(h)
image = rng.normal(1000, 20, (H, W)) + np.linspace(0, 100, W)[None, :]
rows, columns = np.mgrid[0:H, 0:W]


def put(x, y, light):
    image[:] += light * np.exp(-((columns - x) ** 2 + (rows - y) ** 2) / 2.0)


for _ in range(60):
    put(rng.uniform(0, W), rng.uniform(0, H), 20 * np.exp(rng.uniform(0, 5)))
for second in np.linspace(0, 10, 600):
    ra, dec, _ = (satellite - place).at(ts.utc(2018, 1, 22, 6, 36, 34 + second)).radec()
    put(*wcs.all_world2pix(ra._degrees, dec.degrees, 0), 20.0)
hdu = fits.CompImageHDU(np.clip(image, 0, 30000).astype(np.int16), header=h, compression_type="RICE_1")
fits.HDUList([fits.PrimaryHDU(), hdu]).writeto("iss.fits", overwrite=True)
