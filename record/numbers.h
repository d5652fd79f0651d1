// Numbers in files and reports: always with a decimal point, whatever the locale of the environment.
#pragma once

#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <string_view>

/// The number that the whole text says, blanks and line ends around it aside; 0 for anything else, also for "nan"
/// and "inf".
double Atof(const char* s);
/// The same for a text that has no NUL.
double Atof(std::string_view text);

/// A whole number as strtol reads it: leading white space, a sign, digits, and whatever follows. 0 without digits;
/// beyond the range of an int the nearest int.
int wholeNumber(std::string_view text);

/// Splits a line at runs of blanks and stores up to `n` numbers, each read with `Atof`. The line end stays on the
/// last token, so that a line of nothing else holds one token, 0. Returns how many were stored.
int numbersOf(std::string_view line, int n, double* v);

/// Reads one line of up to 79 characters and its first `n` numbers.
///
/// @return 1, or 0 at the end of the file and for a line of fewer tokens; those there are stored all the same
int Fscanf(std::FILE* fp, int n, double* v);

/// Turns every comma before the first "(" into a point.
void decdot(char* s);

/// Turns every comma into a point.
void decdot0(char* s);

/// Composes a text as vsnprintf does, cut to `room` - 1 characters, and ends in `decdot`.
std::string_view formattedInto(char* to, std::size_t room, const char* format, std::va_list values);

/// Composes a text in an array, cut to what fits, and ends in `decdot`. The arguments must not lie in `to`.
template <std::size_t N>
[[gnu::format(printf, 2, 3)]] std::string_view formatted(char (&to)[N], const char* format, ...)
{
    std::va_list values;
    va_start(values, format);
    const std::string_view text = formattedInto(to, N, format, values);
    va_end(values);
    return text;
}

/// A text that grows piece by piece in a buffer of the caller; what does not fit is cut off.
class TextWriter
{
public:
    /// @param room  size of the buffer, the closing NUL included; at least 1
    TextWriter(char* buffer, std::size_t room);
    template <std::size_t N>
    explicit TextWriter(char (&buffer)[N]) : TextWriter(buffer, N)
    {}

    /// Appends a text as it is.
    TextWriter& add(std::string_view text);
    /// The piece goes through `decdot`, what stands before it stays.
    [[gnu::format(printf, 2, 3)]] TextWriter& addFormatted(const char* format, ...);
    /// The same with `decdot0`: for a piece that has a bracket before its number.
    [[gnu::format(printf, 2, 3)]] TextWriter& addFormatted0(const char* format, ...);

    std::string_view text() const { return {begin, used}; }

private:
    /// Appends a piece; where it begins.
    char* addPiece(const char* format, std::va_list values);

    char* begin = nullptr;
    std::size_t size = 0;
    std::size_t used = 0;
};
