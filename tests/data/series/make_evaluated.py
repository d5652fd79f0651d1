"""Writes evaluated.csv: the series of Sun, Moon and planets summed apart from the program, with a sine and a cosine for
each term instead of the addition theorems. Only the rows of the term tables are shared; those are checked against
independent ephemerides by places_1950_2050.csv, which cannot see an error below a second of arc."""
import re
from math import cos, sin, pi, modf
from pathlib import Path

astro = Path(__file__).parents[3] / "astro"
tables = {}
for name in ("sun_terms.h", "moon_terms.h", "planet_terms.h"):
    for table, rows in re.findall(r"constexpr std::array (\w+)\{(.*?)\n\};", (astro / name).read_text(), re.S):
        tables[table] = [[float(x) for x in row.split(",")] for row in re.findall(r"Term\{(.*?)\}", rows)]

def turn(x):
    return 2 * pi * modf(x)[0]

def perturbations(T, own, planets):
    DL = DR = DB = 0.0
    for table, anomaly in planets:
        for i1, i, it, dlc, dls, drc, drs, dbc, dbs in tables[table]:
            if it == 0:
                arg, power = i1 * own + i * anomaly, 1.0
            else:
                power *= T
            u, v = power * cos(arg), power * sin(arg)
            DL, DR, DB = DL + dlc * u + dls * v, DR + drc * u + drs * v, DB + dbc * u + dbs * v
    return DL, DR, DB

def cartesian(l, b, r):
    return r * cos(l) * cos(b), r * sin(l) * cos(b), r * sin(b)

def revolving(T, *pairs):
    return [turn(a + b * T) for a, b in pairs]

def sun(T):
    M2, M3, M4, M5, M6, D, A, U = revolving(
        T, (0.1387306, 162.5485917), (0.9931266, 99.9973604), (0.054325, 53.1666028), (0.055175, 8.4293972),
        (0.88165, 3.3938722), (0.8274, 1236.8531), (0.3749, 1325.5524), (0.2591, 1342.2278))
    DL, DR, DB = perturbations(T, M3, [("sunByVenus", M2), ("sunByMars", M4), ("sunByJupiter", M5), ("sunBySaturn", M6)])
    for a, x in ((6.45, D), (-0.42, D - A), (0.18, D + A), (0.17, D - M3), (-0.06, D + M3)):
        DL += a * sin(x)
    for a, x in ((30.76, D), (-3.06, D - A), (0.85, D + A), (-0.58, D + M3), (0.57, D - M3)):
        DR += a * cos(x)
    DB += 0.576 * sin(U)
    for a, p, q in ((6.4, 0.6983, 0.0561), (1.87, 0.5764, 0.4174), (0.27, 0.4189, 0.3306), (0.2, 0.3581, 2.4814)):
        DL += a * sin(2 * pi * (p + q * T))
    l = turn(0.7859453 + M3 / (2 * pi) + ((6191.2 + 1.1 * T) * T + DL) / 1296000)
    return cartesian(l, 4.8481368111e-6 * DB, 1.0001398 - 7e-7 * T + 1e-6 * DR)

def moon(T):
    s1, s2, s3, s4, s5, s6, s7 = map(sin, revolving(
        T, (0.19833, 0.05611), (0.27869, 0.04508), (0.16827, -0.36903), (0.34734, -5.37261), (0.10498, -5.37899),
        (0.42681, -0.41855), (0.14943, -5.37511)))
    dL0 = 0.84 * s1 + 0.31 * s2 + 14.27 * s3 + 7.26 * s4 + 0.28 * s5 + 0.24 * s6
    dL = 2.94 * s1 + 0.31 * s2 + 14.27 * s3 + 9.34 * s4 + 1.12 * s5 + 0.83 * s6
    dLS = -6.4 * s1 - 1.89 * s6
    dF = 0.21 * s1 + 0.31 * s2 + 14.27 * s3 - 88.7 * s4 - 15.3 * s5 + 0.24 * s6 - 1.86 * s7
    gam = (-3.332e-6 * sin(turn(0.59734 - 5.37261 * T)) - 5.39e-7 * sin(turn(0.35498 - 5.37899 * T))
           - 6.4e-8 * sin(turn(0.39943 - 5.37511 * T)))
    L0, L, LS, F, D = (turn(a + b * T + c * T * T) + d / 206264.81 for a, b, c, d in (
        (0.60643382, 1336.85522467, -3.13e-6, dL0), (0.37489701, 1325.55240982, 2.565e-5, dL),
        (0.99312619, 99.99735956, -4.4e-7, dLS), (0.25909118, 1342.2278298, -8.92e-6, dF),
        (0.82736186, 1236.85308708, -3.97e-6, dL0 - dLS)))
    factors = 1.000002208, 0.997504612 - 0.002495388 * T, 1.000002708 + 139.978 * gam, 1.0

    def term(*pqrs):
        size = 1.0
        for f, k in zip(factors, pqrs):
            size *= f ** abs(k)
        arg = sum(k * x for k, x in zip(pqrs, (L, LS, F, D)))
        return size * cos(arg), size * sin(arg)

    lam, ds, gam1c, sinpi = 0.0, 0.0, 0.0, 3422.7
    for cl, cs, cg, cp, *pqrs in tables["moonSolar1"] + tables["moonSolar2"] + tables["moonSolar3"]:
        x, y = term(*pqrs)
        lam, ds, gam1c, sinpi = lam + cl * y, ds + cs * y, gam1c + cg * x, sinpi + cp * x
    N = sum(c * term(*pqrs)[1] for c, *pqrs in (
        (-526.069, 0, 0, 1, -2), (-3.352, 0, 0, 1, -4), (44.297, 1, 0, 1, -2), (-6.0, 1, 0, 1, -4),
        (20.599, -1, 0, 1, 0), (-30.598, -1, 0, 1, -2), (-24.649, -2, 0, 1, 0), (-2.0, -2, 0, 1, -2),
        (-22.571, 0, 1, 1, -2), (10.985, 0, -1, 1, -2)))
    lam += sum(a * sin(turn(p + q * T)) for a, p, q in (
        (0.82, 0.7736, -62.5512), (0.31, 0.0466, -125.1025), (0.35, 0.5785, -25.1042), (0.66, 0.4591, 1335.8075),
        (0.64, 0.313, -91.568), (1.14, 0.148, 1331.2898), (0.21, 0.5918, 1056.5859), (0.44, 0.5784, 1322.8595),
        (0.24, 0.2275, -5.7374), (0.28, 0.2965, 2.6929), (0.33, 0.3132, 6.3368)))
    S = F + ds / 206264.81
    b = ((18519.7 + gam1c) * (1.000002708 + 139.978 * gam) * sin(S) - 6.24 * sin(3 * S) + N) * 4.8481368111e-6
    return cartesian(L0 + lam / 206264.81, b, 206264.81 / (sinpi * 0.999953253))

def planet(T, own, anomalies, by, longitude, latitude, radius, scale, longPeriod):
    M = {k: turn(a + b * T) for k, (a, b) in anomalies.items()}
    DL, DR, DB = perturbations(T, M[own], [(table, M[k]) for table, k in by])
    more = longPeriod(T, M)
    DL, DR, DB = DL + more[0], DR + more[1], DB + more[2]
    l = turn(longitude[0] + M[own] / (2 * pi) + ((longitude[1] + longitude[2] * T) * T + DL) / 1296000)
    b = (latitude[0] + latitude[1] * T + latitude[2] * T * T + DB) / 206264.81
    return cartesian(l, b, radius[0] + radius[1] * T + scale * DR)

def jupiterLong(T, M):
    x = 2 * M[5] - 6 * M[6] + 3 * M[7]
    C, S, Cs, Ss = cos(x), sin(x), cos(x + M[5]), sin(x + M[5])
    return -0.8 * C + 8.5 * S + 0.4 * Cs + 0.5 * Ss, -0.1 * C - 0.7 * Cs + 0.5 * Ss, -0.1 * Cs

def saturnLong(T, M):
    x = -2 * M[5] + 5 * M[6] - 3 * M[7]
    C, S, C1, S1 = cos(x), sin(x), cos(x + M[6]), sin(x + M[6])
    C2, S2 = cos(x + 2 * M[6]), sin(x + 2 * M[6])
    return (-0.8 * C - 0.1 * S + (2.4 - 0.7 * T) * C1 + (27.8 - 0.4 * T) * S1 + 0.1 * C2 + 1.6 * S2,
            -0.2 * C + 1.8 * S + 2.1 * C1 - 0.2 * S1 - 3.6 * C2 + 0.3 * S2,
            0.3 * C + 0.5 * S - 0.2 * C2 + 0.6 * S2)

def wave(T, *terms):
    return sum(a * sin(2 * pi * (p + q * T)) for a, p, q in terms)

outer = {5: (0.0565314, 8.4302963), 6: (0.8829867, 3.3947688), 7: (0.3969537, 1.1902586), 8: (0.7208473, 0.6068623)}
bodies = {
    "Sun": sun,
    "Moon": moon,
    "Mercury": lambda T: planet(
        T, 1, {1: (0.4855407, 415.2014314), 2: (0.1394222, 162.5490444), 3: (0.9937861, 99.9978139),
               5: (0.0558417, 8.4298417), 6: (0.8823333, 3.3943333)},
        [("mercuryByVenus", 2), ("mercuryByEarth", 3), ("mercuryByJupiter", 5), ("mercuryBySaturn", 6)],
        (0.2151379, 5601.7, 1.1), (-2522.15, -30.18, 0.04), (0.3952829, 1.6e-6), 1e-6,
        lambda T, M: (2.8 + 3.2 * T, 0, 0)),
    "Venus": lambda T: planet(
        T, 2, {1: (0.4861431, 415.2018375), 2: (0.1400197, 162.5494552), 3: (0.9944153, 99.9982208),
               4: (0.0556297, 53.1674631), 5: (0.0567028, 8.4305083), 6: (0.8830539, 3.3947206)},
        [("venusByMercury", 1), ("venusByEarth", 3), ("venusByMars", 4), ("venusByJupiter", 5), ("venusBySaturn", 6)],
        (0.3654783, 5071.2, 1.1), (-67.7, 0.04, 0.01), (0.7233482, -2e-7), 1e-6,
        lambda T, M: (wave(T, (2.74, 0.0764, 0.4174), (0.27, 0.9201, 0.3307)) + 1.9 + 1.8 * T, 0, 0)),
    "Mars": lambda T: planet(
        T, 4, {2: (0.1382208, 162.5482542), 3: (0.9926208, 99.9970236), 4: (0.0538553, 53.1662736),
               5: (0.0548944, 8.4290611), 6: (0.8811167, 3.393525)},
        [("marsByVenus", 2), ("marsByEarth", 3), ("marsByJupiter", 5), ("marsBySaturn", 6)],
        (0.9334591, 6615.5, 1.1), (596.32, -2.92, -0.1), (1.5303352, 1.31e-5), 1e-6,
        lambda T, M: (wave(T, (52.49, 0.1868, 0.0549), (0.61, 0.922, 0.3307), (0.32, 0.4731, 2.1485),
                           (0.28, 0.9467, 1.1133)) + 0.87 * T + 0.14 - 0.11 * T * T, 0, 0)),
    "Jupiter": lambda T: planet(T, 5, outer, [("jupiterBySaturn", 6), ("jupiterByUranus", 7)],
                                (0.038891, 5025.2, 0.8), (227.3, -0.3, 0), (5.208873, 4.1e-5), 1e-5, jupiterLong),
    "Saturn": lambda T: planet(T, 6, outer, [("saturnByJupiter", 5), ("saturnByUranus", 7), ("saturnByNeptune", 8)],
                               (0.2561136, 5018.6, 1.9), (175.1, -10.2, 0), (9.557584, -1.86e-4), 1e-5, saturnLong),
}
lines = ["# Written by make_evaluated.py, which sums the series term by term: body, T in Julian centuries, x, y, z"]
for body, position in bodies.items():
    for T in (-0.487, 0.3126, 8.3):
        lines.append(",".join([body, repr(T)] + ["%.12g" % x for x in position(T)]))
(Path(__file__).parent / "evaluated.csv").write_text("\n".join(lines) + "\n")
