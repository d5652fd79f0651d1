// A satellite and a place for the tests of mounts.
#pragma once

#include "engine/site.h"
#include "orbit/orbit.h"

inline constexpr Site vienna{48.2, 16.37, 200.0};

/// SEASAT 1 by its elements of 20 January 2018.
inline Orbit seasat()
{
    Orbit orbit;
    orbit.norad = 10967;
    orbit.propagator = Propagator::analytic;
    orbit.elements = {58138.63020774, 7119.0,      33.9037, 248.9289,    108.0191, 0.000254,
                      111.1583,       14.43691453, 0.0,     -0.00000062, 0.0,      2.2054e-5};
    return orbit;
}
