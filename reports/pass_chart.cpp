#include "reports/pass_chart.h"

#include <algorithm>
#include <cmath>

#include <QCoreApplication>

#include "astro/calendar.h"
#include "engine/prediction.h"
#include "record/text.h"
#include "record/winp_data.h"

namespace {

constexpr double secondDays = 1.0 / 86400.0;
constexpr double searchStepDays = 30.0 * secondDays;
constexpr double longestDays = 0.5;  // to each side
constexpr double closeDays = 0.1 * secondDays;
constexpr int intervals = 400;  // of the curve

QString tr(const char* text)
{
    return QCoreApplication::translate("PassChart", text);
}

PassChart::Point pointOf(const Position& p)
{
    return {p.mjd, p.azimuth, p.apparentElevation, p.range, p.magnitude, p.sunElevation >= 0.0};
}

PassChart::Point pointAt(Predictor& predictor, double mjd)
{
    return pointOf(predictor.position(mjd));
}

/// Where a statement changes between two instants; it differs at the two.
template <class Statement>
double changeBetween(double from, double to, const Statement& holds)
{
    const bool first = holds(from);
    while (std::abs(to - from) > closeDays) {
        const double middle = (from + to) / 2.0;
        (holds(middle) == first ? from : to) = middle;
    }
    return to;
}

/// From `t` on, back with a negative step, until the statement changes.
template <class Statement>
double firstChange(double t, double step, const Statement& holds)
{
    const bool first = holds(t);
    for (int k = 1; k * std::abs(step) <= longestDays; ++k)
        if (holds(t + k * step) != first)
            return changeBetween(t + (k - 1) * step, t + k * step, holds);
    return t + std::copysign(longestDays, step);
}

void addChanges(PassChart& chart, Predictor& predictor)
{
    for (std::size_t i = 1; i < chart.points.size(); ++i) {
        const PassChart::Point &before = chart.points[i - 1], &after = chart.points[i];
        if (before.sunlit != after.sunlit)
            chart.changes.push_back(pointAt(predictor, changeBetween(before.mjd, after.mjd, [&](double mjd) {
                                                return pointAt(predictor, mjd).sunlit;
                                            })));
    }
}

}  // namespace

PassChart chartOfPass(const WinpData& in, double t)
{
    PassChart chart;
    chart.tzone = in.tzone;
    chart.title = tr("%1 from %2").arg(fieldQString(in.fsname[in.prs]).trimmed(), fieldQString(in.geoname).trimmed());
    int day = 0, month = 0, year = 0;
    double hours = 0;
    caldat(t + in.tzone / 24.0, day, month, year, hours);
    chart.title += tr(",  %1-%2-%3, time zone %4")
                       .arg(year)
                       .arg(month, 2, 10, QLatin1Char('0'))
                       .arg(day, 2, 10, QLatin1Char('0'))
                       .arg(in.tzone);
    Predictor predictor(orbitOf(in, in.prs), siteOf(in), {}, modelsOf(in));
    const auto isUp = [&](double mjd) { return predictor.position(mjd).elevation > 0.0; };
    if (!isUp(t))
        t = firstChange(t, searchStepDays, isUp);
    if (!isUp(t) || !predictor.position(t).found)
        return chart;
    const double rise = firstChange(t, -searchStepDays, isUp), set = firstChange(t, searchStepDays, isUp);
    for (int k = 0; k <= intervals; ++k)
        chart.points.push_back(pointAt(predictor, rise + (set - rise) * k / intervals));
    chart.highest = static_cast<std::size_t>(std::ranges::max_element(chart.points, {}, &PassChart::Point::el) -
                                             chart.points.begin());
    addChanges(chart, predictor);
    return chart;
}

QString chartTime(const PassChart& chart, double mjd, bool seconds)
{
    const double unit = seconds ? 86400.0 : 1440.0;
    const double day = mjd + chart.tzone / 24.0;
    const auto count = static_cast<long long>(std::floor((day - std::floor(day)) * unit + 0.5));
    const auto two = [](long long n) { return QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0')); };
    const long long minutes = seconds ? count / 60 : count;
    const QString text = two(minutes / 60 % 24) + ':' + two(minutes % 60);
    return seconds ? text + ':' + two(count % 60) : text;
}

QString chartReading(const PassChart& chart, const PassChart::Point& point)
{
    QString text = tr("%1   azimuth %2   elevation %3   range %4 km")
                       .arg(chartTime(chart, point.mjd))
                       .arg(point.az, 0, 'f', 1)
                       .arg(point.el, 0, 'f', 1)
                       .arg(point.range, 0, 'f', 0);
    if (point.magnitude && point.sunlit && point.el >= 1.0)
        text += tr("   magnitude %1").arg(*point.magnitude, 0, 'f', 1);
    return text + (point.sunlit ? tr("   in sunlight") : tr("   in shadow"));
}
