// An entry out of its lines: Two Line Elements, or the four lines of a state vector.
#pragma once

#include "elements/entry.h"

#include <cstdio>
#include <string_view>

constexpr int entryLineRoom = 80;  // longer lines count as several

/// Reads a line with its line feed, or 79 characters of a longer one; false at the end of the file.
bool nextEntryLine(std::FILE* file, char* line);

/// Columns of a line, counted from 1; those after its end are missing.
std::string_view entryColumns(std::string_view line, std::size_t first, std::size_t last);

/// What a line is by its length and first character. Anything else may be a name.
bool isElementLine(std::string_view line);

/// Reads the entry that starts in `line`, its name line or its line 1, and all of it but the name.
///
/// @param line  `entryLineRoom` characters; used up
/// @return      as far as it could be read; a name line without a line 1 gives nothing
Entry readEntryLines(std::FILE* file, char* line);
