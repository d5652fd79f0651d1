#include "reports/list_rows.h"

#include "astro/angles.h"
#include "engine/aos_list.h"
#include "engine/position.h"
#include "engine/sun_moon_transit.h"
#include "record/numbers.h"
#include "record/text.h"

#include <QString>
#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int hit = 1;  // of nextpass
constexpr int transitTextRoom = 64;
constexpr double lightKmPerS = 299792.458;

ListValue lightOf(int slot)
{
    return std::string(satpos->sunel[slot] >= 0.0 ? "sunlit" : "shadow");
}

/// Relativistic change of a frequency, Hz, for a range rate in km/s, positive when receding.
ListValue dopplerOf(double frequencyHz, double rate)
{
    const double b = rate / lightKmPerS;
    if (frequencyHz == 0.0 || !(std::abs(b) < 1.0))
        return {};
    return frequencyHz * std::sqrt((1.0 - b) / (1.0 + b)) - frequencyHz;
}

ListValue orNone(const std::optional<double>& x)
{
    return x ? ListValue(*x) : ListValue();
}

std::string kindOf(const WinpData& in)
{
    if (in.iridflg == event::iridium)
        return "mirror flare";
    if (in.iridflg == event::flare)
        return "flare";
    return in.occflg == 1 ? "Sun transit" : in.occflg == 2 ? "Moon transit" : "occultation";
}

std::string surfaceOf(const WinpData& in)
{
    if (in.irsolp)
        return "solar panel";
    return in.occra < 0.0 ? "left mirror" : in.occra > 0.0 ? "right mirror" : "front mirror";
}

}  // namespace

SatelliteName nameOf(const WinpData& in, int slot)
{
    return {fieldQString(in.fsname[slot]).trimmed().toStdString(), in.norad[slot],
            fieldQString(in.ldsn[slot]).trimmed().toStdString()};
}

ListRow passRowOf(const WinpData& in, int slot, const Pass& pass)
{
    PassTimes times{};
    std::copy_n(pass.tm, 3, times.time);
    std::copy_n(pass.a, 3, times.elevation);
    std::copy_n(pass.b, 3, times.azimuth);
    return passRow(nameOf(in, slot), times);
}

ListRow contactRow(const WinpData& in, int slot, int other, const Pass& pass)
{
    constexpr double secondsPerDay = 86400.0;
    const SatelliteName one = nameOf(in, slot);
    const SatelliteName seen = nameOf(in, other);
    return {one.name,
            one.number,
            one.designator.empty() ? ListValue() : ListValue(one.designator),
            seen.name,
            seen.number,
            ListTime{pass.tm[0]},
            ListTime{pass.tm[2]},
            (pass.tm[2] - pass.tm[0]) * secondsPerDay,
            pass.a[0],
            pass.b[0],
            pass.a[2],
            pass.b[2]};
}

ListRow stepRow(const WinpData& in, int slot, double t)
{
    const SatelliteName name = nameOf(in, slot);
    return {name.name, name.number, name.designator.empty() ? ListValue() : ListValue(name.designator), ListTime{t}};
}

ListRow lookRow(const WinpData& in, int slot, double t, double frequencyHz)
{
    const SatPosData& sp = *satpos;
    ListRow row = stepRow(in, slot, t);
    const bool bright = in.chlen > 0.0 && slot == in.prs && sp.mag < noFlare;
    for (ListValue value :
         {ListValue(sp.az[slot]), ListValue(sp.el[slot]), ListValue(sp.dst[slot]), ListValue(sp.rrate[slot]),
          dopplerOf(frequencyHz, sp.rrate[slot]), ListValue(DmsDegF(sp.ra[slot]) * 15.0),
          ListValue(DmsDegF(sp.dec[slot])), lightOf(slot), bright ? ListValue(sp.mag) : ListValue()})
        row.push_back(std::move(value));
    return row;
}

ListRow trackRow(const WinpData& in, int slot, double t)
{
    ListRow row = stepRow(in, slot, t);
    for (ListValue value :
         {ListValue(satpos->lat[slot]), ListValue(satpos->lng[slot]), ListValue(satpos->hgt[slot]), lightOf(slot)})
        row.push_back(std::move(value));
    return row;
}

Crossing crossingOf(WinpData& in, int slot, const Pass& event, bool automatic)
{
    Crossing crossing;
    int result = hit;
    char text[transitTextRoom] = {};
    SunMoonTr(&in, event.tm[1], slot, event.b[2], automatic, result, text);
    crossing.reached = result == hit;
    std::string figures(fieldText(text));
    for (char& c : figures)
        if ((c < '0' || c > '9') && c != '.' && c != '-')
            c = ' ';
    double numbers[3] = {};
    if (numbersOf(QString::fromStdString(figures).simplified().toStdString(), 3, numbers) == 3) {
        crossing.halfWidthKm = numbers[0];
        crossing.seconds = numbers[1];
        crossing.angleDeg = numbers[2];
    }
    return crossing;
}

ListRow eventRow(WinpData& in, int slot, const Pass& event, const Crossing& crossing)
{
    const bool iridium = in.iridflg == event::iridium;
    const std::string surface = iridium ? surfaceOf(in) : "";
    GetSatPos(event.tm[1], &in, satpos, slot, 0);
    const bool onGround = satpos->occlat[slot] < anglesOnly;
    const SatelliteName name = nameOf(in, slot);
    return {name.name,
            name.number,
            name.designator.empty() ? ListValue() : ListValue(name.designator),
            kindOf(in),
            ListTime{event.tm[1]},
            event.b[1],
            event.a[1],
            iridium ? ListValue() : ListValue(event.b[2]),
            orNone(crossing.halfWidthKm),
            orNone(crossing.seconds),
            orNone(crossing.angleDeg),
            iridium ? ListValue(event.b[2]) : ListValue(),
            iridium ? ListValue(surface) : ListValue(),
            onGround ? ListValue(satpos->occlat[slot]) : ListValue(),
            onGround ? ListValue(satpos->occlng[slot]) : ListValue()};
}
