// Rounding to pixels, and lines through points of which some lie off the picture.
#pragma once

#include <QLine>
#include <QPoint>
#include <algorithm>
#include <vector>

#include "astro/calendar.h"

/// No pixel lies farther from the origin of its axis than this: sums of pixels stay far inside the range of int.
constexpr int farthestPixel = 100000;

/// The nearest whole pixel, half away from zero, held inside plus and minus `farthestPixel`. A value that is no number
/// becomes the farthest pixel, which lies off every picture.
constexpr int nearestPixel(double x)
{
    if (x != x)
        return farthestPixel;
    return std::clamp(truncToInt(x < 0 ? x - 0.5 : x + 0.5), -farthestPixel, farthestPixel);
}

/// The lines that join the points at 0, 1, up to 359 degrees; the first one starts next to 0. A point right of `width`
/// or below `height` breaks the ring.
template <class PointAt>
std::vector<QLine> ringOfLines(const PointAt& pointAt, int width, int height)
{
    const auto shown = [&](const QPoint& p) { return p.x() <= width && p.y() <= height; };
    std::vector<QLine> lines;
    lines.reserve(360);
    QPoint from = pointAt(0.0001);
    for (int degree = 0; degree < 360; ++degree) {
        const QPoint to = pointAt(degree);
        if (shown(from) && shown(to))
            lines.emplace_back(from, to);
        from = to;
    }
    return lines;
}
