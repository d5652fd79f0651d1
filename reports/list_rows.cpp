#include "reports/list_rows.h"

#include "astro/angles.h"
#include "elements/characters.h"
#include "elements/entry.h"
#include "engine/event.h"
#include "engine/satpos_data.h"
#include "record/numbers.h"
#include "record/text.h"

#include <QString>
#include <algorithm>
#include <cmath>
#include <utility>

namespace {

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

std::string kindName(EventKind kind)
{
    switch (kind) {
    case EventKind::sunTransit:
        return "Sun transit";
    case EventKind::moonTransit:
        return "Moon transit";
    case EventKind::occultation:
        return "occultation";
    case EventKind::flare:
        return "flare";
    case EventKind::mirrorFlare:
        break;
    }
    return "mirror flare";
}

std::string surfaceName(EventSurface surface)
{
    switch (surface) {
    case EventSurface::front:
        return "front mirror";
    case EventSurface::left:
        return "left mirror";
    case EventSurface::right:
        return "right mirror";
    case EventSurface::panel:
        break;
    }
    return "solar panel";
}

/// The number that a text with so many decimals stands for.
double rounded(double x, int decimals)
{
    char text[32];
    formatted(text, "%.*f", decimals, x);
    return Atof(text);
}

}  // namespace

SatelliteName nameOf(const WinpData& in, int slot)
{
    return {fieldQString(in.fsname[slot]).trimmed().toStdString(), in.norad[slot],
            fieldQString(in.ldsn[slot]).trimmed().toStdString()};
}

SatelliteName nameOf(const Entry& entry)
{
    const std::string_view raw = trimmed(fieldText(entry.designator));
    const std::string designator = raw.empty() ? std::string() : fullDesignator(raw);
    const std::string name = fieldQString(entry.name).trimmed().toStdString();
    return {name.empty() ? designator : name, entry.number, designator};
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

ListRow eventRow(const WinpData& in, int slot, const Event& event)
{
    const SatelliteName name = nameOf(in, slot);
    const bool crosses = event.transit && event.transit->sensible();
    const DiskTransit transit = event.transit.value_or(DiskTransit());
    return {name.name,
            name.number,
            name.designator.empty() ? ListValue() : ListValue(name.designator),
            kindName(event.kind),
            ListTime{event.mjd},
            event.azimuth,
            event.elevation,
            orNone(event.distance),
            crosses ? ListValue(rounded(transit.halfWidthKm, 1)) : ListValue(),
            crosses ? ListValue(rounded(transit.seconds, 1)) : ListValue(),
            crosses ? ListValue(rounded(transit.angleDeg, 0)) : ListValue(),
            orNone(event.magnitude),
            event.surface ? ListValue(surfaceName(*event.surface)) : ListValue(),
            event.centre ? ListValue(event.centre->lat) : ListValue(),
            event.centre ? ListValue(event.centre->lng) : ListValue()};
}
