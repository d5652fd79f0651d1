// orbit/lanes.h: a small vector of doubles in processor registers, so that SGP4 computes several instants at once.
//
// A search asks for many neighbouring instants; in lanes they take about half the time of single calls, with the same
// bits. The stages of the model are templates over `double` and `Lanes`, and what they need beyond the operators of a
// double stands here for both. Everything is in an unnamed namespace, since a file compiled for other processors needs
// a copy of its own.
#pragma once

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <immintrin.h>
#endif

namespace {

/// What one register holds: two numbers on the plainest x86-64 processor.
#if defined(__AVX2__)
constexpr std::size_t partSize = 4;
#else
constexpr std::size_t partSize = 2;
#endif
using Part [[gnu::vector_size(partSize * sizeof(double))]] = double;
using PartBits [[gnu::vector_size(partSize * sizeof(double))]] = std::int64_t;

/// Two registers, so that the processor has something to do while one of them waits.
constexpr std::size_t laneCount = 2 * partSize;

/// Two registers of numbers.
template <class Register, class Number>
struct RegisterPair
{
    using Array = std::array<Number, laneCount>;

    constexpr RegisterPair() = default;
    constexpr RegisterPair(Register l, Register h) : low(l), high(h) {}
    explicit RegisterPair(const Array& each)
    {
        std::memcpy(&low, each.data(), sizeof low);
        std::memcpy(&high, each.data() + partSize, sizeof high);
    }
    // NOLINTBEGIN(modernize-use-equals-default): those would copy mere bytes, by halves of a register, which then waits
    constexpr RegisterPair(const RegisterPair& other) : low(other.low), high(other.high) {}
    RegisterPair& operator=(const RegisterPair& other)
    {
        low = other.low;
        high = other.high;
        return *this;
    }
    // NOLINTEND(modernize-use-equals-default)
    ~RegisterPair() = default;

    Array each() const
    {
        Array numbers;
        std::memcpy(numbers.data(), &low, sizeof low);
        std::memcpy(numbers.data() + partSize, &high, sizeof high);
        return numbers;
    }

    Register low{}, high{};
};

/// For each lane yes (all bits set) or no; also integers.
struct LaneMask : RegisterPair<PartBits, std::int64_t>
{
    using RegisterPair::RegisterPair;

    friend LaneMask operator&(const LaneMask& a, const LaneMask& b) { return {a.low & b.low, a.high & b.high}; }
    friend LaneMask operator|(const LaneMask& a, const LaneMask& b) { return {a.low | b.low, a.high | b.high}; }
    friend LaneMask operator~(const LaneMask& a) { return {~a.low, ~a.high}; }
};

/// The same number in each lane.
inline Part partOf(double x)
{
    return x - Part{};
}

struct Lanes : RegisterPair<Part, double>
{
    using RegisterPair::RegisterPair;
    // cppcheck-suppress noExplicitConstructor  ; so that a constant may stand beside lanes
    Lanes(double x) : RegisterPair(partOf(x), partOf(x)) {}

    friend Lanes operator-(const Lanes& a) { return {-a.low, -a.high}; }
    friend Lanes operator+(const Lanes& a, const Lanes& b) { return {a.low + b.low, a.high + b.high}; }
    friend Lanes operator-(const Lanes& a, const Lanes& b) { return {a.low - b.low, a.high - b.high}; }
    friend Lanes operator*(const Lanes& a, const Lanes& b) { return {a.low * b.low, a.high * b.high}; }
    friend Lanes operator/(const Lanes& a, const Lanes& b) { return {a.low / b.low, a.high / b.high}; }
    friend LaneMask operator<(const Lanes& a, const Lanes& b) { return {a.low < b.low, a.high < b.high}; }
    friend LaneMask operator<=(const Lanes& a, const Lanes& b) { return {a.low <= b.low, a.high <= b.high}; }
    friend LaneMask operator>=(const Lanes& a, const Lanes& b) { return {a.low >= b.low, a.high >= b.high}; }
};

using LaneArray = Lanes::Array;
using CodeArray = LaneMask::Array;

/// The same of a double and of `Lanes`: type of a condition, type of an error code.
template <class T>
struct KindOf;

template <>
struct KindOf<double>
{
    using Mask = bool;
    using Code = std::int32_t;
    static constexpr bool yes = true;
};

template <>
struct KindOf<Lanes>
{
    using Mask = LaneMask;
    using Code = LaneMask;
    static constexpr LaneMask yes{~PartBits{}, ~PartBits{}};
};

template <class T>
using MaskOf = typename KindOf<T>::Mask;

template <class T>
using CodeOf = typename KindOf<T>::Code;

/// Each lane alone.
constexpr std::array<CodeArray, laneCount> singleLanes = [] {
    std::array<CodeArray, laneCount> masks{};
    for (std::size_t k = 0; k < laneCount; ++k)
        masks[k][k] = -1;
    return masks;
}();

/// A bit for each lane, the first one lowest.
inline unsigned bitsOf(PartBits m)
{
#if defined(__AVX2__)
    return unsigned(_mm256_movemask_pd(std::bit_cast<__m256d>(m)));
#elif defined(__SSE2__)
    return unsigned(_mm_movemask_pd(std::bit_cast<__m128d>(m)));
#else
    return unsigned((m[0] & 1) | (m[1] & 2));
#endif
}

inline unsigned bitsOf(const LaneMask& m)
{
    return bitsOf(m.low) | bitsOf(m.high) << partSize;
}

inline bool any(bool m)
{
    return m;
}

inline bool any(const LaneMask& m)
{
    return bitsOf(m) != 0;
}

inline bool all(bool m)
{
    return m;
}

inline bool all(const LaneMask& m)
{
    return bitsOf(m) == (1U << laneCount) - 1;
}

inline double select(bool which, double yes, double no)
{
    return which ? yes : no;
}

inline PartBits select(PartBits which, PartBits yes, PartBits no)
{
    return (which & yes) | (~which & no);
}

inline Part select(PartBits which, Part yes, Part no)
{
    return std::bit_cast<Part>(select(which, std::bit_cast<PartBits>(yes), std::bit_cast<PartBits>(no)));
}

inline Lanes select(const LaneMask& which, const Lanes& yes, const Lanes& no)
{
    return {select(which.low, yes.low, no.low), select(which.high, yes.high, no.high)};
}

/// Sets the error code where the condition holds.
inline void raise(std::int32_t& error, bool when, std::int32_t code)
{
    if (when)
        error = code;
}

inline void raise(LaneMask& error, const LaneMask& when, std::int32_t code)
{
    const PartBits codes = PartBits{} + code;
    error = {select(when.low, codes, error.low), select(when.high, codes, error.high)};
}

constexpr PartBits signBits = PartBits{} + INT64_MIN;

inline double magnitude(double x)
{
    return std::abs(x);
}

inline Part magnitude(Part x)
{
    return std::bit_cast<Part>(std::bit_cast<PartBits>(x) & ~signBits);
}

inline Lanes magnitude(const Lanes& x)
{
    return {magnitude(x.low), magnitude(x.high)};
}

inline double withSign(double size, double sign)
{
    return std::copysign(size, sign);
}

inline Part withSign(Part size, Part sign)
{
    return select(signBits, sign, size);
}

inline Lanes withSign(const Lanes& size, const Lanes& sign)
{
    return {withSign(size.low, sign.low), withSign(size.high, sign.high)};
}

inline double squareRoot(double x)
{
    return std::sqrt(x);
}

inline Part squareRoot(Part x)
{
#if defined(__AVX2__)
    return std::bit_cast<Part>(_mm256_sqrt_pd(std::bit_cast<__m256d>(x)));
#elif defined(__SSE2__)
    return std::bit_cast<Part>(_mm_sqrt_pd(std::bit_cast<__m128d>(x)));
#else
    return Part{std::sqrt(x[0]), std::sqrt(x[1])};
#endif
}

inline Lanes squareRoot(const Lanes& x)
{
    return {squareRoot(x.low), squareRoot(x.high)};
}

/// A number of less than 2^31 without its fraction.
inline double nearInteger(double x)
{
    return static_cast<std::int32_t>(x);
}

/// Numbers of less than 2^31 as one of the two integers beside them.
inline Lanes nearInteger(const Lanes& x)
{
    constexpr double toInteger = 6755399441055744.0;  // 1.5 * 2^52: what is added to it is rounded to an integer
    return (x + toInteger) - toInteger;
}

/// A function of one number, lane by lane.
inline Lanes laneByLane(double (*f)(double), const Lanes& x)
{
    LaneArray each = x.each();
    for (double& one : each)
        one = f(one);
    return Lanes(each);
}

}  // namespace
