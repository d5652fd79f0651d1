#include "astro/frames.h"

#include "astro/calendar.h"
#include "astro/near_helper.h"
#include "astro/time_scales.h"

#include <numbers>

namespace {

constexpr double pi = std::numbers::pi;
constexpr double radPerArcsec = pi / 648000.0;

struct NutationCase
{
    double mjd;                   // TT
    double eps0;                  // mean obliquity, radians
    double dpsi, deps;            // arc seconds
    double dpsiShort, depsShort;  // arc seconds
};

// ERFA 2.0: eraObl80, eraNut80 (all 106 terms of the IAU 1980 series), and for the short form the five largest terms of
// that series with the arguments eraFalp03, eraFaf03, eraFad03, eraFaom03.
constexpr NutationCase nutationCases[] = {
    {33282, 0.4092062852, -3.305539, 8.316123, -3.2506, 8.3158},
    {41317.5, 0.4091563542, 14.306633, 4.883080, 14.1645, 4.8881},
    {46895.80625, 0.4091216910, -3.866770, 9.465100, -3.8045, 9.4874},
    {51544.5, 0.4090928042, -13.923385, -5.773808, -14.0315, -5.7669},
    {55197.375, 0.4090701053, 16.510535, 2.834327, 16.4822, 2.8474},
    {58138, 0.4090518323, -10.833290, -6.872701, -10.8489, -6.8415},
    {61041.625, 0.4090337893, 5.545617, 8.039039, 5.5525, 8.0702},
    {69807.5, 0.4089793187, 15.157630, -5.349386, 15.1346, -5.2963},
};

/// The matrix element by element, as in the Explanatory Supplement to the Astronomical Almanac (1992), 3.222-4.
///
/// @param dpsi, deps  arc seconds
Mat3 supplementNutation(double eps0, double dpsi, double deps)
{
    const double sinPsi = std::sin(dpsi * radPerArcsec), cosPsi = std::cos(dpsi * radPerArcsec);
    const double sin0 = std::sin(eps0), cos0 = std::cos(eps0);
    const double sinE = std::sin(eps0 + deps * radPerArcsec), cosE = std::cos(eps0 + deps * radPerArcsec);
    Mat3 m;
    m.assign(cosPsi, -sinPsi * cos0, -sinPsi * sin0,                                                 //
             sinPsi * cosE, cosPsi * cosE * cos0 + sinE * sin0, cosPsi * cosE * sin0 - sinE * cos0,  //
             sinPsi * sinE, cosPsi * sinE * cos0 - cosE * sin0, cosPsi * sinE * sin0 + cosE * cos0);
    return m;
}

/// The deviation of `nutmat` from published angles, arc seconds. Those of the matrix and of the equation of the
/// equinoxes, whichever is larger.
double nutationDeviation(const NutationCase& c, bool full, double dpsi, double deps)
{
    double eqeq = 0;
    const Mat3 N = nutmat(julcent(c.mjd), eqeq, full);
    const double equinoxes = std::cos(c.eps0 + deps * radPerArcsec) * dpsi;
    return std::max(distance(N, supplementNutation(c.eps0, dpsi, deps)) / radPerArcsec,
                    std::abs(15 * eqeq - equinoxes));
}

TEST(Frames, NutationIsTheSeriesWithoutItsSmallTerms)
{
    double sumFull = 0, sumShort = 0;
    for (const NutationCase& c : nutationCases) {
        SCOPED_TRACE(c.mjd);
        const double full = nutationDeviation(c, true, c.dpsi, c.deps);
        const double five = nutationDeviation(c, false, c.dpsiShort, c.depsShort);
        EXPECT_LT(full, 0.009);  // 56 terms of 0.0001 to 0.0007 are left out
        EXPECT_LT(five, 0.012);  // 0.0174 a century in the largest amplitude, and amplitudes to the nearest 0.001
        EXPECT_LT(nutationDeviation(c, false, c.dpsi, c.deps), 0.35);
        sumFull += full;
        sumShort += five;
    }
    EXPECT_LT(sumFull, std::size(nutationCases) * 0.003);
    EXPECT_LT(sumShort, std::size(nutationCases) * 0.004);
}

TEST(Frames, TheEclipticIsTiltedByItsMeanObliquity)
{
    // eraObl80 of ERFA 2.0; the constant of the formula ends 1.1e-9 degrees below 84381.448 arc seconds
    for (const auto& [T, eps0] :
         {std::pair{-20.0, 0.413560653181962}, {0.18, 0.409051950386447}, {15.0, 0.405717342903126}}) {
        expectNear(eclequ(T, {0, 0, 1}), {0, -std::sin(eps0), std::cos(eps0)}, 2.5e-11);
        expectNear(eclequ(T, {0, 1, 0}), {0, std::cos(eps0), std::sin(eps0)}, 2.5e-11);
    }
}

struct PrecessionCase
{
    double from, to;  // MJD, TT
    Mat3 matrix;
};

// eraPrec76 of ERFA 2.0 turned by eraRz, eraRy, eraRz.
// clang-format off
const PrecessionCase precessionCases[] = {
    {51544.5, 33282,
     {0.9999257085750, 0.0111788912834, 0.0048589834755,
      -0.0111788912947, 0.9999375138737, -0.0000271576986,
      -0.0048589834495, -0.0000271623670, 0.9999881947013}},
    {-131080.5, 161119.5,
     {0.9810538976588, -0.1776552845060, -0.0772777443739,
      0.1776545433392, 0.9840684453012, -0.0069396104666,
      0.0772794482342, -0.0069206104905, 0.9969854522665}},
    {58138, 41317.5,
     {0.9999369661703, 0.0102974978080, 0.0044749553148,
      -0.0102974978161, 0.9999469790984, -0.0000230393236,
      -0.0044749552961, -0.0000230429712, 0.9999899870719}},
};
// clang-format on

TEST(Frames, PrecessionAgreesWithIau1976)
{
    for (const PrecessionCase& c : precessionCases) {
        const double T1 = julcent(c.from), dT = julcent(c.to) - T1;
        // 13 digits in the table, and 0.000345 for the 0.000344 of the resolution in a term of T1 dT dT
        const double tolerance = 1e-13 + 1e-6 * radPerArcsec * std::abs(T1) * dT * dT;
        EXPECT_LT(distance(pmatequ(T1, T1 + dT), c.matrix), tolerance) << c.from << ' ' << c.to;
    }
    EXPECT_LT(distance(pmatequ(0.18, 0.18), mxidn()), 1e-300);
}

struct AberrationCase
{
    double mjd;
    Vec3 velocity;  // of the Earth, in units of the speed of light, mean equator of date
};

// eraEpv00 (barycentric) and eraPmat76 of ERFA 2.0.
const AberrationCase aberrationCases[] = {
    {33373, {1.849e-05, -8.957e-05, -3.884e-05}},     {44321.3, {3.323e-06, -9.135e-05, -3.961e-05}},
    {48622.75, {-9.932e-05, -1.703e-05, -7.386e-06}}, {53920.6, {9.536e-05, 1.942e-05, 8.422e-06}},
    {58138, {-8.783e-05, -4.576e-05, -1.983e-05}},    {61132.9, {2.103e-05, -8.909e-05, -3.862e-05}},
};

TEST(Frames, AberrationIsTheVelocityOfTheEarthOnACircle)
{
    for (const AberrationCase& c : aberrationCases) {
        const Vec3 r(0.6, -0.8, 2.4);  // 2.6 long
        // the eccentricity of the orbit, 0.0167 of 20.5 arc seconds, and 0.05 for the pull of the planets on the Sun
        expectNear((aberrat(julcent(c.mjd), r) - r) / 2.6, c.velocity, 0.4 * radPerArcsec);
    }
}

struct PlaceCase
{
    double lat, lon, h;  // radians, metres
    Vec3 earthFixed;     // equatorial Earth radii
};

// eraGd2gce of ERFA 2.0, with the flattening that belongs to 0.00669438499959.
const PlaceCase placeCases[] = {
    {0.8441, -0.2, 0, {0.6523811932195, -0.1322442148427, 0.7437621089937}},
    {-0.9, 2.5, 1500, {-0.4991419482538, 0.3728701648327, -0.7798702380929}},
    {1.2, -2.9, -400, {-0.3528396659265, -0.0869415968915, 0.9284449471861}},
    {0.1, 1, 8848, {0.5383667643295, 0.8384565574642, 0.0993068944856}},
    {0, 0, 0, {1, 0, 0}},
    {pi / 2, 0, 0, {0, 0, 0.996647186822}},
};

TEST(Frames, GeoPosLiesOnTheEllipsoidThatPolarMotionTilts)
{
    const double mjd = 58138.37, eqeq = -0.66;
    const Mat3 toEarth = zrot(lsidtim(mjd, 0, eqeq) * pi / 12);
    for (const PlaceCase& c : placeCases) {
        expectNear(mxvct(toEarth, GeoPos(mjd, eqeq, c.lat, c.lon, c.h)), c.earthFixed, 1e-12);
        expectNear(mxvct(toEarth, GeoPos(mjd, eqeq, c.lat, c.lon, c.h, 0, 0)), c.earthFixed, 1e-12);
    }
    // eraGd2gce, eraPom00 transposed, eraGmst82 - 0.5 s of ERFA 2.0; sidereal time differs by 8e-6 s at most
    expectNear(GeoPos(58138.0, -0.5, -0.9, 2.5, 1500, 0.25, -0.4),
               {-0.080635378832, -0.617796863248, -0.779870119978}, 6e-10);
}

TEST(Frames, HorizonAxesPointSouthEastAndUp)
{
    const double mjd = 58138.37, lat = 0.85, lon = 0.2;
    const double S = lsidtim(mjd, lon * 180 / pi, 0) * pi / 12;
    expectNear(EquHor(mjd, 0, lat, lon, {0, 0, 1}), {-std::cos(lat), 0, std::sin(lat)}, 1e-15);
    expectNear(EquHor(mjd, 0, lat, lon, polcar({1, S + pi / 2, 0})), {0, 1, 0}, 1e-15);
    expectNear(EquHor(mjd, 0, lat, lon, polcar({1, S, lat})), {0, 0, 1}, 1e-15);
    const Vec3 r(0.3, -1.2, 0.7);
    expectNear(HorEqu(mjd, 0.4, lat, lon, EquHor(mjd, 0.4, lat, lon, r)), r, 1e-15);
}

TEST(Frames, ApparentPlacesOfADirectionAndOfAPlace)
{
    // Venus from Washington: Meeus, Astronomical Algorithms (2nd ed.), example 13.b; azimuth there from the south
    const double ra13 = ddd(23, 9, 16.641) * pi / 12, dec13 = -ddd(6, 43, 11.61) * pi / 180;
    double lat = ddd(38, 55, 17) * pi / 180, lon = -ddd(77, 3, 56) * pi / 180;
    double az = 0, el = 0, dist = 0, ra = 0, dec = 0;
    AppPos(46895.80625, -0.2317, lat, lon, 30, 0, polcar({1, ra13, dec13}), az, el, dist);
    EXPECT_NEAR(az * 180 / pi, 68.0337 + 180 - 360, 1e-4);
    EXPECT_NEAR(el * 180 / pi, 15.1249, 1e-4);
    EXPECT_NEAR(dist, 1, 1e-15);
    AppRADec(46895.80625, -0.2317, lat, lon, az, el, ra, dec);
    EXPECT_NEAR(ra, ra13, 1e-14);
    EXPECT_NEAR(dec, dec13, 1e-14);

    // Mars from Palomar on 2003 August 28, 3:17 UT: Meeus, example 40.a. One AU in radii of the Earth.
    const double time = mjd(28, 8, 2003, 3 + 17.0 / 60), distance = 0.37276 * 149597870 / 6378.137;
    lat = ddd(33, 21, 22) * pi / 180;
    lon = -116.8625 * pi / 180;
    AppPos(time, -0.9, lat, lon, 1706, 1, polcar({distance, 339.530208 * pi / 180, -15.771083 * pi / 180}), az, el,
           dist);
    AppRADec(time, -0.9, lat, lon, az, el, ra, dec);
    EXPECT_NEAR(ra * 12 / pi, ddd(22, 38, 8.54), 0.01 / 3600);
    EXPECT_NEAR(dec * 180 / pi, -ddd(15, 46, 30.0), 0.1 / 3600);
    EXPECT_LT(dist, distance);
}

}  // namespace
