// Fixed text fields, and the small texts that every report uses.
#pragma once

#include <QString>
#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>

/// Writes what fits of `text`, then NULs to the end of the field. `text` may lie in the field itself.
template <std::size_t N>
void assignField(char (&to)[N], std::string_view text) noexcept
{
    const std::size_t n = std::min(text.size(), N - 1);
    if (n > 0)
        std::memmove(to, text.data(), n);
    std::memset(to + n, 0, N - n);
}

/// The text of a field, up to its NUL or its end.
template <std::size_t N>
std::string_view fieldText(const char (&from)[N]) noexcept
{
    return {from, static_cast<std::size_t>(std::find(from, from + N, '\0') - from)};
}

/// A text of a field or a file for a widget: UTF-8, or Latin-1 where it is not valid UTF-8.
QString textQString(std::string_view text);

/// The text of a field as a QString.
template <std::size_t N>
QString fieldQString(const char (&from)[N])
{
    return textQString(fieldText(from));
}

/// The text before the first carriage return or line feed.
std::string_view beforeLineEnd(std::string_view text);

/// The bridge from a widget's text to a fixed field: cut to `n` bytes of UTF-8 without halving a character; the
/// text ends at its first carriage return.
///
/// @param out  at least n + 1 characters; all of them are written
void QsToChar(const QString& s, char* out, int n);

/// Case-blind comparison of the first `n` characters: 0 on a match, 1 otherwise, and 1 for n = 0. A text shorter than
/// `n` only matches one of its own length, 1 at least; n below 0 gives 0.
int Strncmpi(const char* a, const char* b, int n);

/// The three letters of a month in capitals, "ERR" for numbers other than 1 to 12.
///
/// @param out  at least 4 characters
void GetMonth(int month, char* out);

/// The month named by the first three characters, 1 to 12; 0 for any other text.
int monthNumber(std::string_view text);

/// Time stamp of the pass lists, as "JUN 12  21:04:59 (123, 45)"; without the date it starts with two blanks and the
/// hour. The date is not rolled: the last half second of a day reads 24:00:00.
///
/// @param mjd       civil time as MJD
/// @param a, b      the two numbers in the bracket, usually azimuth and elevation in degrees
/// @param out       at least 77 characters; longer texts are cut
/// @param timeonly  not 0: without the date
void aosstr(double mjd, double a, double b, char* out, int timeonly);

/// A packed figure (D.MM, H.MM) for print with two decimals: minutes that would read 60 carry into the whole, which goes
/// back to 0 at `circle`. Any other figure stays as it is.
double carriedMinutes(double packed, double circle);

/// An angle for the map legend; minutes that would read 60 carry, and 24 hours are 0.
///
/// @param dst    at least 32 characters; longer texts are cut
/// @param ra4d   not 0: one or two digits more
/// @param mode   0 decimal degrees; above 0 degrees to be packed; -1 packed degrees; below -1 packed hours. The point
///               of a packed value becomes a degree sign (byte 176) or the letter h
void prpang(char* dst, int ra4d, int mode, double value);

/// Sort key of a saved pass line: a letter for its month ("A" to "K", "M"; "X" for none), its first 16 characters
/// padded with NULs, and a NUL.
///
/// @param key  18 characters
void CpMMM(char* key, const char* line);
