// The drawing of a pass: its arc on a dome of the sky, and elevation, magnitude and range over time below.
#pragma once

#include <QColor>
#include <QRectF>
#include <optional>

#include "reports/pass_chart.h"

class QPainter;
class QPointF;

/// The size in which the drawing is laid out; it is scaled from there.
constexpr QSizeF passChartSize(640, 860);

/// Letters and lines on a ground.
struct ChartColours
{
    QColor ground = Qt::white, ink = Qt::black;
};

/// The whole drawing within a rectangle `passChartSize`; `marked` is the point that a person reads.
void drawPassChart(QPainter& painter, const PassChart& chart, const ChartColours& colours,
                   std::optional<std::size_t> marked = std::nullopt);

/// The point of the curve that a place of the drawing means: the nearest on the dome, below it that of the time.
std::optional<std::size_t> chartPointAt(const PassChart& chart, const QPointF& place);
