#include "engine/site.h"

#include "record/winp_data.h"

Site siteOf(const WinpData& in)
{
    return {in.lat, in.lng, in.height};
}

View viewOf(const WinpData& in)
{
    return {siteOf(in), in.yrepoch, in.prs, in.iridflg};
}
