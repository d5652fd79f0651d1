// One pass as a curve: what is drawn of it in the sky and over time.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include <QString>

class HorizonLine;
struct WinpData;

/// A star, or a body with a name, above the horizon.
struct ChartLight
{
    QString name;           // empty for a star
    double az = 0, el = 0;  // degrees
    double magnitude = 0;
};

struct PassChart
{
    /// The satellite at an instant.
    struct Point
    {
        double mjd = 0;         // UTC
        double az = 0, el = 0;  // degrees; the elevation with refraction if the record says so
        double range = 0;       // km
        std::optional<double> magnitude;
        bool sunlit = false;
    };

    QString title;                               // satellite and place
    double tzone = 0;                            // hours from UTC, of the times on show
    std::vector<Point> points;                   // evenly over time, from rise to set
    std::size_t highest = 0;                     // of these
    std::vector<Point> changes;                  // where it enters the shadow or leaves it: as it is from there on
    std::vector<ChartLight> lights;              // in the middle of the pass
    std::shared_ptr<const HorizonLine> horizon;  // of the place; null: a plain one

    double middle() const { return points.empty() ? 0.0 : points[points.size() / 2].mjd; }
};

/// The prime satellite of the record from its rise before `t` (MJD UTC), or after it if it is down then, to its set; of
/// one that stays longer, twelve hours before and after.
///
/// @return  without points if it does not rise for twelve hours, or the orbit fails; `lights` and `horizon` are left
///          to the caller
PassChart chartOfPass(const WinpData& in, double t);

/// What a person reads at a point of the curve: the time in seconds, and the numbers.
QString chartReading(const PassChart& chart, const PassChart::Point& point);

/// "19:58:44" or, without seconds, "19:58", in the time zone of the chart.
QString chartTime(const PassChart& chart, double mjd, bool seconds = true);
