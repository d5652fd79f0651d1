#include "engine/position.h"

#include <cmath>

#include "astro/angles.h"
#include "engine/event_geometry.h"
#include "engine/lazy_position.h"
#include "engine/pass_search.h"
#include "engine/position_stages.h"

namespace {

/// Where the second satellite of relative mode stands.
struct SecondPlace
{
    double lat = 0, lng = 0;  // degrees
    double heightKm = 0;

    Site site() const { return {lat, lng, heightKm * 1000.0}; }
};

/// The second satellite's whole position, of which the place is handed on and not kept.
SecondPlace findSecond(const View& view, double mjd, WinpData* in, SatPosData* sp)
{
    const int second = secondSatellite(*in);
    const auto place = [&] { return SecondPlace{sp->lat[second], sp->lng[second], sp->hgt[second]}; };
    const SecondPlace before = place();
    positionIn(view, mjd, in, sp, second);
    const SecondPlace found = place();
    sp->lat[second] = before.lat;
    sp->lng[second] = before.lng;
    sp->hgt[second] = before.heightKm;
    sp->sunel2 = sp->sunel[second];
    return found;
}

/// The second satellite's place takes the fields of the prime that mean nothing here.
void closeRelative(const Scene& s, const SecondPlace& second)
{
    s.sp->sunel1 = s.sp->sunel[s.isat];
    s.sp->ra[s.isat] = second.lat;
    s.sp->dec[s.isat] = second.lng;
    s.sp->sunel[s.isat] = second.heightKm;
    s.sp->rrate[s.isat] = dot(s.v - s.sp->vsat, vnorm(s.r - s.sp->rsat));
}

}  // namespace

void GetSatPos(double mjd, WinpData* in, SatPosData* sp, int isat, int vis)
{
    if (relativeMode(*in))
        relativePosition(viewOf(*in), mjd, in, sp, isat, vis);
    else
        absolutePosition(mjd, in, sp, isat, vis);
}

void relativePosition(const View& view, double mjd, WinpData* in, SatPosData* sp, int isat, int vis)
{
    if (isat != view.prime)
        return positionIn(view, mjd, in, sp, isat, vis);
    const SecondPlace second = findSecond(view, mjd, in, sp);
    View fromSecond = view;
    fromSecond.observer = second.site();
    LazyPosition position(in, sp, isat, fromSecond, true);
    position.look(mjd);
    position.complete(vis);
    closeRelative(position.scene(), second);
}

void absolutePosition(double mjd, WinpData* in, SatPosData* sp, int isat, int vis)
{
    positionIn(viewOf(*in), mjd, in, sp, isat, vis);
}

void positionIn(const View& view, double mjd, WinpData* in, SatPosData* sp, int isat, int vis)
{
    LazyPosition position(in, sp, isat, view, false);
    position.look(mjd);
    position.complete(vis);
}

double ElvRefr(WinpData* in, double el)
{
    return apparentElevation(in->refrc && !in->rlm, el);
}

double apparentElevation(bool refraction, double el)
{
    if (!refraction || !(el > -2.0 && el < 85.0))
        return el;
    if (el >= 10.0)
        return el + 0.01521154622 / std::tan(el * radPerDeg);
    if (el > -1.0)
        return el + 3.5689 * (0.1594 + 0.0196 * el + 0.0002 * el * el) / (1.0 + 0.505 * el + 0.0845 * el * el);
    return el + 0.84446937 * (el + 2.0);
}
