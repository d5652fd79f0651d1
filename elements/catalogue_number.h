// Catalogue numbers in the five columns of a Two Line Element.
#pragma once

#include <string>
#include <string_view>

constexpr int greatestColumnNumber = 339999;  // Z9999

/// The number in the columns: digits, or a capital letter other than I and O in front of four digits, which stands
/// for the two leading digits (A 10 to Z 33). Anything else is read as `wholeNumber` reads it.
int catalogueNumber(std::string_view fiveColumns);

/// Five columns: digits behind blanks up to 99999, then a letter and four digits up to 339999. Of a greater number
/// the last five digits remain; one below -9999 becomes that.
std::string catalogueText(int number);
