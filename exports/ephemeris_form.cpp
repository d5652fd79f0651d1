#include "exports/ephemeris_form.h"

#include "exports/rows.h"
#include "exports/time_text.h"

namespace {

constexpr int kmDecimals = 6;
constexpr int rateDecimals = 9;

std::string valueOr(const std::string& text, const char* otherwise)
{
    return text.empty() ? otherwise : text;
}

}  // namespace

std::string ephemerisHead(const EphemerisHead& head)
{
    return "CCSDS_OEM_VERS = 3.0\nCREATION_DATE = " + isoMicroseconds(head.created) +
           "\nORIGINATOR = VORLIX\n\nMETA_START\nOBJECT_NAME = " + valueOr(head.object, "UNKNOWN") +
           "\nOBJECT_ID = " + valueOr(head.designator, "UNKNOWN") +
           "\nCENTER_NAME = EARTH\nREF_FRAME = " + head.frame +
           "\nTIME_SYSTEM = UTC\nSTART_TIME = " + isoMicroseconds(head.start) +
           "\nSTOP_TIME = " + isoMicroseconds(head.stop) + "\nMETA_STOP\n\n";
}

std::string ephemerisLine(const EphemerisState& state)
{
    std::string line = isoMicroseconds(state.mjd);
    for (const double x : state.r)
        line += ' ' + fixedNumber(x, kmDecimals);
    for (const double x : state.v)
        line += ' ' + fixedNumber(x, rateDecimals);
    return line + '\n';
}
