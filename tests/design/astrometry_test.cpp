#include "design/astrometry.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "astro/angles.h"
#include "astro/vec3.h"
#include "record/winp_data.h"

namespace {

struct Pixel
{
    int x, y;
};

constexpr std::array spread{Pixel{120, 80}, Pixel{700, 160}, Pixel{300, 560}};
constexpr std::array corner{Pixel{120, 80}, Pixel{120, 560}, Pixel{700, 80}};

/// How a camera stood: its first star, and what a pixel to the right and one down are in arc seconds.
struct Camera
{
    const char* what;
    double ra, dec;                // degrees
    double rightWest, rightNorth;  // of a pixel to the right
    double downWest, downNorth;
    std::array<Pixel, 3> stars;

    /// The direction of a pixel: the point of the plane that touches the sky at the first star.
    Vec3 direction(const Pixel& p) const
    {
        const Vec3 centre = polcar({1.0, radPerDeg * ra, radPerDeg * dec});
        const Vec3 east{-std::sin(radPerDeg * ra), std::cos(radPerDeg * ra), 0.0};
        const double right = (p.x - stars[0].x) * radPerDeg / 3600.0;
        const double down = (p.y - stars[0].y) * radPerDeg / 3600.0;
        return centre - (rightWest * right + downWest * down) * east +
               (rightNorth * right + downNorth * down) * (centre * east);
    }
};

constexpr Camera cameras[] = {
    {"north up", 83.6, 22.0, 10, 0, 0, -10, spread},
    {"north up, a star below the first", 83.6, 22.0, 10, 0, 0, -10, corner},
    {"turned by 30 degrees", 200.0, -60.0, 8.66, 5, 5, -8.66, spread},
    {"turned by 90 degrees", 200.0, -60.0, 0, 10, 10, 0, spread},
    {"turned by 90 degrees, a star below the first", 200.0, -60.0, 0, 10, 10, 0, corner},
    {"upside down", 83.6, 22.0, -10, 0, 0, 10, spread},
    {"seen in a mirror", 83.6, 22.0, -10, 0, 0, -10, spread},
    {"across 24 hours", 359.7, 5.0, 10, 0, 0, -10, spread},
    {"across 0 hours", 0.3, 5.0, 10, 0, 0, -10, spread},
    {"near the pole", 40.0, 89.6, 10, 2, 2, -10, spread},
};

void markStar(int k, const Pixel& p, const Vec3& direction)
{
    const Vec3 place = carpol(direction);
    indata->astx[k] = p.x;
    indata->asty[k] = p.y;
    indata->astra[k] = place[1];
    indata->astdec[k] = place[2];
}

TEST(Astrometry, MeasuresAndFindsBack)
{
    for (const Camera& c : cameras) {
        SCOPED_TRACE(c.what);
        for (int k = 0; k < 3; ++k)
            markStar(k, c.stars[k], c.direction(c.stars[k]));
        getPlateConst();
        for (const Pixel& p : {Pixel{0, 0}, Pixel{799, 599}, Pixel{131, 77}, Pixel{120, 80}, Pixel{500, 20}}) {
            double ra = 0, dec = 0;
            getRaDec(p.x, p.y, ra, dec);
            EXPECT_TRUE(ra >= 0.0 && ra < 24.0) << ra;
            const Vec3 measured = polcar({1.0, radPerHour * DmsDegF(ra), radPerDeg * DmsDegF(dec)});
            // the last digits of the packed seconds
            EXPECT_LT(abs(measured * vnorm(c.direction(p))), 1e-10);
            int x = 0, y = 0;
            getPixel(ra, dec, x, y);
            // 0.5 is added before the fraction is dropped, so that -0.1 and -1.4 become 0
            EXPECT_LE(std::abs(x - p.x), p.x < c.stars[0].x ? 1 : 0) << x;
            EXPECT_LE(std::abs(y - p.y), p.y < c.stars[0].y ? 1 : 0) << y;
        }
    }
}

TEST(Astrometry, GivesFiniteFiguresForStarsOnALine)
{
    const Camera& camera = cameras[0];
    constexpr std::array<Pixel, 3> lines[] = {{Pixel{100, 100}, {200, 200}, {400, 400}},
                                              {Pixel{100, 100}, {100, 200}, {100, 400}},
                                              {Pixel{100, 100}, {100, 100}, {100, 100}}};
    for (const auto& pixels : lines) {
        SCOPED_TRACE(testing::PrintToString(pixels[1].y));
        for (int k = 0; k < 3; ++k)
            markStar(k, pixels[k], camera.direction(camera.stars[k]));
        getPlateConst();
        double ra = 0, dec = 0;
        getRaDec(400, 300, ra, dec);
        EXPECT_TRUE(ra >= 0.0 && ra < 24.0) << ra;
        EXPECT_LE(std::abs(dec), 90.0);
        int x = 0, y = 0;
        getPixel(4.0, 30.0, x, y);
        EXPECT_LE(std::abs(x - 100), 100000);
        EXPECT_LE(std::abs(y - 100), 100000);
    }
}

}  // namespace
