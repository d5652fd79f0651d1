// States of one satellite over an interval: Orbit Ephemeris Message, CCSDS 502.0-B-3, in keywords and values.
#pragma once

#include <string>

/// What stands before the states.
struct EphemerisHead
{
    std::string object;      // its name
    std::string designator;  // "1998-067A"
    std::string frame;       // of the register of the standard: "EME2000"
    double created = 0;      // MJD UTC, as all times
    double start = 0, stop = 0;
};

/// Position and velocity, km and km/s.
struct EphemerisState
{
    double mjd;  // UTC
    double r[3], v[3];
};

std::string ephemerisHead(const EphemerisHead& head);
std::string ephemerisLine(const EphemerisState& state);
