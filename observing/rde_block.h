// A block of the RDE form while it is read: what its lines say about those that follow.
#pragma once

#include "observing/report_forms.h"

#include <string>
#include <string_view>

class RdeBlock
{
public:
    enum class Kind
    {
        foreign,   // no line of the form
        ofTheForm  // one of it; a position or a complaint if `read` has one
    };

    Kind take(std::string_view line, ReadLine& read);

private:
    bool startsBlock(std::string_view line);
    ReadLine dataOf(std::string_view line) const;

    bool open = false;
    int day = 0;
    std::string yearMonth;  // YYYYMM
    Observation common;     // station, accuracies and equinox
};
