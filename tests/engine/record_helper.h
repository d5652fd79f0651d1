// What the tests of the engine have in common: input records with element sets straight from a file, the position of an
// instant, directions, and the files of figures.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "astro/vec3.h"
#include "engine/aos_list.h"
#include "engine/prediction.h"
#include "engine/satpos_data.h"
#include "record/winp_data.h"

constexpr double minuteDays = 1.0 / 1440.0;
constexpr double secondDays = 1.0 / 86400.0;

constexpr Site vienna{48.25, 16.5, 200.0};

/// A record with the defaults of a run and an observer, and no satellite. Coordinates are true of date; the air neither
/// bends nor dims.
WinpData recordAt(const Site& site);

/// The same with the analytic element sets of catalogue numbers, one behind the other, read from a file of
/// tests/data/elements. The fields are cut out of the columns; the reader of the program has no part in it.
WinpData recordWith(std::initializer_list<int> norads, const Site& site = vienna,
                    const char* file = "visual_2018.txt");

/// What GetSatPos finds, in a record of its own.
SatPosData positionAt(double t, WinpData& in, int slot = 0, int vis = 0);

/// A unit vector by azimuth and elevation, or longitude and latitude, degrees.
Vec3 direction(double around, double up);

/// Degrees.
double angleBetween(const Vec3& a, const Vec3& b);

/// A heading of a file of figures and the lines behind it, cut into words.
struct Section
{
    std::vector<std::string> head;
    std::vector<std::vector<std::string>> rows;

    /// The three words of the heading from this one on.
    Site siteAt(std::size_t word) const;
};

/// The sections of a file of tests/data/passes.
std::vector<Section> sectionsOf(const char* file);

/// Passes found by another program.
struct ReferenceList
{
    std::string what;
    WinpData record;  // with the satellite of visual_2018.txt, from 2018-01-20 0h UTC on for 3.1 days
    std::vector<Pass> passes;
};

std::vector<ReferenceList> referenceLists();

/// The first list of the station: over Vienna, above 10 degrees, whatever the light.
ReferenceList stationOverVienna();

/// Part of a pass, and what GetIrid makes of it.
struct EventSearch : Pass
{
    EventSearch(double from, double to) : Pass{{from, from, to}, {}, {}} {}

    int in(WinpData& record, int flag = 1);
};
