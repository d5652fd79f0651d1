// Lists as rows of values under named columns, and their texts as table, CSV and JSON.
//
// No text depends on the locale: numbers have a decimal point, instants are ISO 8601.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// A column of a list.
struct ListColumn
{
    const char* name;        // in files, with the unit: "range_km"
    const char* heading;     // in tables; null: tables leave the column out
    int width = 0;           // of a table, in characters; texts are cut to it
    int decimals = 0;        // of numbers in files
    int shownDecimals = -1;  // of numbers in tables; -1: as in files
};

/// Widths of instants in tables: date and time of the day, or the time alone.
constexpr int instantWidth = 19, timeWidth = 8;

/// An instant, as a Modified Julian Date, UTC.
struct ListTime
{
    double mjd;
};

/// A value of a row. `monostate` is one that there is none of, and so is a number that is not finite.
using ListValue = std::variant<std::monostate, double, long long, bool, std::string, ListTime>;

/// The values of a row, one for each column.
using ListRow = std::vector<ListValue>;
using ListColumns = std::span<const ListColumn>;

/// The place of a column, `columns.size()` if there is none of that name.
std::size_t columnIndex(ListColumns columns, std::string_view name);

/// The number, the instant or the text under a name; 0 or an empty text where there is none.
double numberAt(ListColumns columns, const ListRow& row, std::string_view name);
std::string textAt(ListColumns columns, const ListRow& row, std::string_view name);

/// A number with so many decimals; without a sign if all its digits are 0.
std::string fixedNumber(double value, int decimals);

/// The shortest text that reads as the same number.
std::string shortestNumber(double value);

/// A text in quotes with the escapes of JSON. What is no UTF-8 is taken for Latin-1.
std::string jsonString(std::string_view text);

/// The values of a row as the members of a JSON object, in the order of the columns; without any value null.
std::string jsonObject(ListColumns columns, const ListRow& row);

/// Lines by RFC 4180, CR and LF included.
std::string csvHeader(ListColumns columns);
std::string csvLine(ListColumns columns, const ListRow& row);

/// Lines of a table for the eye, line feed included. Instants are civil time of a zone, which the heading tells.
std::string tableHeader(ListColumns columns, double zoneHours);
std::string tableLine(ListColumns columns, const ListRow& row, double zoneHours);
