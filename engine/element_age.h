// How old elements are, and how far a satellite may be from where they say.
#pragma once

struct WinpData;

/// The drag that elements tell is known no better than to this share of itself, unless somebody knows better.
constexpr double usualDecayUncertainty = 0.1;

/// How far ahead or behind a satellite is expected to be along its orbit, seconds.
///
/// What an error of the decay rate makes of the drag term, 86400 u (ndot/2) dt^2 / (n0 + ndot dt) (Molczan), and at
/// least the plain growth a day that docs/accuracy.md tells, which stands alone for deep orbits and without drag: 0.1 s of
/// low orbits, 0.2 s of deep ones, 0.8 s near synchronous ones and slower, 7 s of eccentric deep ones.
///
/// @param days         between the epoch and the time, of either sign
/// @param halfNdot     half the first derivative of the mean motion, rev/day^2, as elements have it
/// @param revPerDay    the mean motion at the epoch
/// @param ecc          the eccentricity
/// @param uncertainty  of the decay rate, a share of it
/// @return             infinite where the satellite has come down by the drag term
double errorAlongTrack(double days, double halfNdot, double revPerDay, double ecc, double uncertainty);

/// Elements at a time.
struct ElementAge
{
    double days = 0;     // from the epoch, without sign
    double seconds = 0;  // see `errorAlongTrack`
};

/// Of the elements of a slot; those of a numeric orbit count from its epoch as well.
ElementAge elementAge(const WinpData& in, int slot, double mjd, double uncertainty);

/// What to make of it.
enum class Freshness
{
    fresh,
    doubtful,  // from 5 seconds or 7 days on
    stale      // from 30 seconds or 30 days on
};
Freshness freshnessOf(const ElementAge& age);
