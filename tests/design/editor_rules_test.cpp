#include "design/editor_rules.h"

#include <cmath>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "orbit/mean_motion.h"

namespace {

using editor::Edits;
using editor::Setting;
using editor::Shape;
using Values = std::vector<std::pair<double Shape::*, double>>;

constexpr auto n0 = &Shape::n0, a = &Shape::a, ecc = &Shape::ecc, ndot = &Shape::ndot, adot = &Shape::adot,
               perigee = &Shape::perigee, apogee = &Shape::apogee;
constexpr double incDeg = 51.6;
constexpr Setting simple{incDeg, false, false}, sgp4{incDeg, false, true}, heights{incDeg, true, false};

/// The orbit before an edit, like that of a space station; its forms do not belong together, so that each shows
/// whether it was computed anew.
constexpr Shape station{15.5, 7000.0, 0.01, 0.0003, -0.5, 400.0, 800.0};

const double axis = getsax(0, 15.5, 0.01, incDeg);

struct Rule
{
    const char* what;
    Edits edits;
    Setting setting;
    Values typed;  // what differs from the orbit before
    Values wanted;
};

// The rates: n varies as a^-1.5, and the field of the element set holds half the rate of n.
const Rule rules[] = {
    {"mean motion", {1, 0, 0}, simple, {}, {{n0, 15.5}, {a, axis}}},
    {"mean motion of an SGP4 set", {1, 0, 0}, sgp4, {}, {{n0, 15.5}, {a, getsax(1, 15.5, 0.01, incDeg)}}},
    {"model switched", {3, 0, 0}, sgp4, {}, {{n0, 15.5}, {a, getsax(1, 15.5, 0.01, incDeg)}}},
    {"axis", {2, 0, 0}, simple, {}, {{n0, getn0(7000, 0.01, incDeg)}, {perigee, 551.86}, {apogee, 691.86}}},
    {"mean motion too small", {1, 0, 0}, simple, {{n0, 0.00009}}, {{n0, getn0(7000, 0.01, incDeg)}, {a, 7000}}},
    {"least mean motion", {1, 0, 0}, simple, {{n0, 0.0001}}, {{n0, 0.0001}}},
    {"neither edited", {0, 0, 3}, simple, {{n0, 3}, {a, 9}}, {{n0, 15.5}, {a, 7000}}},
    {"negative axis", {0, 0, 0}, simple, {{a, -1}}, {{n0, 15.5}, {a, axis}, {adot, -0.0004 * axis / 15.5}}},
    {"axis too large to move", {2, 0, 0}, simple, {{a, 1e300}}, {{n0, 0.01}, {a, 1e300}}},
    {"perigee and apogee", {0, 0, 1}, heights, {}, {{a, 6978.14}, {ecc, 200.0 / 6978.14}}},
    {"in the wrong order", {0, 0, 2}, heights, {{perigee, 800}, {apogee, 400}}, {{ecc, 200.0 / 6978.14}}},
    {"nothing edited",
     {0, 0, 0},
     simple,
     {{n0, 3}, {a, 9}, {ndot, 9}, {adot, 9}},
     {{n0, 15.5}, {a, 7000}, {perigee, 551.86}}},
    {"heights without an edit", {0, 0, 0}, heights, {{perigee, 1}}, {{a, 7000}, {n0, 15.5}}},
    {"heights of no ellipse", {0, 0, 1}, heights, {{perigee, -1e5}, {apogee, 1e5}}, {{a, 6378.14}, {ecc, 0.9999999}}},
    {"heights of a parabola", {0, 0, 1}, heights, {{perigee, -6378.14}, {apogee, 6378.14}}, {{ecc, 0.9999999}}},
    {"heights below the centre", {0, 0, 1}, heights, {{perigee, -7e3}, {apogee, -7e3}}, {{a, 1}, {ecc, 0}}},
    {"heights beyond all numbers", {0, 0, 1}, heights, {{perigee, 1.7e308}, {apogee, 1.7e308}}, {{a, 1}, {ecc, 0}}},
    {"q of a hyperbola", {1, 1, 0}, simple, {{ecc, 1.5}, {n0, 7000}}, {{n0, 7000}, {a, -14000}, {apogee, 0}}},
    {"its axis", {2, 1, 0}, simple, {{ecc, 1.5}, {a, -20000}}, {{n0, 10000}, {a, -20000}, {perigee, 0}}},
    {"its q too small", {1, 1, 0}, simple, {{ecc, 1.5}, {n0, 0}, {a, -20000}}, {{n0, 10000}, {a, -20000}}},
    {"a parabola", {1, 1, 0}, simple, {{ecc, 1}, {n0, 7000}}, {{n0, 7000}, {a, 0}}},
    {"a parabola by its axis", {2, 1, 0}, simple, {{ecc, 1}, {a, 5}}, {{n0, 0.01}, {a, 5}}},
    {"a hyperbola not edited", {0, 1, 0}, simple, {{ecc, 1.5}, {n0, 1}, {ndot, 1}}, {{n0, 15.5}, {ndot, 0.0003}}},
    {"ndot", {0, 1, 0}, simple, {}, {{adot, -4.0 / 3.0 * 7000 * 0.0003 / 15.5}, {ndot, 0.0003}}},
    {"adot", {0, 2, 0}, simple, {}, {{ndot, 0.75 * 15.5 * 0.5 / 7000}, {adot, -0.5}}},
    {"ndot stays when the shape changes", {0, 0, 3}, simple, {}, {{adot, -4.0 / 3.0 * 7000 * 0.0003 / 15.5}}},
    {"nothing", {0, 0, 0}, simple, {{ndot, 1}}, {{adot, -0.5}, {ndot, 0.0003}, {n0, 15.5}, {a, 7000}}},
    {"ndot beyond all numbers", {0, 1, 0}, simple, {{ndot, 1e308}}, {{adot, 0}}},
    {"adot beyond all numbers", {0, 2, 0}, simple, {{adot, 1e308}}, {{ndot, 0}}},
};

Shape changed(const Values& values)
{
    Shape orbit = station;
    for (const auto& [form, value] : values)
        orbit.*form = value;
    return orbit;
}

TEST(EditorRules, TheFormEditedLastIsTheMaster)
{
    for (const Rule& rule : rules) {
        SCOPED_TRACE(rule.what);
        const Shape orbit = refreshed(station, changed(rule.typed), rule.edits, rule.setting);
        for (std::size_t k = 0; k < rule.wanted.size(); ++k) {
            const auto& [form, value] = rule.wanted[k];
            EXPECT_NEAR(orbit.*form, value, 1e-12 * std::abs(value)) << k;
        }
        for (const auto form : {n0, a, ecc, ndot, adot, perigee, apogee})
            EXPECT_TRUE(std::isfinite(orbit.*form));
    }
}

TEST(EditorRules, TheStoredMeanMotionStaysInItsRange)
{
    EXPECT_EQ(editor::storedMeanMotion(0.0, 0.1), 0.001);
    EXPECT_EQ(editor::storedMeanMotion(-5.0, 1.5), 0.001);
    EXPECT_EQ(editor::storedMeanMotion(1000.0, 0.1), 100.0);
    EXPECT_EQ(editor::storedMeanMotion(7000.0, 1.5), 7000.0);
}

TEST(EditorRules, KnowTheDaysOfTheCalendar)
{
    for (const auto& [year, month, day] : {std::tuple{2016, 2, 29}, {2000, 2, 29}, {2018, 12, 31}, {1582, 10, 15}})
        EXPECT_TRUE(editor::isDate(year, month, day)) << year << ' ' << month << ' ' << day;
    for (const auto& [year, month, day] : {std::tuple{2018, 2, 29},
                                           {1900, 2, 29},
                                           {2018, 4, 31},
                                           {2018, 1, 0},
                                           {2018, 0, 1},
                                           {2018, 13, 1},
                                           {1582, 10, 5}})
        EXPECT_FALSE(editor::isDate(year, month, day)) << year << ' ' << month << ' ' << day;
}

TEST(EditorRules, AMomentKeepsItsWholeSecond)
{
    const struct
    {
        const char* what;
        double seconds;
        std::vector<int> shown;
    } cases[] = {
        {"short by rounding", 45296.0 - 1e-6, {2018, 1, 1, 12, 34, 56}},
        {"cut off", 45296.9, {2018, 1, 1, 12, 34, 56}},
        {"nearly a minute", 45299.9995, {2018, 1, 1, 12, 35, 0}},
        {"nearly an hour", 46799.9995, {2018, 1, 1, 13, 0, 0}},
    };
    for (const auto& c : cases) {
        const editor::Moment m = editor::moment(58119.0 + c.seconds / 86400.0);
        EXPECT_EQ((std::vector{m.year, m.month, m.day, m.hour, m.minute, m.second}), c.shown) << c.what;
    }
    for (const double mjd : {58138.0 + 1.0 / 3.0, -1e5 + 1.0 / 3.0, 1e6 + 1.0 / 3.0})
        EXPECT_EQ(editor::mjdOf(editor::yearDay(mjd)), mjd);
    EXPECT_NEAR(editor::mjdOf(editor::Moment{2018, 1, 1, 14, 30, 0}, 2.0), 58119.0 + 12.5 / 24.0, 1e-9);
}

}  // namespace
