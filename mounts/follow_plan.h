// What a mount is told from second to second to follow a satellite. Values only: no clock, no network.
#pragma once

#include <optional>

#include "engine/prediction.h"
#include "mounts/aim.h"

/// Where a mount may point.
struct FollowLimits
{
    double leastElevation = 10;    // degrees, without refraction
    double leastSunDistance = 30;  // degrees from the Sun's centre; 0 allows every distance
};

/// What is to be done at an instant.
struct FollowStep
{
    enum class Kind
    {
        follow,   // point at `aim`
        slew,     // go to `aim`, where the pass begins at `start`, and stay there
        wait,     // nothing yet: the pass begins at `start`
        sunNear,  // stop: the satellite is up, but too near to the Sun
        noPass    // nothing comes up within the next days
    };

    Kind kind = Kind::noPass;
    Aim aim;
    double start = 0;  // MJD UTC
};

/// The way of a mount through the passes of one satellite over one site, sunlit or not, by night or day.
class FollowPlan
{
public:
    /// How long before a pass a mount is sent to its start. A place on the sky sinks by little more than a degree in
    /// this time, so that a mount that goes with the sky stays clear of the ground.
    static constexpr double slewAheadDays = 5.0 / 1440.0;
    /// How far ahead passes are looked for.
    static constexpr double horizonDays = 2.0;

    FollowPlan(const Orbit& orbit, const Site& site, const Models& models, const FollowLimits& limits);

    /// The step for an instant. Times that go on are quick; one before the last call works as well.
    FollowStep at(double mjd);

    /// Where the satellite stands, by any limits.
    Aim aimAt(double mjd);

    /// Degrees between a direction and the Sun's centre at this site.
    double sunDistance(const Aim& aim) const;

private:
    struct Look
    {
        Aim aim;
        double elevation;  // without refraction
    };

    Look look(double mjd);
    bool clearOfSun(const Aim& aim) const;
    std::optional<Aim> nextStart(double mjd);
    std::optional<Aim> firstClearOfSun(const Pass& pass);

    Site site;
    FollowLimits limits;
    Predictor ofDate, of2000, search;
    double searchedFrom = 0, searchedUntil = -1;  // while the time is between these, `start` holds
    std::optional<Aim> start;
};
