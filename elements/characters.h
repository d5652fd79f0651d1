// The characters of element files, which do not depend on the locale.
#pragma once

#include <string_view>

constexpr std::string_view blankCharacters = " \t\r\n\v\f";

constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Without the blanks around it.
constexpr std::string_view trimmed(std::string_view text)
{
    const std::size_t begin = text.find_first_not_of(blankCharacters);
    return begin == std::string_view::npos ? std::string_view()
                                           : text.substr(begin, text.find_last_not_of(blankCharacters) + 1 - begin);
}
