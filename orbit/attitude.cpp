#include "orbit/attitude.h"

#include "astro/angles.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

double limitedAcos(double x)
{
    return std::acos(std::clamp(x, -1.0, 1.0));
}

bool isZero(const Vec3& v)
{
    return v[0] == 0.0 && v[1] == 0.0 && v[2] == 0.0;
}

/// Unit vector of r x v, or a substitute where these are parallel.
Vec3 orbitNormal(const Vec3& ru, const Vec3& vu)
{
    for (const Vec3& direction : {vu, Vec3(0, 1, 0), Vec3(1, 0, 0)})
        if (const Vec3 h = vnorm(ru * direction); !isZero(h))
            return h;
    return {0, 0, 1};
}

}  // namespace

Mat3 GetRVMat(const Vec3& r, const Vec3& v, double yaw, double pitch, int mode)
{
    const Vec3 ru = vnorm(r);
    const Vec3 vu = vnorm(v);
    const Vec3 h = orbitNormal(ru, vu);
    Mat3 m = zrot(atan20(h[1], h[0]) + std::numbers::pi);
    m *= yrot(-limitedAcos(h[2]));
    const Vec3 w = mxvct(m, v);
    m *= zrot(atan20(w[1], w[0]));
    if (mode != 0)
        m *= xrot(std::numbers::pi / 2.0);
    if (mode == 2)
        m *= yrot(limitedAcos(dot(ru, vu)) - std::numbers::pi / 2.0);
    if (yaw != 0)
        m *= zrot(-yaw * radPerDeg);
    if (pitch != 0)
        m *= yrot(-pitch * radPerDeg);
    return m;
}
