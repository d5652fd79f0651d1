#include "design/astrometry.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>

#include "app/record/winp_data.h"
#include "astro/angles.h"
#include "astro/vec3.h"

namespace {

/// A plane that touches the sky at a place, by vectors.
class Plane
{
public:
    Plane(double ra, double dec)
        : centre(towards(ra, dec)), east{-std::sin(ra), std::cos(ra), 0.0}, north(centre * east)
    {}

    static Vec3 towards(double ra, double dec)
    {
        return {std::cos(dec) * std::cos(ra), std::cos(dec) * std::sin(ra), std::sin(dec)};
    }

    double westOf(const Vec3& s) const { return -dot(s, east) / dot(s, centre); }
    double northOf(const Vec3& s) const { return dot(s, north) / dot(s, centre); }

    /// The direction of a point of the plane.
    Vec3 at(double west, double up) const { return centre - west * east + up * north; }

private:
    Vec3 centre, east, north;
};

double raOf(const Vec3& s)
{
    const double ra = std::atan2(s[1], s[0]);
    return ra < 0 ? ra + twoPi : ra;
}

double decOf(const Vec3& s)
{
    return std::atan2(s[2], std::sqrt(s[0] * s[0] + s[1] * s[1]));
}

struct PlaceCase
{
    const char* what;
    double ra0, dec0, ra, dec;  // degrees
};

constexpr PlaceCase placeCases[] = {
    {"the tangent point", 100, 30, 100, 30},  {"north of it", 100, 30, 100, 31},
    {"east of it", 100, 0, 101, 0},           {"across 0 hours", 359.5, -45, 0.5, -44},
    {"across the pole", 10, 89.5, 190, 89.7}, {"from the pole", 0, 90, 77, 85},
    {"far away", 100, 30, 150, -20},          {"behind the observer", 100, 30, 280, -10},
};

TEST(AstrometryTest, ProjectsOnTheTangentPlane)
{
    for (const PlaceCase& c : placeCases) {
        SCOPED_TRACE(c.what);
        const Plane plane(radPerDeg * c.ra0, radPerDeg * c.dec0);
        const Vec3 s = Plane::towards(radPerDeg * c.ra, radPerDeg * c.dec);
        double x = 0, y = 0;
        equplt(radPerDeg * c.ra0, radPerDeg * c.dec0, radPerDeg * c.ra, radPerDeg * c.dec, x, y);
        EXPECT_NEAR(x, plane.westOf(s), 1e-13);
        EXPECT_NEAR(y, plane.northOf(s), 1e-13);
    }
}

TEST(AstrometryTest, StaysFiniteInThePlaneOfTheObserver)
{
    double x = 0, y = 0;
    equplt(0.0, 0.0, std::numbers::pi / 2.0, 0.0, x, y);
    EXPECT_TRUE(std::isfinite(x));
    EXPECT_TRUE(std::isfinite(y));
}

TEST(AstrometryTest, SolvesThreeRows)
{
    constexpr double wanted[3] = {0.75, -2.5, 0.0};
    // second and third point; some lie straight above, below or beside the origin
    constexpr double points[][4] = {{300, 20, -40, 250}, {0, 120, 200, 0},    {200, 0, 0, 120},
                                    {0, -7, -5, 300},    {1, 500, 400, -300}, {-3, -4, 5, -12}};
    for (const auto& p : points) {
        SCOPED_TRACE(testing::PrintToString(p));
        const auto minusValue = [&](double dx, double dy) { return -(wanted[0] * dx + wanted[1] * dy); };
        double rows[12] = {0, 0, 1, 0, p[0], p[1], 1, minusValue(p[0], p[1]), p[2], p[3], 1, minusValue(p[2], p[3])};
        double out[3] = {};
        lsqfit(rows, out);
        for (int k = 0; k < 3; ++k)
            EXPECT_NEAR(out[k], wanted[k], 1e-12);
    }
}

struct Pixel
{
    int x, y;
};

/// How a camera stood: its first star, and what a pixel to the right and one down are in arc seconds.
struct CameraCase
{
    const char* what;
    double ra, dec;                // degrees
    double rightWest, rightNorth;  // of a pixel to the right
    double downWest, downNorth;
    std::array<Pixel, 3> stars;
};

constexpr std::array<Pixel, 3> spread{Pixel{120, 80}, Pixel{700, 160}, Pixel{300, 560}};
constexpr std::array<Pixel, 3> corner{Pixel{120, 80}, Pixel{120, 560}, Pixel{700, 80}};

constexpr CameraCase cameraCases[] = {
    {"north up", 83.6, 22.0, 10, 0, 0, -10, spread},
    {"north up, a star below the first", 83.6, 22.0, 10, 0, 0, -10, corner},
    {"turned by 30 degrees", 200.0, -60.0, 8.66, 5, 5, -8.66, spread},
    {"turned by 90 degrees", 200.0, -60.0, 0, 10, 10, 0, spread},
    {"turned by 90 degrees, a star below the first", 200.0, -60.0, 0, 10, 10, 0, corner},
    {"upside down", 83.6, 22.0, -10, 0, 0, 10, spread},
    {"seen in a mirror", 83.6, 22.0, -10, 0, 0, -10, spread},
    {"across 0 hours", 0.3, 5.0, 10, 0, 0, -10, spread},
    {"near the pole", 40.0, 89.6, 10, 2, 2, -10, spread},
};

/// A measurement in the record, put back at the end.
class AstrometryPlateTest : public testing::Test
{
protected:
    AstrometryPlateTest() { *indata = WinpData{}; }
    void TearDown() override { *indata = WinpData{}; }

    static Vec3 directionOf(const CameraCase& c, const Plane& plane, const Pixel& p)
    {
        const double right = p.x - c.stars[0].x;
        const double down = p.y - c.stars[0].y;
        return plane.at(radPerDeg * (c.rightWest * right + c.downWest * down) / 3600.0,
                        radPerDeg * (c.rightNorth * right + c.downNorth * down) / 3600.0);
    }

    static void markStar(int k, const Pixel& p, const Vec3& direction)
    {
        indata->astx[k] = p.x;
        indata->asty[k] = p.y;
        indata->astra[k] = raOf(direction);
        indata->astdec[k] = decOf(direction);
    }
};

TEST_F(AstrometryPlateTest, MeasuresAndFindsBack)
{
    for (const CameraCase& c : cameraCases) {
        SCOPED_TRACE(c.what);
        const Plane plane(radPerDeg * c.ra, radPerDeg * c.dec);
        for (int k = 0; k < 3; ++k) {
            const Pixel& star = c.stars[static_cast<std::size_t>(k)];
            markStar(k, star, directionOf(c, plane, star));
        }
        getPlateConst();
        for (const Pixel& p : {Pixel{0, 0}, Pixel{799, 599}, Pixel{131, 77}, Pixel{120, 80}, Pixel{500, 20}}) {
            const Vec3 truth = directionOf(c, plane, p);
            double ra = 0, dec = 0;
            getRaDec(p.x, p.y, ra, dec);
            const Vec3 measured = Plane::towards(radPerHour * DmsDegF(ra), radPerDeg * DmsDegF(dec));
            // the last digits of the packed seconds
            EXPECT_LT(abs(measured * vnorm(truth)), 1e-10);
            int x = 0, y = 0;
            getPixel(ra, dec, x, y);
            // 0.5 is added before the fraction is dropped, so that -0.1 and -1.4 become 0
            EXPECT_LE(std::abs(x - p.x), p.x < c.stars[0].x ? 1 : 0) << x;
            EXPECT_LE(std::abs(y - p.y), p.y < c.stars[0].y ? 1 : 0) << y;
        }
    }
}

TEST_F(AstrometryPlateTest, GivesFiniteFiguresForStarsOnALine)
{
    constexpr std::array<Pixel, 3> lines[] = {{Pixel{100, 100}, {200, 200}, {400, 400}},
                                              {Pixel{100, 100}, {100, 200}, {100, 400}},
                                              {Pixel{100, 100}, {100, 100}, {100, 100}}};
    for (const auto& pixels : lines) {
        SCOPED_TRACE(testing::PrintToString(pixels[1].y));
        const Plane plane(1.0, 0.5);
        const std::array directions{plane.at(0, 0), plane.at(0.01, 0.02), plane.at(-0.02, 0.01)};
        for (int k = 0; k < 3; ++k)
            markStar(k, pixels[static_cast<std::size_t>(k)], directions[static_cast<std::size_t>(k)]);
        getPlateConst();
        double ra = 0, dec = 0;
        getRaDec(400, 300, ra, dec);
        EXPECT_TRUE(ra >= 0.0 && ra < 48.0) << ra;
        EXPECT_LE(std::abs(dec), 90.0);
        int x = 0, y = 0;
        getPixel(4.0, 30.0, x, y);
        EXPECT_LE(std::abs(x - 100), 100000);
        EXPECT_LE(std::abs(y - 100), 100000);
    }
}

}  // namespace
