#include "elements/entry.h"

#include "record/numbers.h"

std::string fullDesignator(std::string_view raw)
{
    constexpr int firstYearOfLastCentury = 57;
    if (raw.starts_with(' '))
        return {};
    const auto part = [raw](std::size_t from, std::size_t count) {
        return std::string(raw.size() > from ? raw.substr(from, count) : std::string_view());
    };
    const bool thisCentury = wholeNumber(part(0, 2)) < firstYearOfLastCentury;
    std::string full(thisCentury ? "20" : "19");
    return full.append(part(0, 2)).append("-").append(part(2, 6));
}
