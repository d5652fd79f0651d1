#include "astro/angles.h"
#include "astro/near_helper.h"
#include "astro/planets.h"
#include "astro/sun_moon.h"

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

namespace {

struct Place
{
    double T;
    Vec3 place;  // see the file
};

std::vector<Place> places(const std::string& name, const std::string& body)
{
    std::vector<Place> rows;
    std::ifstream file(TEST_DATA "/series/" + name);
    for (std::string line; std::getline(file, line);) {
        double T = 0, a = 0, b = 0, c = 0;
        if (line.rfind(body + ",", 0) == 0 &&
            std::sscanf(line.c_str() + body.size(), ",%lf,%lf,%lf,%lf", &T, &a, &b, &c) == 4)
            rows.push_back({T, {a, b, c}});
    }
    return rows;
}

double arcsecBetween(const Vec3& a, const Vec3& b)
{
    return std::atan2(abs(a * b), dot(a, b)) * degPerRad * 3600.0;
}

struct SeriesCase
{
    const char* body;
    Vec3 (*position)(double T);
    std::size_t rows;
    double unit;          // of the reference distance, in that of the series
    double arcsec;        // largest deviation
    double meanArcsec;    // mean deviation
    double distance;      // largest relative deviation
    double meanDistance;  // mean relative deviation, with its sign
};

// One object of each serves all calls: it carries nothing from one to the next.
Sun200 theSun;
Moon200 theMoon;
Plan200 thePlanets;

// The largest deviations are the level at which the series are truncated; the means are to be half of them.
// The Moon's distance rests on the older parallax of 3422.54 arc seconds where the reference has 3422.45, hence its
// mean of 2.6e-5, which has a bound of its own.
const SeriesCase seriesCases[] = {
    {"Sun", [](double T) { return theSun.position(T); }, 80, 1.0, 3.0, 1.5, 5e-6, 2e-6},
    {"Moon", [](double T) { return theMoon.position(T); }, 200, 6378.137, 5.5, 2.0, 5e-5, 3e-5},
    {"Mercury", [](double T) { return thePlanets.Mercury(T); }, 60, 1.0, 3.0, 1.5, 1e-5, 5e-6},
    {"Venus", [](double T) { return thePlanets.Venus(T); }, 60, 1.0, 3.0, 1.5, 1e-5, 5e-6},
    {"Mars", [](double T) { return thePlanets.Mars(T); }, 60, 1.0, 3.0, 1.5, 1e-5, 5e-6},
    {"Jupiter", [](double T) { return thePlanets.Jupiter(T); }, 60, 1.0, 6.0, 3.0, 2e-5, 1e-5},
    {"Saturn", [](double T) { return thePlanets.Saturn(T); }, 60, 1.0, 6.0, 3.0, 2e-5, 1e-5},
};

TEST(Series, AgreeWithIndependentEphemeridesOver1950To2050)
{
    for (const SeriesCase& c : seriesCases) {
        SCOPED_TRACE(c.body);
        const std::vector<Place> rows = places("places_1950_2050.csv", c.body);
        ASSERT_EQ(rows.size(), c.rows);
        double sum = 0, sumDistance = 0;
        for (const auto& [T, place] : rows) {
            const Vec3 expected = polcar({place[2] / c.unit, place[0] * radPerDeg, place[1] * radPerDeg});
            const Vec3 found = c.position(T);
            const double deviation = arcsecBetween(found, expected);
            EXPECT_LE(deviation, c.arcsec) << "T " << T;
            EXPECT_NEAR(abs(found) / abs(expected), 1.0, c.distance) << "T " << T;
            sum += deviation;
            sumDistance += abs(found) / abs(expected) - 1.0;
        }
        EXPECT_LE(sum / double(rows.size()), c.meanArcsec);
        EXPECT_LE(std::abs(sumDistance / double(rows.size())), c.meanDistance);
    }
}

TEST(Series, HaveEveryConstantOfTheTheory)
{
    for (const SeriesCase& c : seriesCases) {
        const std::vector<Place> rows = places("evaluated.csv", c.body);
        ASSERT_EQ(rows.size(), 3U) << c.body;
        for (const auto& [T, place] : rows) {
            SCOPED_TRACE(testing::Message() << c.body << " T " << T);
            // an argument of 11000 revolutions is good to 1e-11 radians
            expectNear(c.position(T), place, 3e-11 * abs(place));
        }
    }
}

}  // namespace
