// A cheap stand-in for the analytic model, with a proven bound on how far the model's position may lie from it.
#pragma once

#include "orbit/sgp4.h"
#include "record/winp_data.h"

/// The ellipse that SGP4 and SDP4 draw with their secular and long-period terms alone. What is left out are periodic
/// terms; the sum of their amplitudes bounds the distance of the model's position, `offKm`. The proof stands in
/// guide_orbit.md.
class GuideOrbit
{
public:
    /// A satellite in its plane, from the Earth's centre.
    struct Place
    {
        double x, y;   // km, toward the node and 90 degrees ahead of it
        double node;   // radians, right ascension
        double r;      // km
        double offKm;  // the model's position is not farther away, turned to the true equator of date
    };

    /// No guide: nothing can be said.
    GuideOrbit() = default;

    /// The guide of an element set between two times, minutes from epoch in either order.
    ///
    /// `usable` is false where the bound cannot be shown: no guarantee that the model gives no error, a perigee too
    /// low, an eccentricity or an inclination near the limits of the theory, drag that changes the orbit much.
    GuideOrbit(const WinpData& in, const elsetrec& sat, double from, double to);

    bool usable() const { return good; }

    /// @param t  minutes from epoch, inside the times of the guide
    /// @return   false if Kepler's equation was not solved
    bool place(double t, Place& to);

    double cosInclination() const { return cosi; }
    double sinInclination() const { return sini; }
    double farthestOffKm() const { return farthestOff; }   // `offKm` of every place
    double fastestKmPerMinute() const { return fastest; }  // of the guide itself, in space
    double farthestKm() const { return farthest; }         // from the Earth's centre
    double nearestKm() const { return nearest; }           // the same, of the guide

private:
    struct Line
    {
        double start, rate;
        double at(double t) const { return start + rate * t; }
    };

    struct Reach
    {
        double minutes;            // farthest time from epoch
        double eccLow, eccHigh;    // of the guide and of the model
        double axisLow, axisHigh;  // Earth radii
    };

    /// Mean elements at epoch, their rates, and the powers of the time by which drag changes them.
    void setSecular(const elsetrec& sat);
    /// Adds the secular rates by Moon and Sun, for SDP4.
    void setDeep(const elsetrec& sat);
    /// A straight line for the mean anomaly of a resonant orbit; false where none can be shown to hold.
    bool setResonance(elsetrec sat, double from, double to);
    /// Adds the amplitudes of the periodic terms of drag, up to T minutes from epoch.
    void addDrag(const elsetrec& sat, double T);
    /// Adds those by Moon and Sun, and the change of the inclination up to T minutes from epoch.
    void addMoonAndSun(const elsetrec& sat, double T);
    /// Fills `reach`; false where the bound cannot be shown.
    bool withinTheory(const elsetrec& sat, double from, double to);
    /// The least distance of a perigee from the Earth's centre, Earth radii.
    double lowestPerigeeOf() const;
    /// Fills what holds at every place: distance from the model, speed, distance from the Earth.
    void setBounds(const elsetrec& sat);
    /// What drag leaves of the square root of the axis, t minutes from epoch.
    double axisFactor(double t) const;
    /// What drag adds to the mean longitude, radians.
    double longitudeByDrag(double t) const;
    /// The short-period terms left out, km; r in km, p (semi-latus rectum) in Earth radii.
    double shortPeriodKm(double r, double p) const;
    /// The bound on the distance from the model at a place, km; r and a in km, p in Earth radii.
    double offAt(double r, double e, double a, double p) const;

    bool good = false;
    bool deep = false;
    double earthRadius = 0, j2 = 0;

    Line anomaly{}, perigee{}, nodeLine{}, ecc{};
    double nodeSquared = 0;
    double axis = 0;                        // at epoch, Earth radii
    double d1 = 0, d2 = 0, d3 = 0, d4 = 0;  // drag: axis
    double l2 = 0, l3 = 0, l4 = 0, l5 = 0;  // drag: mean longitude, radians
    double xlcof = 0, aycof = 0;
    double con41 = 0, x1mth2 = 0, x7thm1 = 0;
    double cosi = 1, sini = 0;

    // Amplitudes of what is left out.
    double eccOff = 0;        // eccentricity
    double anomalyOff = 0;    // mean anomaly, radians, perigee opposite to it
    double longitudeOff = 0;  // mean anomaly, radians
    double turnOff = 0;       // turns of the whole orbit, radians

    Reach reach{};
    double farthestOff = 0, fastest = 0, farthest = 0, nearest = 0;

    double cachedPerigee = 0, sinPerigee = 0, cosPerigee = 1;
    double lastAnomaly = 0, lastF = 0;
};
