// A sighting of a satellite as a value: when, where in the sky, from which station, how sure, how bright.
#pragma once

#include <optional>
#include <string>

/// What the two angles of an observation are.
enum class SkyAngles
{
    none,        // no position: a brightness, or a note that nothing could be seen
    equatorial,  // right ascension and declination
    horizontal   // azimuth from north through east, and elevation
};

struct Observation
{
    int number = 0;          // catalogue number; 0: none
    std::string designator;  // "1996-029D"; empty: none
    int station = 0;
    char condition = ' ';  // of the sky: E, G, F, P, B, T; C clouded out, O nobody there

    double mjd = 0;        // UTC
    double timeError = 0;  // seconds; 0: not told

    SkyAngles angles = SkyAngles::none;
    double first = 0;        // degrees
    double second = 0;       // degrees
    double equinox = 0;      // year of the equator and equinox; 0: of date
    bool refracted = false;  // an elevation as it was seen, refraction not taken off
    double angleError = 0;   // degrees on the sphere; 0: not told
    int angleCode = 0;       // the form of the angles in the line that was read, IOD 1 to 7 or UK 1 to 9; 0: none

    char behaviour = ' ';             // as IOD has it: S steady, F flashing, I irregular, ...
    std::optional<double> magnitude;  // the brightest
    std::optional<double> faintest;
    bool fadedOut = false;  // fainter than could be seen
    double magnitudeError = 0;
    double period = 0;  // of flashes, seconds; 0: none

    int line = 0;  // of the file it was read from, from 1
};
