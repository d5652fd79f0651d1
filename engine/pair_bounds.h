// What can be said without the orbit model of two satellites that look at each other. For the search for contacts.
#pragma once

#include "engine/pass_bounds.h"

/// The bounds of one search for two slots of a record. The proof stands in pair_bounds.md.
class PairBounds
{
public:
    /// @param sense  1 for a search forward in time, -1 backward
    PairBounds(const WinpData& record, int firstSlot, int secondSlot, double sense);

    /// The bounds of each satellite; they take note of scenes of that satellite.
    PassBounds& first() { return one; }
    PassBounds& second() { return other; }

    /// Whether the two see each other over the limb of the Earth.
    Verdict inSight(double t);

    /// Whether both are in sunlight.
    Verdict bothSunlit(double t);

    /// The elevation of the first over the horizontal plane of the second, degrees.
    PassBounds::Estimate elevation(double t);

private:
    /// For how many days a margin lasts, radians, after what the guides may be off anywhere.
    double lasting(double marginRad) const;
    /// Keeps a verdict for some time to both sides, within the guides.
    void keep(Verdict verdict, double t, double days);

    bool poleKnown;
    PassBounds one, other;
    Verdict kept = Verdict::open;
    double from = 1, to = 0;  // MJD
};
