// orbit/mean_elements.h: elements of the analytic model for a state, by what the model makes of them.
#pragma once

#include "orbit/orbit.h"

/// What decides which state the analytic model gives for elements.
struct AnalyticModel
{
    bool wgs84 = false;
    bool deepSpace = false;
    EarthOrientation earth;
    Corrections corrections;
};

/// That of a record.
AnalyticModel analyticModelOf(const WinpData& in);

/// The elements of a state of the frame of `analyticTurn`: `inc`, `ra`, `ecc`, `aper`, `m0` and `n0`; all else stays.
///
/// They are those of `rv2el`. With `exactInversion` Newton's method goes on from there until the model returns the
/// state to a millimetre and a thousandth of a millimetre per second, or as near to it as it gets.
void putMeanElements(const StateVector& state, const AnalyticModel& model, Elements& elements);
