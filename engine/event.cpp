#include "engine/event.h"

#include "engine/aos_list.h"
#include "engine/satpos_data.h"

namespace {

/// By the yaw of the mirror that the search has chosen.
EventSurface surfaceOf(const WinpData& in)
{
    if (in.irsolp)
        return EventSurface::panel;
    if (in.occra < 0.0)
        return EventSurface::left;
    return in.occra > 0.0 ? EventSurface::right : EventSurface::front;
}

std::optional<EventPoint> groundPointOf(const SatPosData& sp, int isat)
{
    if (sp.occlat[isat] < anglesOnly)
        return EventPoint{sp.occlat[isat], sp.occlng[isat]};
    return std::nullopt;
}

}  // namespace

EventKind eventKindOf(const WinpData& in)
{
    if (in.iridflg == event::iridium)
        return EventKind::mirrorFlare;
    if (in.iridflg == event::flare)
        return EventKind::flare;
    if (in.occflg == 1)
        return EventKind::sunTransit;
    return in.occflg == 2 ? EventKind::moonTransit : EventKind::occultation;
}

std::optional<Event> eventOf(const PassQuery& query, const Pass& pass, bool reaching)
{
    Event event;
    event.kind = eventKindOf(*query.in);
    event.mjd = pass.tm[1];
    event.elevation = pass.a[1];
    event.azimuth = pass.b[1];
    event.passStart = pass.tm[0];
    event.passEnd = pass.tm[2];
    if (event.kind == EventKind::mirrorFlare) {
        event.magnitude = pass.b[2];
        event.surface = surfaceOf(*query.in);
    } else {
        event.distance = pass.b[2];
    }
    if (transitsOfDisk(*query.in)) {
        event.transit = diskTransit(query.in, query.sp, pass.tm[1], query.isat);
        if (reaching && !(event.transit->halfWidthKm >= pass.b[2]))
            return std::nullopt;
    }
    positionAt(event.mjd, query);
    event.centre = groundPointOf(*query.sp, query.isat);
    return event;
}

void eachEvent(const PassQuery& query, double from, double until, const std::function<void(const Event&)>& take)
{
    constexpr int hit = 1;
    const bool reaching = automaticWidth(*query.in);
    Pass pass;
    while (const int result = from <= until ? findNextPass(query, from, until, pass) : 0) {
        if (const auto event = result == hit ? eventOf(query, pass, reaching) : std::nullopt)
            take(*event);
        const double next = timeAfterPass(*query.in, query.isat, pass);
        if (!(next > from))  // a time too far off for steps of a minute
            return;
        from = next;
    }
}
