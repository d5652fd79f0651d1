#include "engine/brightest_moment.h"

#include "astro/angles.h"
#include "engine/lazy_position.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int steps = 8;                       // of a pass, before the best is looked at closely
constexpr double shortPassDays = 20.0 / 1440;  // its least range is that of its maximum, nearly
constexpr double rangeMargin = 0.5;            // magnitudes, for that nearly

Illumination illuminationOf(LazyPosition& position)
{
    const double sun = position.sunAtSatellite();
    Scene s = position.scene();
    placeObserver(s);
    const Vec3 toSun = vnorm(s.sun * earthRadiusKm - s.r);
    const double phase = std::acos(std::clamp(dot(s.toObserver, toSun), -1.0, 1.0)) * degPerRad;
    return {s.sp->dst[s.isat], phase, position.elevation(), sunlitShare(sun)};
}

/// The instants of a pass that have been looked at.
class Search
{
public:
    Search(WinpData* in, SatPosData* sp, int isat, const StandardMagnitude& wanted)
        : position(in, sp, isat), standard(wanted), air(in->atmx)
    {}

    /// Whether the pass cannot reach the limit: at full phase, without air, at its least range.
    bool beyond(const Pass& pass, double faintest)
    {
        if (pass.tm[2] - pass.tm[0] > shortPassDays)
            return false;
        position.look(pass.tm[1]);
        const double range = std::max(position.scene().sp->dst[position.scene().isat], 1.0);
        return standard.full + 5.0 * std::log10(range / 1000.0) - rangeMargin > faintest;
    }

    void look(double t)
    {
        position.look(t);
        const auto magnitude = magnitudeOf(standard, illuminationOf(position), air);
        if (magnitude && (!best || *magnitude < best->magnitude))
            best = {t, *magnitude, position.azimuth(), position.elevation(), position.sunAtObserver()};
    }

    std::optional<BrightMoment> best;

private:
    LazyPosition position;
    const StandardMagnitude& standard;
    bool air;
};

}  // namespace

std::optional<BrightMoment> brightestMoment(WinpData* in, SatPosData* sp, int isat, const Pass& pass,
                                            const StandardMagnitude& standard, double faintest)
{
    Search search(in, sp, isat, standard);
    if (search.beyond(pass, faintest))
        return std::nullopt;
    double step = (pass.tm[2] - pass.tm[0]) / steps;
    for (int k = 0; k <= steps; ++k)
        search.look(pass.tm[0] + k * step);
    for (int round = 0; search.best && round < 3; ++round) {
        step /= 2.0;
        const double middle = search.best->mjd;
        for (const double t : {middle - step, middle + step})
            if (t > pass.tm[0] && t < pass.tm[2])
                search.look(t);
    }
    return search.best && search.best->magnitude <= faintest ? search.best : std::nullopt;
}

std::optional<double> magnitudeAt(WinpData* in, SatPosData* sp, int isat, double mjd,
                                  const StandardMagnitude& standard)
{
    LazyPosition position(in, sp, isat);
    position.look(mjd);
    return magnitudeOf(standard, illuminationOf(position), in->atmx);
}
