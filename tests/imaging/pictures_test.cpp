// Pictures and plate solutions against astropy (tests/data/pictures), streaks on synthetic frames.

#include "imaging/sky_picture.h"
#include "imaging/streaks.h"

#include "astro/angles.h"
#include "scratch_dir.h"

#include <cmath>
#include <fstream>
#include <map>
#include <random>
#include <sstream>

#include <gtest/gtest.h>

namespace {

const std::string folder = TEST_DATA "/pictures/";

TEST(Plate, PutsPixelsWhereAstropyDoes)
{
    if (!readsSolutions())
        GTEST_SKIP() << "built without WCSLIB";
    std::map<std::string, std::unique_ptr<PlateSolution>> plates;
    for (const char* name : {"sip", "tpv"})
        plates[name] = solutionOf(headerOfFile((folder + name + ".wcs").c_str())).plate;
    std::ifstream file(folder + "places.txt");
    int rows = 0;
    std::string name;
    for (PicturePoint pixel; file >> name >> pixel.x >> pixel.y; ++rows) {
        SCOPED_TRACE(name + ' ' + std::to_string(pixel.x) + ' ' + std::to_string(pixel.y));
        SkyPoint place;
        file >> place.ra >> place.dec;
        ASSERT_TRUE(plates[name]);
        const auto back = plates[name]->pixelOf(place);
        const auto sky = plates[name]->skyOf(pixel);
        ASSERT_TRUE(back && sky);
        EXPECT_LT(std::hypot(back->x - pixel.x, back->y - pixel.y), 0.01);
        EXPECT_NEAR(sky->ra, place.ra, 1e-7);
        EXPECT_NEAR(sky->dec, place.dec, 1e-7);
    }
    EXPECT_EQ(rows, 40);
}

TEST(Header, TellsTimeAndPlace)
{
    const auto cards = [](std::initializer_list<const char*> lines) {
        std::string text;
        for (std::string line : lines)
            text += line + std::string(80 - line.size(), ' ');
        return FitsHeader(text);
    };
    const struct
    {
        FitsHeader header;
        double begin, exposure, lat, lng;  // seconds of 2018-01-22
    } cases[] = {
        {headerOfFile((folder + "sip.wcs").c_str()), 77290.25, 60, 48.2, 16.37},
        {cards({"DATE-OBS= '2018-01-22'", "UT      = '21:28:10.25' / start", "EXPOSURE=  30.", "LAT-OBS =  -33.94",
                "LONG-OBS= 18.51"}),
         77290.25, 30, -33.94, 18.51},
        {cards({"DATE-AVG= '2018-01-22T21:28:40.25'", "EXPTIME = 6.0D1", "OBSGEO-X=  4086633.950",
                "OBSGEO-Y= 1200437.031", "OBSGEO-Z= 4731876.981"}),
         77290.25, 60, 48.2, 16.37},
        {cards({"DATE-BEG= '2018-01-22T21:29:19.434'", "TIMESYS = 'TT'", "DATE-END= '2018-01-22T21:29:29.434'",
                "SITELAT = '48 12 00 N'", "SITELONG= '16 22 12 W'"}),
         77290.25, 10, 48.2, -16.37},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.exposure);
        const PictureFacts facts = factsOf(c.header);
        ASSERT_TRUE(facts.begin && facts.exposure && facts.site);
        EXPECT_NEAR((*facts.begin - 58140.0) * 86400.0, c.begin, 1e-3);
        EXPECT_NEAR(*facts.exposure, c.exposure, 1e-3);
        EXPECT_NEAR(facts.site->lat, c.lat, 1e-3);
        EXPECT_NEAR(facts.site->lng, c.lng, 1e-3);
    }
    EXPECT_NE(factsOf(cards({"DATE-OBS= '22.13.2018 25:61'"})).doubt, "");
    EXPECT_FALSE(solutionOf(cards({"CTYPE1  = 'RA---TAN'", "CRVAL1  = 1E999"})).complaint.empty());
}

TEST(Picture, ReadsFitsOfAnyKind)
{
    if (!readsFits())
        GTEST_SKIP() << "built without CFITSIO";
    for (const char* name : {"small.fits", "float.fits"}) {
        SCOPED_TRACE(name);
        const ReadPicture read = readPicture(folder + name);
        ASSERT_EQ(read.complaint, "");
        const PixelField& pixels = read.picture.pixels;
        ASSERT_EQ(pixels.width, 40);
        ASSERT_EQ(pixels.height, 30);
        EXPECT_EQ(pixels.at(7, 29), 7.0f);  // the first row of FITS is the lowest
        EXPECT_EQ(pixels.at(39, 0), 2939.0f);
        EXPECT_EQ(std::isnan(pixels.at(5, 26)), std::string(name) == "float.fits");
        EXPECT_TRUE(read.picture.facts.begin);
        EXPECT_EQ(bool(read.picture.plate), readsSolutions());
        const Levels levels = levelsOf(pixels, 0.1, 0.9);
        EXPECT_NEAR(levels.black, 239, 1);
        EXPECT_NEAR(levels.white, 2639, 1);
    }
    const ScratchDir here;
    std::string damaged = ScratchDir::read((folder + "small.fits").c_str());
    damaged.resize(7000);
    ScratchDir::write("damaged.fits", damaged);
    EXPECT_NE(readPicture("damaged.fits").complaint, "");
}

TEST(Plate, GoesThroughAllStarsAndTellsTheBadOne)
{
    std::vector<PlateStar> stars;
    for (const auto& [x, y] :
         {std::pair{100.0, 200.0}, {900.0, 150.0}, {500.0, 700.0}, {150.0, 800.0}, {800.0, 820.0}, {450.0, 300.0}})
        stars.push_back({{x, y}, {}});
    // the plane at RA 84, Dec 60 with 10 seconds of arc to a pixel, turned by 30 degrees
    for (PlateStar& star : stars) {
        const double scale = 10.0 / 3600.0 * radPerDeg, x = star.pixel.x - 500.0, y = star.pixel.y - 500.0;
        const double xi = scale * (-0.8660254 * x + 0.5 * y), eta = scale * (0.5 * x + 0.8660254 * y);
        const double d0 = 60.0 * radPerDeg, r = std::cos(d0) - eta * std::sin(d0);
        star.place = {84.0 + std::atan2(xi, r) * degPerRad,
                      std::atan2(std::sin(d0) + eta * std::cos(d0), std::hypot(xi, r)) * degPerRad};
    }
    const StarPlate good = plateThrough(stars);
    ASSERT_TRUE(good.plate);
    EXPECT_LT(*std::ranges::max_element(good.offPixels), 0.3);  // the tangent point is a star, not the middle
    stars[3].pixel.x += 40.0;
    const StarPlate bad = plateThrough(stars);
    EXPECT_EQ(std::ranges::max_element(bad.offPixels) - bad.offPixels.begin(), 3);
    stars = {stars[0], stars[0], stars[0]};
    EXPECT_FALSE(plateThrough(stars).plate);
}

/// A frame with a gradient, noise of 10, 150 stars and holes.
struct Night
{
    std::mt19937 random;
    PixelField field;

    explicit Night(unsigned seed) : random(seed)
    {
        field.width = 1200;
        field.height = 800;
        std::normal_distribution<float> noise(0.0f, 10.0f);
        for (int row = 0; row < field.height; ++row)
            for (int column = 0; column < field.width; ++column)
                field.values.push_back(500.0f + 0.3f * float(column) + 0.1f * float(row) + noise(random));
        for (int star = 0; star < 150; ++star)
            spread(at(field.width), at(field.height), float(20.0 * std::exp(at(6))));
        for (int k = 0; k < 50; ++k)
            field.values[std::size_t(at(field.width)) + std::size_t(at(field.height)) * 1200u] = NAN;
    }

    double at(double most) { return std::uniform_real_distribution<double>(0.0, most)(random); }

    void spread(double x, double y, float light)
    {
        for (int row = std::max(int(y) - 5, 0); row < std::min(int(y) + 6, field.height); ++row)
            for (int column = std::max(int(x) - 5, 0); column < std::min(int(x) + 6, field.width); ++column)
                field.values[std::size_t(row * field.width + column)] +=
                    light * float(std::exp(-(std::pow(column - x, 2) + std::pow(row - y, 2)) / 4.5));
    }

    /// A streak of a peak five times the noise and more.
    Streak draw()
    {
        const double angle = at(2.0 * 3.14159265), length = 120.0 + at(600.0), x = 150.0 + at(900.0),
                     y = 150.0 + at(500.0);
        const Streak s{{x, y},
                       {std::clamp(x + length * std::cos(angle), 2.0, 1199.0),
                        std::clamp(y + length * std::sin(angle), 2.0, 799.0)}};
        const double whole = std::hypot(s.to.x - s.from.x, s.to.y - s.from.y), peak = 50.0 + at(100.0);
        for (double k = 0; k <= whole; k += 0.5)  // profiles half a pixel apart add up to sqrt(2 pi) 1.5 / 0.5
            spread(s.from.x - 1 + (s.to.x - s.from.x) * k / whole, s.from.y - 1 + (s.to.y - s.from.y) * k / whole,
                   float(peak / 7.52));
        return s;
    }
};

bool same(const Streak& a, const Streak& b)
{
    constexpr double endPixels = 25.0;
    const auto apart = [](const PicturePoint& p, const PicturePoint& q) { return std::hypot(p.x - q.x, p.y - q.y); };
    return (apart(a.from, b.from) < endPixels && apart(a.to, b.to) < endPixels) ||
           (apart(a.from, b.to) < endPixels && apart(a.to, b.from) < endPixels);
}

TEST(Streaks, AreFoundBetweenStarsOnAGradient)
{
    int drawn = 0, found = 0, wrong = 0;
    for (unsigned seed = 1; seed <= 40; ++seed) {
        Night night(seed);
        std::vector<Streak> truth;
        for (unsigned k = 0; k <= seed % 3; ++k)
            truth.push_back(night.draw());
        const std::vector<Streak> streaks = findStreaks(night.field);
        drawn += int(truth.size());
        for (const Streak& t : truth)
            found += std::ranges::any_of(streaks, [&](const Streak& s) { return same(s, t); });
        for (const Streak& s : streaks)
            wrong += std::ranges::none_of(truth, [&](const Streak& t) { return same(s, t); });
    }
    EXPECT_GE(found, drawn * 95 / 100);
    EXPECT_LE(wrong, 2);
    EXPECT_TRUE(findStreaks(Night(99).field).empty());
}

}  // namespace
