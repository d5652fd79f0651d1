#include "engine/pass_walk.h"

bool WalkBase::maximumOutside() const
{
    if (beyond(pass.tm[1], pass.tm[2])) {
        put(1, pass.tm[2], pass.a[2], pass.b[2]);
        return true;
    }
    if (beyond(pass.tm[0], pass.tm[1])) {
        put(1, pass.tm[0], pass.a[0], pass.b[0]);
        return true;
    }
    return false;
}

void WalkBase::put(int index, double t, double elevation, double azimuth) const
{
    pass.tm[index] = t;
    pass.a[index] = elevation;
    pass.b[index] = azimuth;
}
