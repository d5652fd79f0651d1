// Lists of standard magnitudes, radar classes of element files, and what is kept of them in vorlix.ini.
#pragma once

#include "engine/brightness.h"

#include <QString>
#include <string>
#include <unordered_map>

/// Where the magnitudes come from.
struct BrightnessSettings
{
    QString file;            // a list of magnitudes; empty for none
    bool halfPhase = false;  // they belong to 90 degrees of phase, and not to full phase
    double lengthM = 0;      // of objects that nothing is known of; 0: they have no magnitude
};

/// Reads "magnitudes" of vorlix.ini.
///
/// @param lengthM  stands where none is kept
BrightnessSettings keptBrightnessSettings(double lengthM);
void keepBrightnessSettings(const BrightnessSettings& settings);

/// A list that was read.
struct MagnitudeList
{
    std::unordered_map<int, StandardMagnitude> rows;  // by catalogue number
    int refused = 0;                                  // lines that are neither a row nor a comment
    std::string why;                                  // a file that cannot be read, for a reader
};

/// Reads a list of magnitudes at 1000 km. A line is a catalogue number, then either a magnitude and perhaps its spread,
/// with blanks or commas between them, or a name with the magnitude in columns 34 to 37. A "#" begins a comment; a later
/// line for the same number takes the place of an earlier one.
///
/// @param phaseDeg  that the magnitudes belong to
MagnitudeList readMagnitudes(const std::string& file, double phaseDeg);

/// The radar classes (RCS_SIZE) of an element file, by catalogue number; none in Two Line Elements.
std::unordered_map<int, RadarClass> readRadarClasses(const char* elementFile);

/// Everything that list and element file tell. A list that cannot be read counts as empty.
///
/// @param why  receives the reason in that case
BrightnessBook brightnessBook(const BrightnessSettings& settings, const char* elementFile,
                              std::string* why = nullptr);
