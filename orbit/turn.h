// orbit/turn.h: the remainder of an angle in a turn, quicker than the standard function.
#pragma once

#include <cmath>

#include "astro/angles.h"
#include "orbit/lanes.h"

namespace {

inline double standardRemainder(double x)
{
    return std::fmod(x, twoPi);
}

inline Lanes standardRemainder(const Lanes& x)
{
    return laneByLane(standardRemainder, x);
}

/// std::fmod(x, twoPi), the same number for every x; of a double or of `Lanes`.
template <class T>
T withinTurn(T x)
{
    // twoPi in two, so that the products below are exact; with them the differences are exact too
    constexpr double top = 6.283185303211212, rest = twoPi - top;
    constexpr double reach = 6e6;  // below a million turns
    const T size = magnitude(x);
    if (!all(size < reach))
        return standardRemainder(x);
    const T turns = nearInteger(size * (1.0 / twoPi));  // or one too many or too few
    T left = (size - turns * top) - turns * rest;
    left = select(left < 0.0, left + twoPi, left);
    left = select(left >= twoPi, left - twoPi, left);
    return withSign(left, x);
}

}  // namespace
