// One Orbit Mean-Elements Message (CCSDS 502.0-B-3) and what the reader makes of it.
#pragma once

#include "elements/entry.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

/// The keywords that are read; those of other forms of the standard, and all that concern no element, are passed over.
enum class OmmField : std::size_t
{
    objectName,
    objectId,
    centerName,
    refFrame,
    timeSystem,
    meanElementTheory,
    epoch,
    meanMotion,
    eccentricity,
    inclination,
    raOfAscNode,
    argOfPericenter,
    meanAnomaly,
    ephemerisType,
    noradCatId,
    revAtEpoch,
    bstar,
    meanMotionDot,
    meanMotionDdot,
    rcsSize,
    count
};
constexpr std::size_t ommFieldCount = static_cast<std::size_t>(OmmField::count);

std::string_view keywordOf(OmmField field);

/// The field of a keyword in capitals; `count` for any other.
OmmField fieldOf(std::string_view keyword);

/// The values of a message as they were written. A field that is absent, empty or null has none.
class OmmMessage
{
public:
    /// Keeps the value without the blanks around it; the field `count` has none.
    void set(OmmField field, std::string_view value);
    const std::string& operator[](OmmField field) const { return values[static_cast<std::size_t>(field)]; }
    bool empty() const { return !any; }
    void clear();

private:
    std::array<std::string, ommFieldCount> values;
    bool any = false;
};

/// The same number as an exponent field of two lines gives it, which may differ in the last bit; a number that no such
/// field holds stays.
double asExponentField(double value);

/// The entry of a message. It has the elements of the same satellite in two lines, to the last bit where two lines
/// hold them; the epoch is cut off at 1e-12 days, below what a Modified Julian Date resolves.
///
/// It is refused, with the reason as a text, if it lacks an element, if a number is none or if it belongs to another
/// time system than UTC, another centre than the Earth, another frame than TEME or another theory than SGP4. What is
/// left out of these four counts as right.
Entry entryOf(const OmmMessage& message);
