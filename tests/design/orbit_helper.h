// Satellites for the tests of orbit design, in the record of the program: the integrator knows no other.
#pragma once

#include "app/record/winp_data.h"
#include "astro/vec3.h"

constexpr double gmKm3PerS2 = 398600.4415;
constexpr double equatorKm = 6378.137;

/// The record with its defaults, an observer in Vienna on 2018-01-20 0h UTC, coordinates true of date, no satellite.
WinpData* freshRecord();

/// Adds a circular orbit (km, degrees) of the simple Keplerian model with its node at `ra`, at latitude argument `u` at
/// the time of the record.
void addCircle(WinpData* in, double a, double inc, double ra, double u);

/// Adds the satellite of a catalogue number as the program reads it from a file of tests/data/elements.
void addSatellite(WinpData* in, const char* file, int norad);

struct State
{
    Vec3 r, v;  // km, km/s
};

/// The state that the position engine leaves in the record: mean equator of date.
State stateAt(WinpData* in, int slot, double t);

/// Axis of the orbit of a state, km.
double axisOf(const State& state);

double eccentricityOf(const State& state);

/// Whether elements and epoch state of a slot are finite numbers.
bool elementsAreFinite(const WinpData& in, int slot);

/// Texts of a field that are no good numbers, as numbers.
inline constexpr double badNumbers[] = {0.0, -1.0, 1e300, -1e300, 1e20, -1e9};
