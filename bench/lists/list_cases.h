// Scans, AOS lists and searches of the catalogue of 2018, to time them and to compare two versions of the program by.
#pragma once

#include <string>
#include <vector>

/// A row of cases.txt with one of its settings, at one site.
struct ListCase
{
    std::string what;  // kind, settings and site in one word each
    /// `scan` and `flares` are AllSatAos, the second with the table of Iriddspy; `aoslists` is aospass for each entry,
    /// `searches` chains of nextpass and lastpass for each, `next` nextSatellites at four times, `match` SatMatch.
    std::string kind;
    std::string elements;  // file of tests/data/elements, or "mixed.txt" of tests/data/scan
    std::string site;
    std::string fields;  // that differ from the defaults
};

/// All cases, in the order of cases.txt.
const std::vector<ListCase>& listCases();

/// Runs a case with every `stride`-th entry of its file, in the current directory, which should be an empty one.
///
/// @param fixedSpan  days; 0 stands for 3.1, or less for numeric orbits
/// @return           all that came out, as lines
std::string runListCase(const ListCase& c, int stride, double fixedSpan = 0);

/// SHA-256 of a text, in hexadecimal.
std::string digestOf(const std::string& text);
