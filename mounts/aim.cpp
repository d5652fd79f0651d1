#include "mounts/aim.h"

#include <algorithm>
#include <cmath>

Aim ahead(Aim aim, double seconds)
{
    const double hours = aim.raRate * seconds / (15.0 * 3600.0);
    const double degrees = aim.decRate * seconds / 3600.0;
    const auto turned = [](double ra) { return ra - 24.0 * std::floor(ra / 24.0); };
    aim.ra = turned(aim.ra + hours);
    aim.ra2000 = turned(aim.ra2000 + hours);
    aim.dec = std::clamp(aim.dec + degrees, -90.0, 90.0);
    aim.dec2000 = std::clamp(aim.dec2000 + degrees, -90.0, 90.0);
    return aim;
}

void SlewTime::arrived()
{
    if (!timer.isValid())
        return;
    constexpr double longest = 20.0;  // beyond that rates say nothing
    last = std::min(static_cast<double>(timer.elapsed()) / 1000.0, longest);
    timer.invalidate();
}
