#include "record/numbers.h"

#include "record/field_numbers.h"

#include <algorithm>
#include <cstring>
#include <limits>

double Atof(std::string_view text)
{
    return typedNumber(QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size())));
}

double Atof(const char* s)
{
    return Atof(std::string_view(s));
}

int wholeNumber(std::string_view text)
{
    constexpr long long limit = std::numeric_limits<int>::max();
    std::size_t i = text.find_first_not_of(" \t\n\v\f\r");
    if (i == std::string_view::npos)
        return 0;
    const bool negative = text[i] == '-';
    if (negative || text[i] == '+')
        ++i;
    long long value = 0;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i)
        value = std::min(10 * value + (text[i] - '0'), limit + 1);
    return static_cast<int>(negative ? -value : std::min(value, limit));
}

int numbersOf(std::string_view line, int n, double* v)
{
    int stored = 0;
    std::size_t begin = line.find_first_not_of(' ');
    while (stored < n && begin != std::string_view::npos) {
        const std::size_t end = std::min(line.find(' ', begin), line.size());
        v[stored++] = Atof(line.substr(begin, end - begin));
        begin = line.find_first_not_of(' ', end);
    }
    return stored;
}

int Fscanf(std::FILE* fp, int n, double* v)
{
    char line[80];
    if (!std::fgets(line, sizeof line, fp))
        return 0;
    return numbersOf(line, n, v) == n ? 1 : 0;
}

void decdot(char* s)
{
    std::replace(s, s + std::strcspn(s, "("), ',', '.');
}

void decdot0(char* s)
{
    std::replace(s, s + std::strlen(s), ',', '.');
}

std::string_view formattedInto(char* to, std::size_t room, const char* format, std::va_list values)
{
    const int length = std::vsnprintf(to, room, format, values);
    if (length < 0)
        to[0] = '\0';
    decdot(to);
    return {to, std::min(static_cast<std::size_t>(std::max(length, 0)), room - 1)};
}

TextWriter::TextWriter(char* buffer, std::size_t room) : begin(buffer), size(room)
{
    begin[0] = '\0';
}

TextWriter& TextWriter::add(std::string_view text)
{
    const std::size_t n = std::min(text.size(), size - 1 - used);
    if (n > 0)
        std::memcpy(begin + used, text.data(), n);
    used += n;
    begin[used] = '\0';
    return *this;
}

char* TextWriter::addPiece(const char* format, std::va_list values)
{
    char* const piece = begin + used;
    const int length = std::vsnprintf(piece, size - used, format, values);
    if (length < 0)
        *piece = '\0';
    used += std::min(static_cast<std::size_t>(std::max(length, 0)), size - 1 - used);
    return piece;
}

TextWriter& TextWriter::addFormatted(const char* format, ...)
{
    std::va_list values;
    va_start(values, format);
    decdot(addPiece(format, values));
    va_end(values);
    return *this;
}

TextWriter& TextWriter::addFormatted0(const char* format, ...)
{
    std::va_list values;
    va_start(values, format);
    decdot0(addPiece(format, values));
    va_end(values);
    return *this;
}
