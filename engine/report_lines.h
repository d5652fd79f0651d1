// What several reports say in the same words.
#pragma once

#include <initializer_list>

struct WinpData;
struct WoutData;
class TextWriter;

/// Appends running text lines; an empty text stands for a blank line.
void putLines(WoutData* out, std::initializer_list<const char*> lines);

/// Appends the note that a heading has where the span `dur` is cut to its limit.
///
/// @return  whether it is cut; if not, nothing is appended
bool addSpanNote(TextWriter& heading, const WinpData& in);
