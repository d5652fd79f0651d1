// Fields of a record by their names, so that rows of a table can say what they set and expect: "visflg=0 sunel=91".
// Those of a satellite are taken in one slot. A number expected only nearly has its tolerance behind it: "a=7262.26~0.01".
#pragma once

#include "record_fields_table.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

/// A pair of a name and a value, and the field of that name.
struct FieldValue
{
    explicit FieldValue(const std::string& pair)
    {
        const std::size_t sign = pair.find('='), tilde = std::min(pair.find('~'), pair.size());
        name = pair.substr(0, sign);
        std::from_chars(pair.data() + sign + 1, pair.data() + tilde, value);
        if (tilde < pair.size())
            std::from_chars(pair.data() + tilde + 1, pair.data() + pair.size(), tolerance);
        const auto* const found = std::find_if(recordFields.begin(), recordFields.end(),
                                               [&](const RecordField& one) { return one.name == name; });
        if (sign == std::string::npos || found == recordFields.end()) {
            std::fprintf(stderr, "no field of the record: %s\n", pair.c_str());
            std::abort();
        }
        field = found;
    }

    /// Calls `use` with the variable in a record.
    template <class Record, class Use>
    void with(Record& in, int slot, Use use) const
    {
        std::visit([&](auto place) { use(variableOf(in.*place, slot)); }, field->place);
    }

    template <class T>
    static T& variableOf(T& variable, int)
    {
        return variable;
    }
    template <class T>
    static T& variableOf(T (&array)[slotCount], int slot)
    {
        return array[slot];
    }

    std::string name;
    double value = 0, tolerance = 0;
    const RecordField* field = nullptr;
};

/// Sets each field that a pair names; those of a satellite in this slot.
inline void setFields(WinpData& in, const std::string& pairs, int slot = workSlot)
{
    std::istringstream words(pairs);
    for (std::string pair; words >> pair;) {
        const FieldValue wanted(pair);
        wanted.with(in, slot, [&]<class T>(T& x) { x = static_cast<T>(wanted.value); });
    }
}

/// Those of the pairs that are not so, with the values of the record; empty if all are.
inline std::string differences(const WinpData& in, const std::string& pairs, int slot = workSlot)
{
    std::istringstream words(pairs);
    std::string all;
    for (std::string pair; words >> pair;) {
        const FieldValue wanted(pair);
        double is = 0;
        wanted.with(in, slot, [&](auto x) { is = static_cast<double>(x); });
        const bool same = wanted.tolerance > 0 ? std::abs(is - wanted.value) <= wanted.tolerance : is == wanted.value;
        char number[40];
        std::snprintf(number, sizeof number, "%.17g", is);
        all += same ? "" : wanted.name + "=" + number + " in place of " + pair + "; ";
    }
    return all;
}

/// All fields of a satellite that the table has, in its order.
inline std::vector<double> slotFields(const WinpData& in, int slot)
{
    std::vector<double> values;
    for (const RecordField& field : recordFields)
        std::visit(
            [&](auto place) {
                if constexpr (std::is_array_v<std::remove_reference_t<decltype(in.*place)>>)
                    values.push_back(static_cast<double>((in.*place)[slot]));
            },
            field.place);
    return values;
}
