#include "astro/series.h"

#include <cmath>

void fillMultiples(double* c, double* s, int lowest, int highest, double angle)
{
    const double c1 = std::cos(angle);
    const double s1 = std::sin(angle);
    c[0] = 1.0;
    s[0] = 0.0;
    for (int k = 1; k <= highest; ++k)
        addthe(c[k - 1], s[k - 1], c1, s1, c[k], s[k]);
    for (int k = -1; k >= lowest; --k)
        addthe(c[k + 1], s[k + 1], c1, -s1, c[k], s[k]);
}
