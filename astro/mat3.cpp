#include "astro/mat3.h"

Mat3 xrot(double a)
{
    const double c = std::cos(a);
    const double s = std::sin(a);
    return {1, 0, 0, 0, c, s, 0, -s, c};
}

Mat3 yrot(double a)
{
    const double c = std::cos(a);
    const double s = std::sin(a);
    return {c, 0, -s, 0, 1, 0, s, 0, c};
}

Mat3 zrot(double a)
{
    const double c = std::cos(a);
    const double s = std::sin(a);
    return {c, s, 0, -s, c, 0, 0, 0, 1};
}
