// Files with the horizon of a place, and which of them is in use.
#pragma once

#include "engine/horizon_line.h"

#include <QString>
#include <memory>
#include <string>
#include <string_view>

/// The line of a text, or why it is none.
struct HorizonText
{
    std::shared_ptr<const HorizonLine> line;  // null with a complaint
    std::string complaint;                    // for a reader
};

/// Reads pairs of azimuth, from north through east, and elevation, in degrees.
///
/// A line has one pair, its numbers set apart by blanks, tabs, a comma or a semicolon, with or without degree signs.
/// Empty lines and what follows a # are skipped, and so are a byte order mark and a first line of words. Or the whole
/// text is one JSON list of lists of two numbers. Anything else, an azimuth beyond -360 and 720, an elevation beyond -90
/// and 90, and more than `mostHorizonPoints` points are refused, with the number of the line.
HorizonText readHorizon(std::string_view text);
constexpr std::size_t mostHorizonPoints = 100000;

/// The same of a file; one that cannot be read, or has more than 16 MB, gets a complaint.
HorizonText readHorizonFile(const QString& name);

/// The file in use, as vorlix.ini keeps it; empty: none.
QString horizonFile();
void keepHorizonFile(const QString& name);
