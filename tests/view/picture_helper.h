// What the tests of the drawing share: pixels of a picture, and how high the Sun stands.
#pragma once

#include <cmath>

#include <QColor>
#include <QImage>
#include <QRect>

#include "astro/angles.h"

namespace pictures {

/// The part of a map picture above its legend.
constexpr QRect wholeMap(0, 0, 721, 362);

inline int pixelsOf(const QImage& image, const QColor& colour, const QRect& where = wholeMap)
{
    int count = 0;
    for (int y = where.top(); y <= where.bottom(); ++y)
        for (int x = where.left(); x <= where.right(); ++x)
            count += image.pixelColor(x, y) == colour;
    return count;
}

inline int differences(const QImage& a, const QImage& b, const QRect& where = wholeMap)
{
    int count = 0;
    for (int y = where.top(); y <= where.bottom(); ++y)
        for (int x = where.left(); x <= where.right(); ++x)
            count += a.pixel(x, y) != b.pixel(x, y);
    return count;
}

/// Elevation of the Sun in degrees at a place, where it stands overhead at `sunLat`, `sunLng`.
inline double sunElevation(double sunLat, double sunLng, double lat, double lng)
{
    const double hour = (lng - sunLng) * radPerDeg;
    return degPerRad * std::asin(std::sin(sunLat * radPerDeg) * std::sin(lat * radPerDeg) +
                                 std::cos(sunLat * radPerDeg) * std::cos(lat * radPerDeg) * std::cos(hour));
}

}  // namespace pictures
