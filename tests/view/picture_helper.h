// What the tests of the drawing share: pixels of a picture.
#pragma once

#include <QColor>
#include <QImage>
#include <QRect>

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

}  // namespace pictures
