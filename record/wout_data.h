// The text output record: the lines of the report on show.
#pragma once

#include <string_view>

constexpr int maxReportLines = 160;
constexpr int reportLineBytes = 77;
constexpr int layoutMarkByte = 76;  // of each line: how it is painted

/// How a line is painted.
enum class LineLayout
{
    running,  // letters side by side
    table     // on a grid of character cells
};

/// The lines are NUL terminated in bytes 0 to 75. A report clears the record by `nlines` = 0; bytes of unused lines
/// mean nothing.
struct WoutData
{
    int nlines = 0;
    char text[maxReportLines][reportLineBytes] = {};
};

/// Made before main, never freed.
extern WoutData* outdata;

/// Appends a running text line, its commas before the first "(" turned into points. It is cut to 76 characters. A
/// full record stays as it is.
void PutNxtLn(WoutData* out, const char* text);

/// The same for a table line of at most 75 characters, which is painted on a grid of character cells.
void PutNxtLnT(WoutData* out, const char* text);

/// Appends a line of one blank.
void PutSpace(WoutData* out);

/// The text of a line, without its mark.
std::string_view lineText(const WoutData& out, int line);

/// The layout of a line, as its mark has it: '~' for a table line, anything else for running text.
LineLayout layoutOf(const WoutData& out, int line);

/// Whether a line of a table of passes can be clicked. Its first character, which is not painted, tells so: not a blank.
bool selectable(const WoutData& out, int line);
