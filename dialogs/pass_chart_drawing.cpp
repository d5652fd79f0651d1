#include "dialogs/pass_chart_drawing.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <array>
#include <cmath>

#include "astro/angles.h"
#include "engine/horizon_line.h"

namespace {

using Point = PassChart::Point;

constexpr QPointF zenith(320, 285);
constexpr double domeRadius = 225;
constexpr QRectF graphs(70, 545, 545, 285);  // of three
constexpr double graphGap = 12;
constexpr double letterPixels = 12;
constexpr int farAwayPixels = 40;           // between two labels
constexpr double lowestMagnitudeDeg = 1.0;  // below it the air takes nobody knows how much

QString tr(const char* text)
{
    return QCoreApplication::translate("PassChart", text);
}

/// Stereographic, as from below: North up, East on the left.
QPointF domePoint(double az, double el)
{
    const double a = az * radPerDeg, e = std::max(el, -5.0) * radPerDeg;
    const double r = domeRadius * std::cos(e) / (1.0 + std::sin(e));
    return zenith + QPointF(-r * std::sin(a), -r * std::cos(a));
}

QPointF domePoint(const Point& p)
{
    return domePoint(p.az, p.el);
}

QColor mixed(const ChartColours& c, double ink)
{
    const auto part = [ink](int a, int b) { return static_cast<int>(a * ink + b * (1.0 - ink)); };
    return {part(c.ink.red(), c.ground.red()), part(c.ink.green(), c.ground.green()),
            part(c.ink.blue(), c.ground.blue())};
}

void write(QPainter& painter, const QPointF& centre, const QString& text)
{
    constexpr QPointF reach(100, 10);
    painter.drawText(QRectF(centre - reach, centre + reach), Qt::AlignCenter, text);
}

void drawDome(QPainter& painter, const ChartColours& colours)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(mixed(colours, 0.25), 0.8));
    for (const double el : {30.0, 60.0}) {
        const double r = zenith.y() - domePoint(0.0, el).y();
        painter.drawEllipse(zenith, r, r);
        painter.setPen(mixed(colours, 0.6));
        write(painter, domePoint(0.0, el) + QPointF(12, -7), QString::number(el));
        painter.setPen(QPen(mixed(colours, 0.25), 0.8));
    }
    for (int az = 0; az < 180; az += 45)
        painter.drawLine(domePoint(az, 0.0), domePoint(az + 180.0, 0.0));
    painter.setPen(QPen(colours.ink, 1.5));
    painter.drawEllipse(zenith, domeRadius, domeRadius);
    const std::array<QString, 8> names{tr("N"), tr("NE"), tr("E"), tr("SE"), tr("S"), tr("SW"), tr("W"), tr("NW")};
    for (int k = 0; k < 8; ++k)
        write(painter, zenith + (domePoint(45.0 * k, 0.0) - zenith) * 1.07, names[static_cast<std::size_t>(k)]);
}

/// What houses and hills hide.
void drawGround(QPainter& painter, const HorizonLine& line, const ChartColours& colours)
{
    QPainterPath hidden;
    hidden.addEllipse(zenith, domeRadius, domeRadius);
    QPolygonF edge;
    for (int az = 0; az <= 360; ++az)
        edge << domePoint(az, std::max(line.at(az), 0.0));
    QPainterPath sky;
    sky.addPolygon(edge);
    painter.setPen(QPen(mixed(colours, 0.5), 1.0));
    painter.setBrush(mixed(colours, 0.2));
    painter.drawPath(hidden.subtracted(sky));
    painter.setBrush(Qt::NoBrush);
}

void drawLights(QPainter& painter, const PassChart& chart, const ChartColours& colours)
{
    constexpr double faintest = 5.0, bodyRadius = 5.0;
    for (const ChartLight& light : chart.lights) {
        const QPointF at = domePoint(light.az, light.el);
        painter.setPen(Qt::NoPen);
        painter.setBrush(mixed(colours, light.name.isEmpty() ? 0.55 : 0.8));
        const double r = light.name.isEmpty() ? 0.35 * (faintest - light.magnitude) + 0.2 : bodyRadius;
        painter.drawEllipse(at, r, r);
        painter.setPen(colours.ink);
        if (!light.name.isEmpty())
            write(painter, at + QPointF(0, -12), light.name);
    }
    painter.setBrush(Qt::NoBrush);
}

/// Solid in sunlight, dotted in the shadow, between points that have a place.
template <class Place>
void drawCurve(QPainter& painter, const PassChart& chart, const ChartColours& colours, const Place& place)
{
    for (const bool sunlit : {true, false}) {
        QPainterPath curve;
        for (std::size_t i = 1; i < chart.points.size(); ++i) {
            if (chart.points[i - 1].sunlit != sunlit)
                continue;
            const std::optional<QPointF> from = place(chart.points[i - 1]), to = place(chart.points[i]);
            if (!from || !to)
                continue;
            if (curve.isEmpty() || curve.currentPosition() != *from)
                curve.moveTo(*from);
            curve.lineTo(*to);
        }
        painter.setPen(QPen(colours.ink, sunlit ? 2.0 : 1.5, sunlit ? Qt::SolidLine : Qt::DotLine));
        painter.drawPath(curve);
    }
}

std::size_t indexAt(const PassChart& chart, double mjd)
{
    const double first = chart.points.front().mjd, span = chart.points.back().mjd - first;
    const double part = std::clamp((mjd - first) / span, 0.0, 1.0);
    return static_cast<std::size_t>(std::lround(part * static_cast<double>(chart.points.size() - 1)));
}

/// Minutes between two marks, so that there are at most some thirty.
int minutesApart(const PassChart& chart)
{
    const double minutes = (chart.points.back().mjd - chart.points.front().mjd) * 1440.0;
    for (const int step : {1, 2, 5, 10, 30})
        if (minutes / step <= 30.0)
            return step;
    return 60;
}

/// The whole minutes of the pass in the time zone of the chart, MJD UTC.
std::vector<double> wholeMinutes(const PassChart& chart)
{
    const double perDay = 1440.0 / minutesApart(chart), zone = chart.tzone / 24.0;
    std::vector<double> marks;
    for (double k = std::ceil((chart.points.front().mjd + zone) * perDay);; ++k) {
        marks.push_back(k / perDay - zone);
        if (marks.back() > chart.points.back().mjd)
            break;
    }
    marks.pop_back();
    return marks;
}

/// Between the two points around it.
Point pointNear(const PassChart& chart, double mjd)
{
    const std::size_t i = indexAt(chart, mjd),
                      j = chart.points[i].mjd < mjd ? std::min(i + 1, chart.points.size() - 1) : (i > 0 ? i - 1 : 0);
    const Point &a = chart.points[i], &b = chart.points[j];
    return std::abs(a.mjd - mjd) <= std::abs(b.mjd - mjd) ? a : b;
}

void drawMinutes(QPainter& painter, const PassChart& chart, const ChartColours& colours)
{
    std::optional<QPointF> lastLabel;
    for (const double mjd : wholeMinutes(chart)) {
        const std::size_t i = indexAt(chart, mjd);
        const QPointF before = domePoint(chart.points[i > 0 ? i - 1 : 0]),
                      after = domePoint(chart.points[std::min(i + 1, chart.points.size() - 1)]);
        const QPointF along = after - before, at = domePoint(pointNear(chart, mjd));
        const double length = std::max(std::hypot(along.x(), along.y()), 1e-9);
        const QPointF aside(-along.y() / length, along.x() / length);
        painter.setPen(QPen(colours.ink, 1.2));
        painter.drawLine(at - aside * 5.0, at + aside * 5.0);
        const QPointF label = at + QPointF(aside.x() * 24.0, aside.y() * 14.0);
        const QPointF away = lastLabel ? label - *lastLabel : QPointF(1e3, 0);
        if (std::hypot(away.x(), away.y()) < farAwayPixels)
            continue;
        write(painter, label, chartTime(chart, mjd, false));
        lastLabel = label;
    }
}

void drawShadow(QPainter& painter, const PassChart& chart, const ChartColours& colours)
{
    painter.setPen(QPen(colours.ink, 1.5));
    painter.setBrush(colours.ground);
    for (const Point& change : chart.changes) {
        const QPointF at = domePoint(change);
        painter.drawEllipse(at, 5.0, 5.0);
        const double side = at.x() < zenith.x() ? 1.0 : -1.0;
        write(painter, at + QPointF(side * 78.0, 0),
              (change.sunlit ? tr("sunlight %1") : tr("shadow %1")).arg(chartTime(chart, change.mjd)));
    }
    painter.setBrush(Qt::NoBrush);
}

/// One of the three curves over time.
struct Graph
{
    QString title;
    double low = 0, high = 1;
    int decimals = 0;
    QRectF box;
    std::optional<double> (*value)(const Point&);

    double y(double v) const { return box.bottom() - (v - low) / (high - low) * box.height(); }
};

/// Two to five round numbers between two limits, in whichever order.
std::vector<double> roundValues(double a, double b)
{
    const double low = std::min(a, b), high = std::max(a, b), span = std::max(high - low, 1e-6);
    const double power = std::pow(10.0, std::floor(std::log10(span)));
    const double step = power * (span <= 2.5 * power ? 0.5 : span <= 5.0 * power ? 1.0 : 2.0);
    std::vector<double> values;
    for (double v = std::ceil(low / step) * step; v <= high; v += step)
        values.push_back(v);
    return values;
}

double timeToX(const PassChart& chart, double mjd)
{
    const double first = chart.points.front().mjd, span = chart.points.back().mjd - first;
    return graphs.left() + (mjd - first) / span * graphs.width();
}

Graph graphOf(const PassChart& chart, Graph graph, int place)
{
    const double height = (graphs.height() - 2 * graphGap) / 3;
    graph.box = QRectF(graphs.left(), graphs.top() + place * (height + graphGap), graphs.width(), height);
    double low = 1e9, high = -1e9;
    for (const Point& p : chart.points)
        if (const auto v = graph.value(p)) {
            low = std::min(low, *v);
            high = std::max(high, *v);
        }
    if (low > high)
        return graph;
    const double margin = std::max((high - low) * 0.08, 0.05);
    const bool upsideDown = graph.low > graph.high;  // as magnitudes are
    graph.low = upsideDown ? high + margin : low - margin;
    graph.high = upsideDown ? low - margin : high + margin;
    return graph;
}

void drawGraph(QPainter& painter, const PassChart& chart, const Graph& graph, const ChartColours& colours)
{
    painter.setPen(QPen(mixed(colours, 0.4), 0.8));
    painter.drawRect(graph.box);
    for (const double mjd : wholeMinutes(chart))
        painter.drawLine(QPointF(timeToX(chart, mjd), graph.box.bottom() - 4),
                         QPointF(timeToX(chart, mjd), graph.box.bottom()));
    painter.setPen(colours.ink);
    painter.drawText(QRectF(graph.box.left() + 6, graph.box.top() + 2, 300, 18), Qt::AlignLeft, graph.title);
    if (std::ranges::none_of(chart.points, [&](const Point& p) { return graph.value(p).has_value(); })) {
        const bool dark = std::ranges::none_of(chart.points, &Point::sunlit);
        write(painter, graph.box.center(), dark ? tr("in shadow") : tr("not known"));
        return;
    }
    for (const double v : roundValues(graph.low, graph.high)) {
        painter.drawLine(QPointF(graph.box.left(), graph.y(v)), QPointF(graph.box.left() - 4, graph.y(v)));
        painter.drawText(QRectF(0, graph.y(v) - 9, graphs.left() - 6, 18), Qt::AlignRight | Qt::AlignVCenter,
                         QString::number(v, 'f', graph.decimals));
    }
    const auto place = [&](const Point& p) {
        const auto v = graph.value(p);
        return v ? std::optional(QPointF(timeToX(chart, p.mjd), graph.y(*v))) : std::nullopt;
    };
    drawCurve(painter, chart, colours, place);
}

std::array<Graph, 3> graphsOf(const PassChart& chart)
{
    return {graphOf(chart,
                    {tr("Elevation, degrees"), 0, 90, 0, {}, [](const Point& p) { return std::optional(p.el); }}, 0),
            graphOf(chart,
                    {tr("Magnitude"),
                     1,
                     0,
                     1,
                     {},
                     [](const Point& p) {
                         return p.sunlit && p.el >= lowestMagnitudeDeg ? p.magnitude : std::optional<double>();
                     }},
                    1),
            graphOf(chart, {tr("Range, km"), 0, 1, 0, {}, [](const Point& p) { return std::optional(p.range); }}, 2)};
}

void drawTimes(QPainter& painter, const PassChart& chart)
{
    double last = -1e3;
    for (const double mjd : wholeMinutes(chart)) {
        const double x = timeToX(chart, mjd);
        if (x - last < farAwayPixels)
            continue;
        write(painter, {x, graphs.bottom() + 11}, chartTime(chart, mjd, false));
        last = x;
    }
}

void drawMark(QPainter& painter, const PassChart& chart, const Point& p, const ChartColours& colours)
{
    painter.setPen(QPen(colours.ink, 1.0));
    painter.setBrush(colours.ink);
    painter.drawEllipse(domePoint(p), 4.5, 4.5);
    painter.setBrush(Qt::NoBrush);
    const double x = timeToX(chart, p.mjd);
    painter.drawLine(QPointF(x, graphs.top()), QPointF(x, graphs.bottom()));
}

}  // namespace

void drawPassChart(QPainter& painter, const PassChart& chart, const ChartColours& colours,
                   std::optional<std::size_t> marked)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRectF(QPointF(), passChartSize), colours.ground);
    QFont font(QStringLiteral("Helvetica"));
    font.setPixelSize(static_cast<int>(letterPixels));
    painter.setFont(font);
    painter.setPen(colours.ink);
    if (chart.points.size() < 2) {
        write(painter, zenith, tr("The satellite does not rise."));
        return;
    }
    painter.drawText(QRectF(10, 8, passChartSize.width() - 20, 18), Qt::AlignLeft, chart.title);
    drawDome(painter, colours);
    drawLights(painter, chart, colours);
    if (chart.horizon)
        drawGround(painter, *chart.horizon, colours);
    drawCurve(painter, chart, colours, [](const Point& p) { return std::optional(domePoint(p)); });
    drawMinutes(painter, chart, colours);
    drawShadow(painter, chart, colours);
    for (const Graph& graph : graphsOf(chart))
        drawGraph(painter, chart, graph, colours);
    painter.setPen(colours.ink);
    drawTimes(painter, chart);
    if (marked && *marked < chart.points.size())
        drawMark(painter, chart, chart.points[*marked], colours);
}

std::optional<std::size_t> chartPointAt(const PassChart& chart, const QPointF& place)
{
    if (chart.points.size() < 2)
        return std::nullopt;
    if (graphs.contains(place)) {
        const double first = chart.points.front().mjd, span = chart.points.back().mjd - first;
        return indexAt(chart, first + (place.x() - graphs.left()) / graphs.width() * span);
    }
    if (place.y() > graphs.top())
        return std::nullopt;
    const auto away = [&](const Point& p) {
        const QPointF d = domePoint(p) - place;
        return std::hypot(d.x(), d.y());
    };
    return static_cast<std::size_t>(std::ranges::min_element(chart.points, {}, away) - chart.points.begin());
}
