// The characters of element files, which do not depend on the locale.
#pragma once

#include <string_view>

constexpr std::string_view blankCharacters = " \t\r\n\v\f";

constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// What fits into so many bytes, without half of a character of UTF-8 at its end.
constexpr std::string_view wholeCharacters(std::string_view text, std::size_t most)
{
    if (text.size() <= most)
        return text;
    while (most > 0 && (text[most] & 0xC0) == 0x80)
        --most;
    return text.substr(0, most);
}

/// Without the blanks around it.
constexpr std::string_view trimmed(std::string_view text)
{
    const std::size_t begin = text.find_first_not_of(blankCharacters);
    return begin == std::string_view::npos ? std::string_view()
                                           : text.substr(begin, text.find_last_not_of(blankCharacters) + 1 - begin);
}
