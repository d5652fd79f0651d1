// A transit, an occultation or a flare as an observer sees it.
#pragma once

#include "engine/pass.h"
#include "engine/pass_search.h"
#include "engine/sun_moon_transit.h"

#include <functional>
#include <optional>

/// What happens.
enum class EventKind
{
    sunTransit,   // the satellite crosses the disk of the Sun
    moonTransit,  // the same for the Moon
    occultation,  // it crosses a place among the stars
    flare,        // a surface that the user describes sends the light to the observer
    mirrorFlare   // one of the mirrors or solar panels of an Iridium satellite does
};

/// Which surface of an Iridium satellite sends the light.
enum class EventSurface
{
    front,
    left,
    right,
    panel
};

/// A point of the ground, degrees.
struct EventPoint
{
    double lat = 0;  // geodetic
    double lng = 0;  // east positive, -180 to 180
};

/// One event. Angles are degrees, times MJD UTC.
struct Event
{
    EventKind kind = EventKind::sunTransit;
    double mjd = 0;        // when the observer is nearest to the centre line, or the flare brightest
    double elevation = 0;  // without refraction
    double azimuth = 0;    // from north through east, 0 to 360
    double passStart = 0;  // of the pass in which it happens
    double passEnd = 0;
    std::optional<double> distance;       // of the observer from the centre line, km; not of `mirrorFlare`
    std::optional<double> magnitude;      // of `mirrorFlare`
    std::optional<EventSurface> surface;  // of `mirrorFlare`
    std::optional<DiskTransit> transit;   // of the Sun or Moon
    std::optional<EventPoint> centre;     // where the centre line is at this time; none if it misses the Earth
};

/// The kind of event that the switches of a record ask for; `iridflg` is above 0.
EventKind eventKindOf(const WinpData& in);

/// The event that a search has found at index 1 of `pass`. Goes by positions on `query.sp`, which stands at the event
/// afterwards.
///
/// @param reaching  nothing if the zone of a transit does not reach the observer
std::optional<Event> eventOf(const PassQuery& query, const Pass& pass, bool reaching);

/// Calls `take` for each event between two times; `query.limits` as `listLimits` has them.
void eachEvent(const PassQuery& query, double from, double until, const std::function<void(const Event&)>& take);
