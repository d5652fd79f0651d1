// Entries of full precision, in the text that a stream in memory hands to the reader.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

/// What a message says, as the reader takes it, or why it is not taken.
struct ExactEntry
{
    std::string name;        // of any length; empty for none
    std::string designator;  // YYNNNAAA, or empty
    int norad = 0;
    int year = 2000;  // of the epoch
    double day = 1;   // of the year; January 1st, 0h is 1.0
    int ephemerisType = 0;
    int revolution = -1;     // -1 unknown
    double ndot = 0;         // rev/day^2, half the rate
    double n6dot = 0;        // rev/day^3, a sixth of the second derivative
    double bstar = 0;        // 1/Earth radii
    double inc = 0, ra = 0;  // degrees
    double ecc = 0;
    double aper = 0, m0 = 0;  // degrees
    double n0 = 0;            // rev/day; perigee distance in km for ecc >= 1
    std::string refusal;      // empty if the elements are good
};

/// Appends the lines of an entry: a name line, a line 1 with its number and designator where a Two Line Element has
/// them, and lines of all figures, which round trip.
void appendExact(std::string& text, const ExactEntry& entry);

/// Whether this is line 1 of such an entry. Only a stream in memory has any: the same text in a file is none.
bool isExactLine(std::FILE* fp, std::string_view line);

/// The number in a line for which `isExactLine` is true.
int exactNumber(std::string_view line);

/// Reads the lines behind line 1; fills all but name, number and designator.
///
/// @return false if a line is missing
bool readExact(std::FILE* fp, ExactEntry& entry);
