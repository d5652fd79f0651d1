#include "imaging/trail_report.h"

#include "exports/rows.h"
#include "exports/time_text.h"
#include "record/wout_data.h"

#include <algorithm>
#include <string>

namespace {

constexpr int lastLines = 2;  // kept for what does not fit

std::string padded(const std::string& text, std::size_t width)
{
    return std::string(width - std::min(width, text.size()), ' ') + text;
}

std::string clockText(const WinpData& in, double mjd)
{
    return isoTime(mjd + in.tzone / 24.0).substr(11, 10);
}

std::string trailText(const WinpData& in, const PictureTrail& trail)
{
    constexpr std::size_t nameWidth = 18;
    const FieldCrossing& c = trail.crossing;
    std::string name = c.name.substr(0, nameWidth);
    name += std::string(nameWidth - name.size(), ' ');
    const auto number = [](double value, int decimals, std::size_t width) {
        return padded(fixedNumber(value, decimals), width);
    };
    std::string text = ' ' + name + padded(std::to_string(c.norad), 7) + ' ' + clockText(in, c.entry) + ' ' +
                       clockText(in, c.exit) + number(c.rate, 3, 7) +
                       (c.magnitude ? number(*c.magnitude, 1, 5) : padded("", 5));
    if (trail.match)
        text += number(trail.match->ahead, 2, 8) + number(trail.match->across, 1, 7);
    return text;
}

}  // namespace

void trailReport(WoutData* out, const WinpData& in, const ExposedPicture& picture,
                 std::span<const PictureTrail> trails)
{
    out->nlines = 0;
    const auto add = [out](const std::string& text) { PutNxtLnT(out, text.c_str()); };
    add(" ");
    add(" Satellites in picture: " + isoTime(picture.begin + in.tzone / 24.0).substr(0, 10) + ' ' +
        clockText(in, picture.begin) + "; exposure " + fixedNumber(picture.exposure, 2) + " s; streaks " +
        std::to_string(picture.streaks.size()));
    add(" ");
    add(" Satellite           Number      Entry       Exit  deg/s Mag.   Ahead Across");
    add("                                                                    s      '");
    std::size_t written = 0;
    for (; written < trails.size() && out->nlines < maxReportLines - lastLines; ++written)
        add(trailText(in, trails[written]));
    if (written < trails.size())
        add(" and " + std::to_string(trails.size() - written) + " more");
    else if (trails.empty())
        add(" No sunlit satellite of the file crosses the picture.");
}
