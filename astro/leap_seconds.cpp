#include "astro/leap_seconds.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>

namespace {

constexpr double mjdOf1900 = 15020.0;
constexpr double firstLeapSecondsMjd = 41317.0;  // 1972 January 1

/// Before leap seconds: TAI minus UTC at a day, and its growth from another day on.
struct DriftingUtc
{
    double mjd;
    double taiUtc;  // seconds
    double origin;  // MJD
    double rate;    // seconds a day
};

constexpr std::array driftingUtc{
    DriftingUtc{37300, 1.4228180, 37300, 0.0012960}, DriftingUtc{37512, 1.3728180, 37300, 0.0012960},
    DriftingUtc{37665, 1.8458580, 37665, 0.0011232}, DriftingUtc{38334, 1.9458580, 37665, 0.0011232},
    DriftingUtc{38395, 3.2401300, 38761, 0.0012960}, DriftingUtc{38486, 3.3401300, 38761, 0.0012960},
    DriftingUtc{38639, 3.4401300, 38761, 0.0012960}, DriftingUtc{38761, 3.5401300, 38761, 0.0012960},
    DriftingUtc{38820, 3.6401300, 38761, 0.0012960}, DriftingUtc{38942, 3.7401300, 38761, 0.0012960},
    DriftingUtc{39004, 3.8401300, 38761, 0.0012960}, DriftingUtc{39126, 4.3131700, 39126, 0.0025920},
    DriftingUtc{39887, 4.2131700, 39126, 0.0025920},
};

/// The last row that has begun; the first before all of them.
template <class Rows>
const auto& rowAt(const Rows& rows, double mjd)
{
    const auto later =
        std::upper_bound(rows.begin(), rows.end(), mjd, [](double t, const auto& row) { return t < row.mjd; });
    return later == rows.begin() ? rows.front() : *std::prev(later);
}

/// Takes a number off the front of a text; false if there is none.
bool takeNumber(std::string_view& text, double& number)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(std::size_t(end - text.data()));
    return error == std::errc{};
}

double mjdOf(double secondsFrom1900)
{
    return mjdOf1900 + secondsFrom1900 / 86400.0;
}

/// Adds a line of the file; false if it does not fit.
bool addLine(std::string_view line, LeapSeconds& table)
{
    double seconds = 0;
    if (line.starts_with("#@")) {
        line.remove_prefix(2);
        if (takeNumber(line, seconds))
            table.expires = mjdOf(seconds);
        return true;
    }
    line = line.substr(0, line.find('#'));
    if (line.find_first_not_of(" \t\r") == std::string_view::npos)
        return true;
    LeapSecond row{};
    if (!takeNumber(line, seconds) || !takeNumber(line, row.taiUtc))
        return false;
    row.mjd = mjdOf(seconds);
    const bool rising = table.rows.empty() || row.mjd > table.rows.back().mjd;
    table.rows.push_back(row);
    return rising && row.mjd >= firstLeapSecondsMjd && row.taiUtc >= 10.0 && row.taiUtc < 1000.0;
}

}  // namespace

LeapSeconds readLeapSeconds(std::string_view text)
{
    LeapSeconds table;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        if (!addLine(text.substr(0, end), table))
            return {};
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return table;
}

double taiMinusUtc(double mjd, const LeapSeconds& table)
{
    if (mjd >= firstLeapSecondsMjd && !table.rows.empty())
        return rowAt(table.rows, mjd).taiUtc;
    const DriftingUtc& row = rowAt(driftingUtc, mjd);
    return row.taiUtc + (mjd - row.origin) * row.rate;
}
