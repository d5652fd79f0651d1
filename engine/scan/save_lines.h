// The lines of a save file of passes.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

/// Characters of date and time at the start of the line of a pass; a shorter line is none.
constexpr std::size_t passStampLength = 16;

/// Whether a line belongs to a heading, by its first character.
bool isHeading(std::string_view line);

/// Reads a line of any length without its line feed; false if nothing was left to read.
bool nextSaveLine(std::FILE* file, std::string& line);
