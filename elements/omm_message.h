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
    classificationType,
    noradCatId,
    elementSetNo,
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

/// The message of an entry of mean elements, which `entryOf` takes back as it was; the epoch has microseconds. What the
/// entry does not know is empty.
OmmMessage messageOf(const Entry& entry);

/// The shortest text that reads as the same number; 0 for one that is none.
std::string ommNumber(double value);
/// The same for the number of an exponent field of two lines: its five digits where they give it back.
std::string ommExponent(double value);
/// 2018-01-20T12:00:00.000000, rounded to the microsecond and held to the years that four digits name.
///
/// @param startOfDay  MJD, a whole number
/// @param days        since then
std::string ommEpoch(double startOfDay, double days);
