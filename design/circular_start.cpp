#include "design/circular_start.h"

#include "astro/angles.h"
#include "design/orbit_determination.h"
#include "record/text.h"

#include <memory>

namespace {

constexpr double secondsPerDay = 86400.0;

bool canPair(const SitedObservation& first, const SitedObservation& second)
{
    constexpr double longestSeconds = 1800.0;
    const Observation &a = first.observation, &b = second.observation;
    const double seconds = (b.mjd - a.mjd) * secondsPerDay;
    const bool together = first.site.lat == second.site.lat && first.site.lng == second.site.lng;
    const bool frame =
        a.angles != SkyAngles::equatorial || b.angles != SkyAngles::equatorial || a.equinox == b.equinox;
    return together && frame && seconds > 1.0 && seconds <= longestSeconds;
}

/// Into the fields of a sighting, as the dialog of Orbit Determination leaves them.
void putSighting(const Observation& o, double& az, double& el, int& celestial)
{
    constexpr double degreesPerHour = 15.0;
    celestial = o.angles == SkyAngles::equatorial;
    az = celestial != 0 ? DegFDms(o.first / degreesPerHour) : o.first;
    el = celestial != 0 ? DegFDms(o.second) : o.second;
}

}  // namespace

std::optional<Orbit> circularStart(const WinpData& in, std::span<const SitedObservation> observations)
{
    const SitedObservation* last = nullptr;
    for (const SitedObservation& sited : observations)
        if (canPair(observations.front(), sited))
            last = &sited;
    if (!last)
        return std::nullopt;
    const Observation& first = observations.front().observation;
    const auto copy = std::make_unique<WinpData>(in);
    copy->satn = 0;
    copy->lat = last->site.lat;
    copy->lng = last->site.lng;
    copy->height = last->site.height;
    copy->mjd = first.mjd;
    copy->deltm = (last->observation.mjd - first.mjd) * secondsPerDay;
    copy->yrepoch = first.angles == SkyAngles::equatorial ? first.equinox : last->observation.equinox;
    putSighting(first, copy->az1, copy->el1, copy->az1flg);
    putSighting(last->observation, copy->az2, copy->el2, copy->az2flg);
    OrbitDet(copy.get());
    constexpr double highestKm = 299000.0;  // near the end of its search
    const bool found = fieldText(copy->fsname[0]).starts_with("New") && copy->a[0] < highestKm;
    return found ? std::optional(orbitOf(*copy, 0)) : std::nullopt;
}
