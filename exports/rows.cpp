#include "exports/rows.h"

#include "exports/time_text.h"
#include "record/text.h"

#include <QByteArray>
#include <QString>
#include <charconv>
#include <cmath>
#include <cstddef>

namespace {

template <class... Cases>
struct Choice : Cases...
{
    using Cases::operator()...;
};

/// The plain text of a value, empty for none.
std::string plainText(const ListColumn& column, const ListValue& value)
{
    return std::visit(Choice{[](std::monostate) { return std::string(); },
                             [&](double x) { return fixedNumber(x, column.decimals); },
                             [](long long n) { return std::to_string(n); },
                             [](bool yes) { return std::string(yes ? "true" : "false"); },
                             [](const std::string& text) { return text; }, [](ListTime t) { return isoTime(t.mjd); }},
                      value);
}

std::string utf8(std::string_view text)
{
    return textQString(text).toStdString();
}

std::string jsonValue(const ListColumn& column, const ListValue& value)
{
    const std::string text = plainText(column, value);
    if (std::holds_alternative<std::string>(value) || std::holds_alternative<ListTime>(value))
        return jsonString(text);
    return text.empty() ? "null" : text;
}

std::string csvCell(std::string text)
{
    if (text.find_first_of(",\"\r\n") == std::string::npos)
        return text;
    std::string quoted = "\"";
    for (const char c : text)
        quoted.append(c == '"' ? 2 : 1, c);
    return quoted + '"';
}

/// "2018-01-20 17:04:59", or "17:04:59".
std::string shownInstant(const std::string& iso, int width)
{
    constexpr std::size_t dateLength = 10;
    const std::string time = iso.substr(dateLength + 1, timeWidth);
    return width == timeWidth ? time : iso.substr(0, dateLength) + ' ' + time;
}

/// "UTC" or "+01:00".
std::string zoneName(double zoneHours)
{
    const std::string zone = isoCivil(0.0, zoneHours).substr(instantWidth);
    return zone == "Z" ? "UTC" : zone;
}

std::string shownText(const ListColumn& column, const ListValue& value, double zoneHours)
{
    const auto* number = std::get_if<double>(&value);
    if (number && column.shownDecimals >= 0)
        return fixedNumber(*number, column.shownDecimals);
    if (const auto* t = std::get_if<ListTime>(&value))
        return shownInstant(isoCivil(t->mjd, zoneHours), column.width);
    return plainText(column, value);
}

/// Wide columns without decimals are texts and times; numbers stand to the right.
bool leftAligned(const ListColumn& column)
{
    return column.width >= 12 && column.decimals == 0;
}

/// Cut or filled up to the width, counted in characters.
std::string inWidth(const std::string& text, int width, bool left)
{
    const QString cut = QString::fromStdString(text).left(width);
    return (left ? cut.leftJustified(width) : cut.rightJustified(width)).toStdString();
}

template <class Text>
std::string tableRow(ListColumns columns, Text&& text)
{
    std::string line;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!columns[i].heading)
            continue;
        if (!line.empty())
            line += "  ";
        line += text(i);
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line + '\n';
}

}  // namespace

std::size_t columnIndex(ListColumns columns, std::string_view name)
{
    std::size_t i = 0;
    while (i < columns.size() && columns[i].name != name)
        ++i;
    return i;
}

double numberAt(ListColumns columns, const ListRow& row, std::string_view name)
{
    const std::size_t i = columnIndex(columns, name);
    if (i >= row.size())
        return 0.0;
    return std::visit(Choice{[](double x) { return x; }, [](long long n) { return static_cast<double>(n); },
                             [](ListTime t) { return t.mjd; }, [](const auto&) { return 0.0; }},
                      row[i]);
}

std::string textAt(ListColumns columns, const ListRow& row, std::string_view name)
{
    const std::size_t i = columnIndex(columns, name);
    return i < row.size() ? plainText(columns[i], row[i]) : std::string();
}

std::string fixedNumber(double value, int decimals)
{
    if (!std::isfinite(value))
        return {};
    char digits[400];
    std::string text(digits,
                     std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, decimals).ptr);
    return text[0] == '-' && text.find_first_not_of("-0.") == std::string::npos ? text.substr(1) : text;
}

std::string shortestNumber(double value)
{
    if (!std::isfinite(value))
        return {};
    char digits[64];
    return {digits, std::to_chars(digits, digits + sizeof digits, value).ptr};
}

std::string jsonString(std::string_view text)
{
    std::string quoted = "\"";
    for (const char c : utf8(text)) {
        if (c == '"' || c == '\\') {
            (quoted += '\\') += c;
        } else if (static_cast<unsigned char>(c) < 0x20) {
            constexpr const char* hex = "0123456789abcdef";
            (quoted += c < 0x10 ? "\\u000" : "\\u001") += hex[c & 15];
        } else {
            quoted += c;
        }
    }
    return quoted + '"';
}

std::string jsonObject(ListColumns columns, const ListRow& row)
{
    std::string object = "{";
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (i > 0)
            object += ", ";
        object += jsonString(columns[i].name) + ": " + jsonValue(columns[i], row[i]);
    }
    return object + "}";
}

std::string csvHeader(ListColumns columns)
{
    std::string line;
    for (const ListColumn& column : columns)
        (line += line.empty() ? "" : ",") += column.name;
    return line + "\r\n";
}

std::string csvLine(ListColumns columns, const ListRow& row)
{
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i)
        (line += i > 0 ? "," : "") += csvCell(utf8(plainText(columns[i], row[i])));
    return line + "\r\n";
}

std::string tableHeader(ListColumns columns, double zoneHours)
{
    return tableRow(columns, [&](std::size_t i) {
        const ListColumn& column = columns[i];
        const std::string zone = column.width == instantWidth ? ' ' + zoneName(zoneHours) : std::string();
        return inWidth(column.heading + zone, column.width, leftAligned(column));
    });
}

std::string tableLine(ListColumns columns, const ListRow& row, double zoneHours)
{
    return tableRow(columns, [&](std::size_t i) {
        return inWidth(utf8(shownText(columns[i], row[i], zoneHours)), columns[i].width, leftAligned(columns[i]));
    });
}
