#include "elements/catalogue_number.h"

#include "elements/characters.h"
#include "record/numbers.h"

#include <algorithm>

namespace {
constexpr std::string_view leadingLetters = "ABCDEFGHJKLMNPQRSTUVWXYZ";  // 10 to 33
constexpr int firstLetterValue = 10;
constexpr int behindLetter = 10000;
constexpr int leastNumber = -9999;
constexpr int greatestDigits = 99999;
}  // namespace

int catalogueNumber(std::string_view fiveColumns)
{
    const bool letterAndDigits =
        fiveColumns.size() == 5 && std::all_of(fiveColumns.begin() + 1, fiveColumns.end(), isDigit);
    const std::size_t letter = letterAndDigits ? leadingLetters.find(fiveColumns[0]) : std::string_view::npos;
    if (letter == std::string_view::npos)
        return wholeNumber(fiveColumns);
    return (static_cast<int>(letter) + firstLetterValue) * behindLetter + wholeNumber(fiveColumns.substr(1));
}

std::string catalogueText(int number)
{
    char text[16];
    if (number <= greatestDigits)
        return std::string(formatted(text, "%5i", std::max(number, leastNumber)));
    if (number > greatestColumnNumber)
        return std::string(formatted(text, "%05i", number % (greatestDigits + 1)));
    const auto letter = static_cast<std::size_t>(number / behindLetter - firstLetterValue);
    return std::string(formatted(text, "%c%04i", leadingLetters[letter], number % behindLetter));
}
