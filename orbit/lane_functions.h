// orbit/lane_functions.h: sine, cosine and powers for the lanes of SGP4, with the bits of the standard functions.
//
// They are what a single call of SGP4 spends most of its time on, and the standard library has no vector form that
// rounds like its scalar one: without these the lanes would gain nothing or change printed digits.
//
// In lanes a function is worked out to more bits than a double has. Where these settle which double the standard
// function returns, as they do nine times in ten, it is taken from them; else the standard function is called. It has
// to be right within 0.55 units in the last place, of which half a unit is the rounding: the functions of glibc state up
// to 0.548 for the sine and 0.54 for the power.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>

#include "orbit/lanes.h"
#include "orbit/sine_cosine.h"
#include "orbit/sine_table.h"

namespace {

/// Numbers hi + lo; lo is at most half a unit in the last place of hi.
struct ExtendedLanes
{
    Part hi, lo;
};

struct ExtendedSineCosine
{
    ExtendedLanes sine, cosine;
};

/// The exact sum of two numbers of which the first is the larger, or 0.
inline ExtendedLanes exactSumOrdered(Part large, Part small)
{
    const Part hi = large + small;
    return {hi, small - (hi - large)};
}

/// The product of two numbers, with an error of less than 2^-75 of it.
inline ExtendedLanes extendedProduct(Part a, Part b)
{
    constexpr std::int64_t lower27Bits = (1 << 27) - 1;
    const Part ah = std::bit_cast<Part>(std::bit_cast<PartBits>(a) & ~lower27Bits), al = a - ah;
    const Part bh = std::bit_cast<Part>(std::bit_cast<PartBits>(b) & ~lower27Bits), bl = b - bh;
    const Part hi = a * b;
    return {hi, ((ah * bh - hi) + ah * bl + al * bh) + al * bl};
}

/// For each lane whether every number so near to hi + lo as our error and that of the standard function together is
/// rounded to hi.
inline PartBits settled(const ExtendedLanes& x, double ownError)
{
    constexpr double theirUnits = 0.05;  // their error beyond the half unit of rounding
    constexpr double sure = (0.5 - theirUnits) * 0x1p-52;
    constexpr double toLower = 1.0 - 0x1p-53;  // below a power of two the units are half as large
    constexpr std::int64_t exponentBits = 0x7ff0000000000000;
    const Part lastPlace = std::bit_cast<Part>(std::bit_cast<PartBits>(x.hi * toLower) & exponentBits);
    return magnitude(x.lo) < lastPlace * sure - ownError;
}

/// Puts the standard function of `x` into the lanes of `open`.
template <double standard(double)>
void putStandard(Lanes& value, const LaneArray& x, unsigned open)
{
    for (; open != 0; open &= open - 1) {
        const std::size_t k = std::size_t(std::countr_zero(open));
        value = select(LaneMask(singleLanes[k]), standard(x[k]), value);
    }
}

/// The settled lanes, and the standard function of those that are not.
template <double standard(double)>
Lanes settledOrStandard(Lanes value, const LaneMask& sure, const Lanes& x)
{
    if (!all(sure))
        putStandard<standard>(value, x.each(), bitsOf(~sure));
    return value;
}

constexpr double sineReach = 20000.0;  // radians; beyond it the table does not serve

/// The absolute error of `extendedSineCosine`.
constexpr double sineError = 1.5 * 0x1p-64;

/// Entries of the table.
struct SineParts
{
    Part sineTop, cosineTop, sineRest, cosineRest;
};

#if defined(__AVX2__)
inline SineParts sineParts(PartBits part)
{
    const auto entry = [=](int k) {
        return _mm256_load_pd(&sineTable[std::uint64_t(part[k]) % circleParts].sineTop);
    };
    const __m256d a = entry(0), b = entry(1), c = entry(2), d = entry(3);
    const __m256d abSine = _mm256_unpacklo_pd(a, b), abCosine = _mm256_unpackhi_pd(a, b);
    const __m256d cdSine = _mm256_unpacklo_pd(c, d), cdCosine = _mm256_unpackhi_pd(c, d);
    return {std::bit_cast<Part>(_mm256_permute2f128_pd(abSine, cdSine, 0x20)),
            std::bit_cast<Part>(_mm256_permute2f128_pd(abCosine, cdCosine, 0x20)),
            std::bit_cast<Part>(_mm256_permute2f128_pd(abSine, cdSine, 0x31)),
            std::bit_cast<Part>(_mm256_permute2f128_pd(abCosine, cdCosine, 0x31))};
}
#else
inline SineParts sineParts(PartBits part)
{
    const SinePart& a = sineTable[std::uint64_t(part[0]) % circleParts];
    const SinePart& b = sineTable[std::uint64_t(part[1]) % circleParts];
    return {Part{a.sineTop, b.sineTop}, Part{a.cosineTop, b.cosineTop}, Part{a.sineRest, b.sineRest},
            Part{a.cosineRest, b.cosineRest}};
}
#endif

/// Sine and cosine after a turn by r + rLo, of less than 0.0125, from those of the table.
inline ExtendedSineCosine turned(const SineParts& before, Part r, Part rLo)
{
    constexpr double to26Bits = 1.5 * (1 << 20);  // what is added to it is rounded to 2^-32
    const Part sTop = before.sineTop, cTop = before.cosineTop, sRest = before.sineRest, cRest = before.cosineRest;
    const Part s = sTop + sRest, c = cTop + cRest;

    // sin r = rTop + sinRest + sinSeries, cos r = 1 - cosSeries
    const Part rTop = (r + to26Bits) - to26Bits;
    const Part r2 = r * r;
    const Part r4 = r2 * r2;
    const Part sinRest = (r - rTop) + rLo;
    const Part sinSeries = r * r2 * ((r2 * (1.0 / 120.0) - 1.0 / 6.0) - r4 * (1.0 / 5040.0));
    const Part cosSeries = r2 * ((0.5 - r2 * (1.0 / 24.0)) + r4 * (1.0 / 720.0));

    const ExtendedLanes sine = exactSumOrdered(sTop, cTop * rTop);
    const ExtendedLanes cosine = exactSumOrdered(cTop, -(sTop * rTop));
    const Part sineEarly = sine.lo + (sRest + (cRest * rTop + c * sinRest));
    const Part cosineEarly = cosine.lo + (cRest - (sRest * rTop + s * sinRest));
    return {exactSumOrdered(sine.hi, sineEarly + (c * sinSeries - s * cosSeries)),
            exactSumOrdered(cosine.hi, cosineEarly - (s * sinSeries + c * cosSeries))};
}

/// Of angles of less than `sineReach`: the next part of the circle from the table, and a turn by the rest.
[[gnu::always_inline]] inline ExtendedSineCosine extendedSineCosine(Part angle)
{
    // a part of the circle in three pieces, of which the first two have exact multiples
    constexpr double part1 = 0.024543692605220713, part2 = 9.495469541099947e-13, part3 = 3.159791013743673e-23;
    constexpr double partsPerRadian = 40.74366543152521;
    constexpr double toInteger = 6755399441055744.0;  // 1.5 * 2^52: what is added to it is rounded to an integer
    const Part shifted = angle * partsPerRadian + toInteger;
    const Part count = shifted - toInteger;
    const ExtendedLanes rest = exactSumOrdered(angle - count * part1, -(count * part2));
    return turned(sineParts(std::bit_cast<PartBits>(shifted)), rest.hi, rest.lo - count * part3);
}

inline double sine(double angle)
{
    return std::sin(angle);
}

inline double cosine(double angle)
{
    return std::cos(angle);
}

inline SineCosine sineCosine(double angle, bool = true)
{
    return {std::sin(angle), std::cos(angle)};
}

/// Puts the standard functions where sine and cosine are not settled.
[[gnu::noinline]] inline void putStandard(SineCosineOf<Lanes>& value, const Lanes& angle, unsigned openSine,
                                          unsigned openCosine)
{
    const LaneArray angles = angle.each();
    putStandard<sine>(value.sine, angles, openSine);
    putStandard<cosine>(value.cosine, angles, openCosine);
}

/// Sine and cosine; what the lanes that are not wanted hold does not matter.
inline SineCosineOf<Lanes> sineCosine(const Lanes& angle, const LaneMask& wanted = KindOf<Lanes>::yes)
{
    const ExtendedSineCosine low = extendedSineCosine(angle.low), high = extendedSineCosine(angle.high);
    const LaneMask sureSine{settled(low.sine, sineError), settled(high.sine, sineError)};
    const LaneMask sureCosine{settled(low.cosine, sineError), settled(high.cosine, sineError)};
    const LaneMask near = magnitude(angle) < sineReach;
    SineCosineOf<Lanes> result{{low.sine.hi, high.sine.hi}, {low.cosine.hi, high.cosine.hi}};
    if (any(~(sureSine & sureCosine & near) & wanted))
        putStandard(result, angle, bitsOf(~(sureSine & near) & wanted), bitsOf(~(sureCosine & near) & wanted));
    return result;
}

inline Lanes sine(const Lanes& angle)
{
    const ExtendedLanes low = extendedSineCosine(angle.low).sine, high = extendedSineCosine(angle.high).sine;
    const LaneMask sure{settled(low, sineError), settled(high, sineError)};
    return settledOrStandard<sine>({low.hi, high.hi}, sure & (magnitude(angle) < sineReach), angle);
}

inline Lanes cosine(const Lanes& angle)
{
    const ExtendedLanes low = extendedSineCosine(angle.low).cosine, high = extendedSineCosine(angle.high).cosine;
    const LaneMask sure{settled(low, sineError), settled(high, sineError)};
    return settledOrStandard<cosine>({low.hi, high.hi}, sure & (magnitude(angle) < sineReach), angle);
}

/// Of a power and its base, lane by lane: the power if it is settled and of common size, else the standard function.
template <double standard(double)>
Lanes settledPower(const ExtendedLanes& low, const ExtendedLanes& high, const Lanes& base)
{
    const Lanes value{low.hi, high.hi};
    const LaneMask common = (value < 1e60) & (1e-60 < value);
    return settledOrStandard<standard>(value, LaneMask{settled(low, 0.0), settled(high, 0.0)} & common, base);
}

inline double cube(double x)
{
    return std::pow(x, 3.0);
}

inline ExtendedLanes extendedCube(Part x)
{
    const ExtendedLanes square = extendedProduct(x, x);
    const ExtendedLanes product = extendedProduct(square.hi, x);
    return exactSumOrdered(product.hi, product.lo + square.lo * x);
}

/// std::pow(x, 3.0)
inline Lanes cube(const Lanes& x)
{
    return settledPower<cube>(extendedCube(x.low), extendedCube(x.high), x);
}

inline double threeHalves(double x)
{
    return std::pow(x, 1.5);
}

inline ExtendedLanes extendedThreeHalves(Part x)
{
    const Part root = squareRoot(x);
    const ExtendedLanes back = extendedProduct(root, root);
    const Part rootLo = ((x - back.hi) - back.lo) / (root + root);
    const ExtendedLanes product = extendedProduct(x, root);
    return exactSumOrdered(product.hi, product.lo + x * rootLo);
}

/// std::pow(x, 1.5)
inline Lanes threeHalves(const Lanes& x)
{
    return settledPower<threeHalves>(extendedThreeHalves(x.low), extendedThreeHalves(x.high), x);
}

inline double arcTangent(double y, double x)
{
    return std::atan2(y, x);
}

inline Lanes arcTangent(const Lanes& y, const Lanes& x)
{
    LaneArray result = y.each();
    const LaneArray other = x.each();
    for (std::size_t k = 0; k < laneCount; ++k)
        result[k] = std::atan2(result[k], other[k]);
    return Lanes(result);
}

}  // namespace
