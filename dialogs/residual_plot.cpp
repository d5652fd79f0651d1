#include "dialogs/residual_plot.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace {

constexpr double dotPixels = 3.5;

QColor alongColour()
{
    return {200, 60, 30};
}

QColor acrossColour()
{
    return {30, 90, 200};
}

/// The next of 1, 2, 5, 10, ... above a value.
double roundedUp(double value)
{
    const double power = std::pow(10.0, std::floor(std::log10(std::max(value, 1e-3))));
    for (const double step : {1.0, 2.0, 5.0})
        if (value <= step * power)
            return step * power;
    return 10.0 * power;
}

/// A frame with its two middle lines.
void drawAxes(QPainter& painter, const QRectF& box, bool upright)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(painter.background().color() == Qt::black ? Qt::white : Qt::gray);
    painter.drawRect(box);
    painter.setPen(QPen(Qt::gray, 1, Qt::DotLine));
    painter.drawLine(QPointF(box.left(), box.center().y()), QPointF(box.right(), box.center().y()));
    if (upright)
        painter.drawLine(QPointF(box.center().x(), box.top()), QPointF(box.center().x(), box.bottom()));
}

/// What is left out of the fit is hollow.
void drawDot(QPainter& painter, const QPointF& at, const QColor& colour, bool used)
{
    painter.setPen(colour);
    painter.setBrush(used ? QBrush(colour) : QBrush(Qt::NoBrush));
    painter.drawEllipse(at, dotPixels, dotPixels);
}

}  // namespace

ResidualPlot::ResidualPlot(QWidget* parent) : QWidget(parent)
{
    setMinimumSize(360, 190);
    setObjectName(QStringLiteral("residualPlot"));
    setAccessibleName(tr("Residuals as a picture"));
    setWhatsThis(
        tr("What the fit leaves. On the left along the track (to the right: the satellite was ahead) against "
           "across (upwards: it was to the left of its motion); on the right both over time, along in red, "
           "across in blue. Hollow dots are left out of the fit."));
}

void ResidualPlot::setPoints(const std::vector<Point>& shown)
{
    points = shown;
    double most = 0;
    for (const Point& p : points)
        most = std::max({most, std::abs(p.along), std::abs(p.across)});
    reach = roundedUp(std::isfinite(most) ? most : 1.0);
    update();
}

void ResidualPlot::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double line = fontMetrics().height(), side = std::min(width() * 0.45, height() - 2.2 * line);
    const QRectF left(2, line, side, side);
    const QRectF right(left.right() + line, line, width() - left.right() - line - 3, side);
    drawAgainstEachOther(painter, left);
    drawOverTime(painter, right);
}

void ResidualPlot::drawAgainstEachOther(QPainter& painter, const QRectF& box) const
{
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QPointF(box.left(), box.top() - 4), tr("across / along, +-%1\"").arg(reach));
    drawAxes(painter, box, true);
    for (const Point& p : points)
        drawDot(painter,
                {box.center().x() + p.along / reach * box.width() / 2,
                 box.center().y() - p.across / reach * box.height() / 2},
                palette().color(QPalette::WindowText), p.used);
}

void ResidualPlot::drawOverTime(QPainter& painter, const QRectF& box) const
{
    painter.setPen(alongColour());
    painter.drawText(QPointF(box.left(), box.top() - 4), tr("along"));
    painter.setPen(acrossColour());
    painter.drawText(QPointF(box.left() + fontMetrics().horizontalAdvance(tr("along") + "  "), box.top() - 4),
                     tr("across"));
    drawAxes(painter, box, false);
    if (points.empty())
        return;
    const auto [first, last] = std::ranges::minmax(points, {}, &Point::mjd);
    const double span = std::max(last.mjd - first.mjd, 1e-6);
    for (const Point& p : points) {
        const double x = box.left() + (0.02 + 0.96 * (p.mjd - first.mjd) / span) * box.width();
        const auto y = [&](double value) { return box.center().y() - value / reach * box.height() / 2; };
        drawDot(painter, {x, y(p.along)}, alongColour(), p.used);
        drawDot(painter, {x, y(p.across)}, acrossColour(), p.used);
    }
    painter.setPen(palette().color(QPalette::WindowText));
    const double below = box.bottom() + fontMetrics().ascent() + 2;
    const QString text = tr("%1 days").arg(span, 0, 'f', 2);
    painter.drawText(QPointF(box.right() - fontMetrics().horizontalAdvance(text), below), text);
}
