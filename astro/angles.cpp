#include "astro/angles.h"

#include "astro/calendar.h"

double DegFDms(double x)
{
    int d = 0;
    int m = 0;
    double s = 0;
    dms(std::abs(x), d, m, s);
    if (s >= 59.5) {
        s = 0;
        m = m + 1;
    }
    double degrees = d;
    if (m >= 60) {
        m = 0;
        degrees = degrees + 1;
    }
    const double packed = degrees + m / 100.0 + s / 10000.0;
    return x < 0 ? -packed : packed;
}

double DmsDegF(double x)
{
    const double b = std::abs(x) + 3.33e-16 * std::abs(x);
    const int d = truncToInt(b);
    const int m = truncToInt(100.0 * frac(b) + 1e-13);
    const double s = 100.0 * frac(100.0 * b);
    const double degrees = ddd(d, m, s);
    return x < 0 ? -degrees : degrees;
}
