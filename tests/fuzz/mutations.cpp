#include "fuzz/mutations.h"

#include "fuzz/words_table.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace fuzz {

namespace {

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
