#include "design/visibility_rules.h"

FlareVariant flareVariant(int flarmod)
{
    return {flarmod >= 1, flarmod == 1 || flarmod == -1};
}

int flareMode(FlareVariant variant)
{
    const int size = variant.localAttitude ? 1 : 2;
    return variant.knownSurface ? size : -size;
}

bool anglesAreCylinder(bool cylflg, int flarflg, int flarmod)
{
    return cylflg && flarmod < 0 && flarflg == 1;
}
