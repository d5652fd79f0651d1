#include "reports/welcome.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "astro/calendar.h"
#include "elements/kept_selection.h"
#include "record/clock.h"
#include "record/config.h"
#include "record/files.h"
#include "record/numbers.h"
#include "record/text.h"

namespace {

constexpr double firstEpochYear = 1900.0;  // an epoch of R.A. and Dec. before it means true of date

using Line = char[reportLineBytes];

void putText(WoutData* out, std::string_view text)
{
    Line line;
    assignField(line, text);
    PutNxtLn(out, line);
}

void readConfiguration(WinpData* in, WoutData* out)
{
    if (getcfg(in) >= 1)
        return;
    PutNxtLn(out, "Problems reading Configuration File. Using defaults instead.");
    PutSpace(out);
}

/// The start date from UTC to the civil time of the zone.
void dateToCivilTime(WinpData* in)
{
    const double civil = mjd(in->day, in->month, in->year, ddd(in->hour, in->minute, in->second)) + in->tzone / 24.0;
    // the clock has whole seconds, and the sum may lie a little below one
    constexpr double halfSecondDays = 0.5 / 86400.0;
    double hours = 0;
    double seconds = 0;
    caldat(civil + halfSecondDays, in->day, in->month, in->year, hours);
    dms(hours, in->hour, in->minute, seconds);
    in->second = static_cast<int>(seconds);
}

void writeZone(const WinpData& in, WoutData* out)
{
    Line line;
    const char* warning = in.tzone != systemZone() ? " *** Timezone different from set system time! ***" : "";
    putText(out, formatted(line, "Timezone: %g%s", in.tzone, warning));
}

void writePlace(const WinpData& in, WoutData* out)
{
    Line line;
    PutNxtLn(out, "Geographic Location:");
    putText(out, fieldText(in.geoname));
    putText(out, formatted(line, "Lat.: %g  Long.: %g  Height: %g", in.lat, in.lng, in.height));
    PutSpace(out);
}

void checkElementFile(WinpData* in, WoutData* out)
{
    PutNxtLn(out, "Name of the Orbit Element File:");
    if (openForReading(in->tlename)) {
        putText(out, fieldText(in->tlename));
    } else {
        assignField(in->tlename, "*");
        PutNxtLn(out, "*** No valid TLE file selected ***");
    }
    PutSpace(out);
}

void writeConditions(const WinpData& in, WoutData* out)
{
    Line line;
    putText(out, formatted(line, "Maximum Sun Elev.: %g", in.sunel));
    putText(out, formatted(line, "Minimum Sat Elev.: %g", in.satel));
    PutNxtLn(out, in.visflg ? "Only visible passes" : "All passes");
    PutSpace(out);
}

void writeMap(const WinpData& in, WoutData* out)
{
    constexpr std::array backgrounds{"White", "Grey", "Black"};
    constexpr std::array grids{"   No coordinate grid", "   30 deg coordinate grid", "   10 deg coordinate grid"};
    Line line;
    putText(out, formatted(line, "Map background: %s%s", backgrounds[static_cast<std::size_t>(in.mgrey)],
                           grids[static_cast<std::size_t>(in.mgrid)]));
    PutSpace(out);
}

void writeEpoch(WinpData* in, WoutData* out)
{
    Line line;
    if (in->yrepoch < firstEpochYear)
        in->yrepoch = 0;
    putText(out, formatted(line, "Epoch for R.A./Dec.: %g", in->yrepoch));
}

void writeSelection(const WinpData& in, WoutData* out)
{
    if (in.satn < 1)
        return;
    PutSpace(out);
    PutNxtLn(out, "Selected Satellites:");
    PutSpace(out);
    for (int slot = 0; slot < in.satn; ++slot)
        putText(out, fieldText(in.fsname[slot]));
}

}  // namespace

void swelcm(WinpData* in, WoutData* out)
{
    setDefaults(in);
    DefTime(in);
    in->ttut = SetTtUt(in, in->year);
    in->UtcTai = utcTaiOf(in->ttut);
    PutNxtLn(out, "   *** Welcome to Vorlix Version 11.8 ***");
    PutSpace(out);
    readConfiguration(in, out);
    in->models = storedCorrections();
    if (in->tzauto)
        in->tzone = systemZone();
    in->mjd = mjd(in->day, in->month, in->year, ddd(in->hour, in->minute, in->second));
    dateToCivilTime(in);

    PutNxtLn(out, "The startup input values are:");
    PutSpace(out);
    writeZone(*in, out);
    writePlace(*in, out);
    checkElementFile(in, out);
    writeConditions(*in, out);
    writeMap(*in, out);
    writeEpoch(in, out);

    const int names = in->satn;
    in->satn = 0;
    selectConfigured(in, names);
    writeSelection(*in, out);
}
