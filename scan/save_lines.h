// The lines of a save file of passes, and the file as a whole.
#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

/// Characters of date and time at the start of the line of a pass; a shorter line is none.
constexpr std::size_t passStampLength = 16;

/// Whether a line belongs to a heading, by its first character.
bool isHeading(std::string_view line);

/// Reads a line of any length without its line feed; false if nothing was left to read.
bool nextSaveLine(std::FILE* file, std::string& line);

/// All that a file holds; nothing if it cannot be read twice, as a pipe or a device.
std::optional<std::string> contentOfFile(const char* name);

/// Whether `replaceFile` can be expected to succeed, for a look before a long search.
bool mayBeWritten(const char* name);

/// Gives a file another content. It holds the old one until the new one is whole on the disk, also if the program ends
/// meanwhile; pipes and devices are just written to.
///
/// @return false if the content could not be written
bool replaceFile(const char* name, std::string_view content);

/// Writes a file of this content; none is left if that fails.
bool writeNew(const char* name, std::string_view content);
