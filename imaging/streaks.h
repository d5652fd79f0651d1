// Straight streaks on a picture.
#pragma once

#include "imaging/sky_picture.h"

#include <vector>

/// Two ends, in pixels from 1; y counts downward from the top row.
struct Streak
{
    PicturePoint from, to;
    double signal = 0;  // of the whole streak over its noise
};

/// The streaks of a picture, the strongest first; those of a twentieth of its diagonal and more. Stars, a gradient and
/// pixels without a number do not disturb.
///
/// The picture is averaged down to some thousand pixels, freed of its background, and the pixels above the noise vote for
/// the lines that go through them (Duda and Hart, Commun. ACM 15, 11, 1972); on the best line the longest run is taken.
std::vector<Streak> findStreaks(const PixelField& pixels, int most = 5);
