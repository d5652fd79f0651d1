#include "reports/field_report.h"

#include "exports/rows.h"
#include "exports/time_text.h"
#include "record/text.h"
#include "record/wout_data.h"

#include <algorithm>
#include <string>

namespace {

constexpr int lastLines = 3;  // kept for what does not fit
constexpr double secondsPerDay = 86400.0;

std::string padded(const std::string& text, std::size_t width)
{
    return std::string(width - std::min(width, text.size()), ' ') + text;
}

std::string fixedText(double value, int decimals, std::size_t width)
{
    return padded(fixedNumber(value, decimals), width);
}

/// HH:MM:SS.s
std::string clockText(const WinpData& in, double mjd)
{
    return isoTime(mjd + in.tzone / 24.0).substr(11, 10);
}

std::string dateText(const WinpData& in, double mjd)
{
    return isoTime(mjd + in.tzone / 24.0).substr(0, 10);
}

std::string centreText(const SkyField& field)
{
    const bool fixed = field.angles == SkyAngles::horizontal;
    std::string text = fixed ? "azimuth " : "R.A. ";
    text +=
        fixedNumber(field.first, 3) + (fixed ? " elevation " : " Dec. ") + fixedNumber(field.second, 3) + " deg";
    if (!fixed)
        text += field.equinox == 0.0 ? " of date" : " (" + fixedNumber(field.equinox, 0) + ')';
    return text;
}

std::string sizeText(const SkyField& field)
{
    if (field.width > 0.0 && field.height > 0.0)
        return fixedNumber(field.width, 2) + " x " + fixedNumber(field.height, 2) + " deg; position angle " +
               fixedNumber(field.angle, 1);
    return "radius " + fixedNumber(field.radius, 2) + " deg";
}

std::string crossingText(const WinpData& in, const FieldCrossing& c)
{
    constexpr std::size_t nameWidth = 18;
    std::string name = c.name.substr(0, nameWidth);
    name += std::string(nameWidth - name.size(), ' ');
    const std::string light = !c.sunlit     ? padded("dark", 5)
                              : c.magnitude ? fixedText(*c.magnitude, 1, 5)
                                            : padded("", 5);
    return ' ' + name + padded(std::to_string(c.norad), 7) + ' ' + clockText(in, c.entry) + ' ' +
           clockText(in, c.exit) + fixedText(c.angle, 0, 5) + fixedText(c.rate, 3, 7) + fixedText(c.nearest, 2, 7) +
           light;
}

class Lines
{
public:
    explicit Lines(WoutData* to) : out(to) { out->nlines = 0; }
    bool hasRoom() const { return out->nlines < maxReportLines - lastLines; }
    void add(const std::string& text) { PutNxtLnT(out, text.c_str()); }

private:
    WoutData* out;
};

}  // namespace

void fieldReport(WoutData* out, const WinpData& in, const FieldQuery& query, std::span<const FieldCrossing> crossings)
{
    Lines lines(out);
    lines.add(" ");
    lines.add(" Passes through a field: " + centreText(query.field));
    lines.add(' ' + sizeText(query.field) + "; " + dateText(in, query.from) + ' ' + clockText(in, query.from) +
              " to " + clockText(in, query.to));
    lines.add(" ");
    lines.add(" Satellite           Number      Entry       Exit P.A.  deg/s    Off Mag.");
    long left = 0;
    for (const FieldCrossing& c : crossings)
        lines.hasRoom() ? lines.add(crossingText(in, c)) : void(++left);
    if (left > 0)
        lines.add(" and " + std::to_string(left) + " more");
    else if (crossings.empty())
        lines.add(" No satellite of the file crosses the field.");
    if (!lines.hasRoom())
        return;
    lines.add(" ");
    lines.add(" Without a sunlit satellite:");
    for (const FreeInterval& interval : freeIntervals(query, crossings))
        if (lines.hasRoom())
            lines.add(' ' + clockText(in, interval.from) + " to " + clockText(in, interval.to) +
                      fixedText((interval.to - interval.from) * secondsPerDay, 1, 10) + " s");
}
