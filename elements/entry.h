// One satellite as an element file says it: the numbers as they were read, before anything is made of them.
#pragma once

#include <string>
#include <string_view>

/// How far an entry could be read. Its parts up to there hold; of a damaged one that is not all.
enum class EntryPart
{
    none,
    heading,  // number, designator and epoch
    drag,     // and the end of line 1
    whole
};

/// The content of an entry, of two lines, of a state vector or of a message. Plain bytes without a pointer.
struct Entry
{
    EntryPart readTo = EntryPart::none;
    bool stateVector = false;
    char name[25] = {};         // as its line has it, cut to 24 characters
    char designator[9] = {};    // YYNNNAAA, filled up with blanks
    int number = 0;             // catalogue number
    char classification = ' ';  // U, C or S; a blank if it is not told
    int year = 2000;            // of the epoch, UTC
    double day = 1;             // of the year; January 1st, 0h is 1.0
    int ephemerisType = 0;      // 9: the simple Keplerian model
    int elementSet = -1;        // its number; -1 unknown
    int revolution = -1;        // at the epoch; -1 unknown

    double ndot = 0;         // half the first derivative of the mean motion, rev/day^2
    double n6dot = 0;        // a sixth of the second derivative, rev/day^3
    double bstar = 0;        // per Earth radius
    double inc = 0, ra = 0;  // degrees
    double ecc = 0;
    double aper = 0, m0 = 0;  // degrees
    double n0 = 0;            // rev/day; perigee distance in km for ecc >= 1

    double r[3] = {};            // of a state vector: metres, mean equator and equinox of date
    double v[3] = {};            // m/s
    double F107 = 0, FB107 = 0;  // solar flux at 10.7 cm and its average, 1e-22 W/m^2/Hz
    double Kp = 0;               // geomagnetic index
    double Cd = 0, Cr = 0;       // drag and radiation pressure coefficients
    double Am = 0;               // area/mass ratio, m^2/kg

    char refusal[71] = {};  // why a message is not used; its elements are 0 then
};

/// The designator of an entry in full, 98067A to 1998-067A; one that begins with a blank gives nothing. Years below 57
/// are of this century.
std::string fullDesignator(std::string_view raw);
