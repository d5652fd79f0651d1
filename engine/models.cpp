#include "engine/models.h"

#include "record/winp_data.h"

Models modelsOf(const WinpData& in)
{
    return {earthOrientationOf(in), in.yrepoch, in.refrc, in.chlen, in.atmx, in.moonflg != 0, in.eclflg, in.models};
}
