// Who is on a picture.
#pragma once

#include "imaging/streaks.h"
#include "observing/field.h"

#include <optional>
#include <vector>

/// A picture with everything that is needed to name the satellites on it.
struct ExposedPicture
{
    PlateSolution* plate = nullptr;
    int width = 0, height = 0;
    double begin = 0;     // MJD UTC
    double exposure = 0;  // seconds
    double equinox = 2000;
    Site site;
    EarthOrientation earth;
    std::vector<Streak> streaks;  // y as the plate counts
    double slackSeconds = 20;     // how much earlier or later than its elements say a satellite may fit a streak
};

/// How a streak lies against the way of a satellite.
struct StreakMatch
{
    std::size_t streak = 0;
    double ahead = 0;   // seconds that the satellite is ahead of its elements
    double across = 0;  // arc minutes, to the left of the motion in the sky
    double angle = 0;   // degrees between the two
    /// The smaller the better.
    double misfit() const;
};

struct PictureTrail
{
    FieldCrossing crossing;          // with the times within the frame during the exposure; with a match alone those
                                     // of the way near the streak
    std::vector<PicturePoint> line;  // what it leaves on the picture; empty if it passes by
    std::optional<StreakMatch> match;
};

/// The circle around the frame; nothing where the plate fails.
std::optional<SkyField> fieldAround(const ExposedPicture& picture);

/// Every satellite of `tlename` that crosses the frame during the exposure, or fits a streak; those that fit come first,
/// the best in front.
///
/// @return  nothing if the element file cannot be opened or the plate fails
std::optional<std::vector<PictureTrail>> satellitesOn(WinpData* in, const ExposedPicture& picture,
                                                      const BrightnessBook& book);
