// One catalogue in all forms of element files, made from its Two Line Elements digit by digit.
#pragma once

#include <array>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace omm {

using Field = std::pair<std::string, std::string>;  // keyword and value
using Message = std::vector<Field>;

inline std::string trimmed(const std::string& text)
{
    const std::size_t begin = text.find_first_not_of(' ');
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(" \r\n") + 1 - begin);
}

/// Columns count from 1.
inline std::string columns(const std::string& line, std::size_t first, std::size_t last)
{
    return line.substr(first - 1, last - first + 1);
}

/// With the one digit in front of its point that a number of JSON must have.
inline std::string decimal(const std::string& field)
{
    const std::string text = trimmed(field);
    const std::size_t sign = text[0] == '-' || text[0] == '+' ? 1 : 0;
    std::string digits = text.substr(sign);
    while (digits.size() > 1 && digits[0] == '0' && digits[1] != '.')
        digits.erase(0, 1);
    std::string result = text[0] == '-' ? "-" : "";
    if (digits[0] == '.')
        result += '0';
    return result += digits;
}

/// Of 13161-4: 0.13161E-4.
inline std::string exponential(const std::string& field)
{
    const std::string mantissa = trimmed(columns(field, 1, 6));
    const bool negative = mantissa[0] == '-';
    std::string result = negative ? "-0." : "0.";
    result += negative ? mantissa.substr(1) : mantissa;
    result += 'E';
    if (columns(field, 7, 7) == "-")
        result += '-';
    return result += columns(field, 8, 8);
}

/// The date of 18020.45477549. Its last decimal is 864 microseconds.
inline std::string date(const std::string& field)
{
    const int year = 2000 + std::stoi(columns(field, 1, 2)) - (std::stoi(columns(field, 1, 2)) < 57 ? 0 : 100);
    int day = std::stoi(columns(field, 3, 5)), month = 0;
    const std::array<int, 12> lengths{31, year % 4 == 0 ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (; day > lengths[static_cast<std::size_t>(month)]; ++month)
        day -= lengths[static_cast<std::size_t>(month)];
    const long long us = std::stoll(columns(field, 7, 14)) * 864;
    char text[80];
    std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02lld:%02lld:%02lld.%06lld", year, month + 1, day,
                  us / 3600000000, us / 60000000 % 60, us / 1000000 % 60, us % 1000000);
    return text;
}

inline Message message(const std::string& name, const std::string& one, const std::string& two)
{
    return {{"OBJECT_NAME", trimmed(name)},
            {"OBJECT_ID",
             (columns(one, 10, 10) < "5" ? "20" : "19") + columns(one, 10, 11) + "-" + trimmed(columns(one, 12, 17))},
            {"EPOCH", date(columns(one, 19, 32))},
            {"MEAN_MOTION", decimal(columns(two, 53, 63))},
            {"ECCENTRICITY", "0." + columns(two, 27, 33)},
            {"INCLINATION", decimal(columns(two, 9, 16))},
            {"RA_OF_ASC_NODE", decimal(columns(two, 18, 25))},
            {"ARG_OF_PERICENTER", decimal(columns(two, 35, 42))},
            {"MEAN_ANOMALY", decimal(columns(two, 44, 51))},
            {"EPHEMERIS_TYPE", columns(one, 63, 63)},
            {"CLASSIFICATION_TYPE", columns(one, 8, 8)},
            {"NORAD_CAT_ID", std::to_string(std::stoi(columns(one, 3, 7)))},
            {"ELEMENT_SET_NO", decimal(columns(one, 65, 68))},
            {"REV_AT_EPOCH", std::to_string(std::atoi(trimmed(columns(two, 64, 68)).c_str()))},
            {"BSTAR", exponential(columns(one, 54, 61))},
            {"MEAN_MOTION_DOT", decimal(columns(one, 34, 43))},
            {"MEAN_MOTION_DDOT", exponential(columns(one, 45, 52))}};
}

/// The messages of a text of three lines for each satellite.
inline std::vector<Message> messages(const std::string& text)
{
    std::vector<Message> all;
    std::istringstream lines(text);
    for (std::string name, one, two;
         std::getline(lines, name) && std::getline(lines, one) && std::getline(lines, two);)
        all.push_back(message(name, one, two));
    return all;
}

inline std::string csv(const std::vector<Message>& all)
{
    std::string text;
    for (const Field& field : all.at(0))
        text += field.first + ",";
    text.back() = '\r';
    for (const Message& m : all) {
        text += '\n';
        for (const auto& [keyword, value] : m)
            text += (value.find(',') == std::string::npos ? value : '"' + value + '"') + ",";
        text.back() = '\r';
    }
    return text + "\n";
}

/// Texts in quotes and numbers as numbers, as the services do; but parsers of JSON lose the sign of a negative zero.
inline std::string json(const std::vector<Message>& all)
{
    std::string text;
    for (const Message& m : all) {
        std::string object;
        for (const auto& [keyword, value] : m) {
            char* end = nullptr;
            std::strtod(value.c_str(), &end);
            const bool isNumber = value.find_first_of("-0123456789") == 0 && *end == '\0' &&
                                  !keyword.starts_with("OBJECT") && value != "-0.00000000";
            object += (object.empty() ? "\"" : ",\"") + keyword + (isNumber ? "\":" + value : "\":\"" + value + "\"");
        }
        text += (text.empty() ? "[{" : ",{") + object + "}";
    }
    return text + "]";
}

inline std::string xml(const std::vector<Message>& all)
{
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ndm>\n";
    for (const Message& m : all) {
        text +=
            "<omm id=\"CCSDS_OMM_VERS\" version=\"2.0\"><header><ORIGINATOR/></header><body><segment><metadata>\n";
        for (std::size_t i = 0; i < m.size(); ++i) {
            if (i == 2)
                text += "<CENTER_NAME>EARTH</CENTER_NAME><REF_FRAME>TEME</REF_FRAME><TIME_SYSTEM>UTC</TIME_SYSTEM>"
                        "<MEAN_ELEMENT_THEORY>SGP4</MEAN_ELEMENT_THEORY></metadata><data><meanElements>\n";
            if (i == 9)
                text += "</meanElements><tleParameters>\n";
            std::string value;
            for (const char c : m[i].second)
                value += c == '&' ? "&amp;" : c == '<' ? "&lt;" : std::string(1, c);
            text += "<" + m[i].first + ">" + value + "</" + m[i].first + ">\n";
        }
        text += "</tleParameters></data></segment></body></omm>\n";
    }
    return text + "</ndm>\n";
}

inline std::string kvn(const std::vector<Message>& all)
{
    std::string text;
    for (const Message& m : all) {
        text += "CCSDS_OMM_VERS = 2.0\nCOMMENT made = by a test\nCREATION_DATE  =\nORIGINATOR     =\n";
        for (const Field& field : m)
            text += field.first + " = " + field.second + (field.first == "INCLINATION" ? " [deg]\n" : "\n");
        text += "\n";
    }
    return text;
}

struct Form
{
    const char* what;
    std::string (*write)(const std::vector<Message>&);
};
constexpr Form forms[] = {{"CSV", csv}, {"JSON", json}, {"XML", xml}, {"KVN", kvn}};

}  // namespace omm
