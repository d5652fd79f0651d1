// The lines of a save file of passes, and the file as a whole.
#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

struct WinpData;

/// Characters of date and time at the start of the line of a pass; a shorter line is none.
constexpr std::size_t passStampLength = 16;

/// Whether a line belongs to a heading, by its first character.
bool isHeading(std::string_view line);

/// Reads a line of any length without its line feed; false if nothing was left to read.
bool nextSaveLine(std::FILE* file, std::string& line);

/// Gives a save file this content, its lines in the order of `SortAos`.
///
/// The sorted lines go to a temporary file first; if that cannot be written, the file takes them unsorted.
///
/// @return as of `replaceFile`
[[nodiscard]] std::string replaceSorted(const char* name, const std::string& content);

/// Sorts the lines of `savename` by month, day and time; headings go to the top, in their order.
///
/// Lines of the same second keep their order. A file with fewer than two lines of passes, or one that cannot be
/// opened, stays as it is. The order is that of one calendar year: January comes first.
void SortAos(WinpData* in);
