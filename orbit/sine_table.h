// orbit/sine_table.h: sines and cosines of the 256 parts of a circle beyond double precision, worked out by the compiler.
#pragma once

#include <array>
#include <cstddef>

/// The number hi + lo; lo is at most half a unit in the last place of hi.
struct Extended
{
    double hi, lo;
};

/// The exact sum of two numbers.
constexpr Extended exactSum(double a, double b)
{
    const double hi = a + b;
    const double part = hi - a;
    return {hi, (a - (hi - part)) + (b - part)};
}

/// The exact sum of two numbers of which the first is the larger, or 0.
constexpr Extended exactSumOrdered(double large, double small)
{
    const double hi = large + small;
    return {hi, small - (hi - large)};
}

/// The upper 26 bits of a number (Dekker, Numer. Math. 18, 224, 1971).
constexpr double upperBits(double x)
{
    const double scaled = 134217729.0 * x;
    return scaled - (scaled - x);
}

/// The exact product of two numbers.
constexpr Extended exactProduct(double a, double b)
{
    const double hi = a * b;
    const double ah = upperBits(a), al = a - ah;
    const double bh = upperBits(b), bl = b - bh;
    return {hi, ((ah * bh - hi) + ah * bl + al * bh) + al * bl};
}

constexpr Extended operator*(const Extended& a, const Extended& b)
{
    const Extended p = exactProduct(a.hi, b.hi);
    return exactSumOrdered(p.hi, p.lo + (a.hi * b.lo + a.lo * b.hi));
}

constexpr Extended operator+(const Extended& a, const Extended& b)
{
    const Extended s = exactSum(a.hi, b.hi);
    return exactSumOrdered(s.hi, s.lo + (a.lo + b.lo));
}

constexpr Extended operator-(const Extended& a)
{
    return {-a.hi, -a.lo};
}

constexpr Extended operator/(const Extended& a, double b)
{
    const double hi = a.hi / b;
    const Extended back = exactProduct(hi, b);
    return exactSumOrdered(hi, ((a.hi - back.hi) - back.lo + a.lo) / b);
}

constexpr Extended piExtended{3.141592653589793, 1.2246467991473532e-16};

/// Sine and cosine of a part, each in two: 26 bits, and the rest of it.
struct alignas(32) SinePart
{
    double sineTop, cosineTop, sineRest, cosineRest;
};

constexpr int circleParts = 256;

constexpr std::array<SinePart, circleParts> makeSineTable()
{
    struct Point
    {
        Extended sine{0, 0}, cosine{1, 0};
    };
    constexpr int eighth = circleParts / 8;
    std::array<Point, eighth + 1> points;
    for (int k = 0; k <= eighth; ++k) {
        const Extended angle = piExtended * Extended{k * 2.0 / circleParts, 0};
        Extended power{1, 0};  // angle^n / n!
        Point point;
        for (int n = 1; n < 28; ++n) {
            power = power * angle / n;
            Extended& sum = n % 2 == 1 ? point.sine : point.cosine;
            sum = sum + (n % 4 < 2 ? power : -power);
        }
        points[std::size_t(k)] = point;
    }
    std::array<SinePart, circleParts> table{};
    for (int k = 0; k < circleParts; ++k) {
        const int quadrant = k / (2 * eighth);
        const int within = k % (2 * eighth);
        const bool upper = within > eighth;
        const Point& point = points[std::size_t(upper ? 2 * eighth - within : within)];
        Extended s = upper ? point.cosine : point.sine;
        Extended c = upper ? point.sine : point.cosine;
        for (int turn = 0; turn < quadrant; ++turn) {
            const Extended before = s;
            s = c;
            c = -before;
        }
        const double sineTop = upperBits(s.hi), cosineTop = upperBits(c.hi);
        table[std::size_t(k)] = {sineTop, cosineTop, (s.hi - sineTop) + s.lo, (c.hi - cosineTop) + c.lo};
    }
    return table;
}

inline constexpr std::array<SinePart, circleParts> sineTable = makeSineTable();
