#include "fuzz/mutations.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace fuzz {

namespace {

using namespace std::string_view_literals;

constexpr std::array numbers{"0"sv,          "-0"sv,       "1"sv,           "-1"sv,
                             "9"sv,          "99999"sv,    "2147483647"sv,  "-2147483648"sv,
                             "4294967296"sv, "1e308"sv,    "-1e308"sv,      "1e309"sv,
                             "1e-320"sv,     "nan"sv,      "-inf"sv,        "0x10"sv,
                             "1,5"sv,        ".5"sv,       "5."sv,          "1e"sv,
                             "+1"sv,         "--1"sv,      "00000000001"sv, "0.999999999999999999"sv,
                             "16.000000"sv,  "359.9999"sv, "1.0000001"sv,   "99999999999999999999"sv,
                             "-99.9"sv,      "60"sv,       "24"sv,          "6378.137"sv};

constexpr std::array words{"\n"sv,
                           "\r\n"sv,
                           "\r"sv,
                           "\0"sv,
                           "\xff"sv,
                           "\xef\xbb\xbf"sv,
                           "\xff\xfe"sv,
                           "*"sv,
                           ","sv,
                           "\""sv,
                           "\"\""sv,
                           "{"sv,
                           "}"sv,
                           "[{"sv,
                           "}]"sv,
                           ":"sv,
                           "\\u0000"sv,
                           "<omm>"sv,
                           "</omm>"sv,
                           "<!--"sv,
                           "-->"sv,
                           "<![CDATA["sv,
                           "&lt;"sv,
                           "<?xml version=\"1.0\" encoding=\"UTF-16\"?>"sv,
                           "CCSDS_OMM_VERS = 2.0\n"sv,
                           "COMMENT "sv,
                           "OBJECT_NAME"sv,
                           "OBJECT_ID"sv,
                           "EPOCH"sv,
                           "MEAN_MOTION"sv,
                           "ECCENTRICITY"sv,
                           "NORAD_CAT_ID"sv,
                           "EPHEMERIS_TYPE"sv,
                           "CENTER_NAME = MARS\n"sv,
                           "2018-01-20T00:00:60.999999999"sv,
                           "0000-00-00T00:00:00"sv,
                           "9999-366T23:59:59.9999999"sv,
                           "+++++STATEVCT1+++++"sv,
                           "+++++MEANELEM1+++++"sv,
                           "\x1f"sv,
                           "\x1e"sv,
                           "1 A0000U"sv,
                           "1 Z9999U"sv,
                           "1 I0000U"sv,
                           "2 25544"sv,
                           "JAN 20 "sv,
                           "DEC 31  24:00:00 (360, 90)"sv,
                           "mGY= "sv,
                           "XYZ 20 "sv,
                           "  "sv,
                           "\t"sv,
                           "xmlns:n=\"u\" "sv,
                           "                                                                                 "sv};

/// Where a line begins, and where the next one does.
struct Line
{
    std::size_t begin, end;
};

Line anyLine(const std::string& text, Dice& dice)
{
    const std::size_t at = dice.below(text.size());
    const std::size_t before = at == 0 ? std::string::npos : text.rfind('\n', at - 1);
    const std::size_t behind = text.find('\n', at);
    return {before == std::string::npos ? 0 : before + 1, behind == std::string::npos ? text.size() : behind + 1};
}

void flipBit(std::string& text, Dice& dice)
{
    if (!text.empty())
        text[dice.below(text.size())] ^= static_cast<char>(1 << dice.below(8));
}

void setByte(std::string& text, Dice& dice)
{
    if (!text.empty())
        text[dice.below(text.size())] = static_cast<char>(dice.below(256));
}

void removeBytes(std::string& text, Dice& dice)
{
    text.erase(dice.below(text.size() + 1), 1 + dice.below(dice.oneIn(4) ? 200 : 8));
}

void cutOff(std::string& text, Dice& dice)
{
    text.resize(dice.below(text.size() + 1));
}

void insertBytes(std::string& text, Dice& dice)
{
    text.insert(dice.below(text.size() + 1), dice.oneIn(8) ? 1 + dice.below(300) : 1 + dice.below(4),
                static_cast<char>(dice.below(256)));
}

void removeLine(std::string& text, Dice& dice)
{
    const Line line = anyLine(text, dice);
    text.erase(line.begin, line.end - line.begin);
}

void repeatLine(std::string& text, Dice& dice)
{
    const Line line = anyLine(text, dice);
    const std::string copy = text.substr(line.begin, line.end - line.begin);
    text.insert(line.begin, copy);
}

void moveLine(std::string& text, Dice& dice)
{
    const Line line = anyLine(text, dice);
    const std::string moved = text.substr(line.begin, line.end - line.begin);
    text.erase(line.begin, line.end - line.begin);
    text.insert(anyLine(text, dice).begin, moved);
}

void insertWord(std::string& text, Dice& dice)
{
    text.insert(dice.below(text.size() + 1), words[dice.below(words.size())]);
}

void overwriteByWord(std::string& text, Dice& dice)
{
    const std::string_view word = words[dice.below(words.size())];
    const std::size_t at = dice.below(text.size() + 1);
    text.replace(at, word.size(), word);
}

bool isOfNumber(char c)
{
    return (c >= '0' && c <= '9') || c == '.' || c == '-' || c == '+' || c == 'e' || c == 'E';
}

/// A number gives way to another one; in half the cases the line keeps its length and so its columns.
void changeNumber(std::string& text, Dice& dice)
{
    const std::size_t at = dice.below(text.size());
    const auto begin = std::find_if(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(), isOfNumber);
    const auto end = std::find_if_not(begin, text.end(), isOfNumber);
    std::string number(numbers[dice.below(numbers.size())]);
    if (dice.oneIn(2))
        number.resize(static_cast<std::size_t>(end - begin), dice.oneIn(2) ? ' ' : '0');
    text.replace(begin, end, number);
}

void changeDigit(std::string& text, Dice& dice)
{
    const std::size_t at = text.find_first_of("0123456789", dice.below(text.size()));
    if (at != std::string::npos)
        text[at] = "0123456789-+. eE"[dice.below(16)];
}

constexpr std::array changes{flipBit,      setByte,      removeBytes, cutOff,     insertBytes,
                             removeLine,   repeatLine,   moveLine,    insertWord, overwriteByWord,
                             changeNumber, changeNumber, changeDigit};

/// A piece of another sample in the place of one of this.
void splice(std::string& text, const std::string& other, Dice& dice)
{
    const Line from = anyLine(other, dice), to = anyLine(text, dice);
    if (dice.oneIn(2)) {
        text.replace(to.begin, dice.oneIn(2) ? to.end - to.begin : 0, other, from.begin, from.end - from.begin);
    } else {
        const std::size_t kept = dice.below(text.size() + 1), leftOut = dice.below(other.size() + 1);
        text.replace(kept, std::string::npos, other, leftOut);
    }
}

}  // namespace

std::string mutated(const std::vector<std::string>& samples, Dice& dice, std::size_t longest)
{
    std::string text = samples[dice.below(samples.size())];
    for (std::size_t n = 1 + dice.below(dice.oneIn(3) ? 12 : 3); n > 0; --n) {
        if (dice.oneIn(10))
            splice(text, samples[dice.below(samples.size())], dice);
        else
            changes[dice.below(changes.size())](text, dice);
    }
    if (text.size() > longest)
        text.resize(longest);
    return text;
}

}  // namespace fuzz
