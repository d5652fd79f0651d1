// Numeric flights for tests: the record of the program as it stands after start-up, with one satellite in slot 0.
#pragma once

#include "astro/vec3.h"
#include "record/winp_data.h"

constexpr double epoch = 58138.0;  // of the flights: 2018 January 20
constexpr double gmM3PerS2 = 398600.4415e9;
constexpr double earthRadiusM = 6378137.0;

/// The record with its defaults, and slot 0 with the default force parameters, no thrust.
WinpData* freshRecord();

/// The same with gravity alone: no Sun, no Moon, no area.
WinpData* gravityRecord();

struct State
{
    Vec3 r, v;  // m, m/s
};

/// The state of osculating elements: m, degrees.
State stateOf(double a, double e, double inc, double ran, double aper, double m0);

/// The epoch state and the current state of slot 0.
void setState(WinpData* in, double time, const State& state);

State currentState(const WinpData& in);

/// NumProp of slot 0 with Sun and Moon of the instant, as the position engine calls it; what it returns, in m.
State flyTo(WinpData* in, double t);

/// Gravity potential up to a degree, m^2/s^2, by Legendre functions in latitude and longitude; r Earth-fixed, m.
long double gravityPotential(long double x, long double y, long double z, int degree);
