"""Makes the headers, places and pictures of this folder by astropy.

usage: python3 make_pictures.py
"""

import numpy as np
from astropy.io import fits
from astropy.wcs import WCS

rng = np.random.default_rng(5)
SCALE = 3.1 / 3600


def header(projection):
    h = fits.Header()
    h["SIMPLE"], h["BITPIX"], h["NAXIS"] = True, 16, 0
    h["WCSAXES"], h["IMAGEW"], h["IMAGEH"] = 2, 6000, 4000
    h["CTYPE1"], h["CTYPE2"] = "RA---" + projection, "DEC--" + projection
    h["CRVAL1"], h["CRVAL2"], h["CRPIX1"], h["CRPIX2"] = 83.82, 62.5, 3004.2, 1989.7
    turn = np.radians(23.0)
    h["CD1_1"], h["CD1_2"] = -SCALE * np.cos(turn), SCALE * np.sin(turn)
    h["CD2_1"], h["CD2_2"] = SCALE * np.sin(turn), SCALE * np.cos(turn)
    h["CUNIT1"], h["CUNIT2"], h["RADESYS"] = "deg", "deg", "ICRS"
    h["DATE-OBS"], h["EXPTIME"] = "2018-01-22T21:28:10.25", 60.0
    h["SITELAT"], h["SITELONG"], h["SITEELEV"] = "+48 12 00", "16 22 12", 200.0
    return h


def sip():
    h = header("TAN-SIP")
    h["A_ORDER"] = h["B_ORDER"] = 3
    for letter in "AB":
        for i in range(4):
            for j in range(4 - i):
                if i + j > 1:
                    h[f"{letter}_{i}_{j}"] = rng.normal(0, 3e-7 if i + j == 2 else 4e-10)
    return h


def tpv():
    h = header("TPV")
    h["PV1_1"], h["PV2_1"] = 1.0, 1.0
    for axis in (1, 2):
        for k in (4, 5, 6, 7, 8, 9, 10):
            h[f"PV{axis}_{k}"] = rng.normal(0, 4e-4)
    return h


with open("places.txt", "w") as out:
    for name, h in (("sip", sip()), ("tpv", tpv())):
        fits.PrimaryHDU(header=h).writeto(name + ".wcs", overwrite=True)
        wcs = WCS(h)
        for x, y in [(1, 1), (6000, 1), (1, 4000), (6000, 4000), (3000, 2000), *rng.uniform(1, 4000, (15, 2))]:
            ra, dec = wcs.all_pix2world(x, y, 1)
            print(f"{name} {x:.4f} {y:.4f} {ra:.10f} {dec:.10f}", file=out)

values = np.arange(40)[None, :] + 100 * np.arange(30)[:, None]
h = header("TAN")
for key in ("SIMPLE", "BITPIX", "NAXIS"):
    del h[key]
fits.HDUList([fits.PrimaryHDU(), fits.CompImageHDU(values.astype(np.int32), header=h, compression_type="RICE_1")]).writeto(
    "small.fits", overwrite=True)
floating = values.astype(np.float32)
floating[3, 5] = np.nan
fits.PrimaryHDU(floating, header=h).writeto("float.fits", overwrite=True)
