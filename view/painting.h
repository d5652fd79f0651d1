// What the drawing of maps, sky and disks has in common.
#pragma once

#include <QColor>
#include <QLine>
#include <QPainter>
#include <QPixmap>
#include <QRect>
#include <vector>

/// Where the legend begins under every map.
constexpr int legendTop = 362;

/// The part of the display that holds a map or a sky.
constexpr QRect mapPicture(0, 0, 721, legendTop);

/// The size of the text display.
constexpr QSize textSize(860, 2500);

/// The line that ends a map or sky on the right.
constexpr QLine rightBorder(720, 0, 720, 361);

/// The rectangle from `reach` pixels left of and above a point to `reach` - 1 right of and below it. With the line of
/// the pen around it a figure in it is symmetric about the point.
inline QRect boxAbout(const QPoint& p, int reach)
{
    return {p - QPoint(reach, reach), p + QPoint(reach - 1, reach - 1)};
}

/// A picture for a screen with this scale: it has that many pixels for one of its size, in which it is painted.
QPixmap pixmapOf(const QSize& size, double scale);

/// Copies a part of a picture to the same place of another one of the same scale, cut at the borders of their own
/// pixels, so that parts side by side make the whole.
void copyPart(QPainter& painter, const QPixmap& from, const QRect& part);

/// One call for all lines; the pixels are those of single ones.
inline void drawAll(QPainter& painter, const std::vector<QLine>& lines)
{
    painter.drawLines(lines.data(), static_cast<int>(lines.size()));
}

inline void drawAll(QPainter& painter, const std::vector<QPoint>& points)
{
    painter.drawPoints(points.data(), static_cast<int>(points.size()));
}

/// Pen and brush in one colour.
inline void fillWith(QPainter& painter, const QColor& colour)
{
    painter.setPen(colour);
    painter.setBrush(colour);
}
