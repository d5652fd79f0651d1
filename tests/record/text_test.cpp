#include "record/text.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace {
TEST(Field, IsFilledWithNulsAndCut)
{
    char field[6] = {'x', 'x', 'x', 'x', 'x', 'x'};
    assignField(field, "ab");
    EXPECT_EQ(std::string(field, 6), std::string("ab\0\0\0\0", 6));
    assignField(field, "abcdefgh");
    EXPECT_EQ(fieldText(field), "abcde");
    assignField(field, std::string_view(field + 2, 3));  // from the field itself
    EXPECT_EQ(fieldText(field), "cde");
    const char full[3] = {'a', 'b', 'c'};
    EXPECT_EQ(fieldText(full), "abc");
}

TEST(QsToChar, CutsAndEndsAtACarriageReturn)
{
    char out[8];
    QsToChar(QStringLiteral("visual.txt"), out, 7);
    EXPECT_STREQ(out, "visual.");
    QsToChar(QStringLiteral("ab\rcd"), out, 7);
    EXPECT_EQ(std::string(out, 8), std::string("ab\0\0\0\0\0\0", 8));
    QsToChar(QString::fromUtf8("aäöü"), out, 4);  // the ö would be halved
    EXPECT_EQ(textQString(out), QString::fromUtf8("aä"));
    EXPECT_EQ(textQString("a\xe4"), QString::fromUtf8("aä"));  // Latin-1
    QsToChar(QString(), out, 0);
    EXPECT_STREQ(out, "");
}

struct ComparisonCase
{
    const char *a, *b;
    int n, result;
};

constexpr ComparisonCase comparisonCases[] = {
    {"ISS", "iss", 10, 0}, {"ISS", "ISSX", 4, 1},   {"ISS", "ISS", 0, 1}, {"iss", "ISS (ZARYA)", 3, 0},
    {"abc", "abd", 3, 1},  {"abc", "abd", 2, 0},    {"", "", 3, 1},       {"", "", -1, 0},
    {"abc", "xyz", -1, 0}, {"ISS ", "ISS\n", 4, 1},
};

TEST(Strncmpi, ComparesWithoutCase)
{
    for (const ComparisonCase& c : comparisonCases)
        EXPECT_EQ(Strncmpi(c.a, c.b, c.n), c.result) << c.a << " and " << c.b;
}

TEST(Months, HaveCapitalsAndNumbers)
{
    std::string all;
    for (int month = 0; month <= 13; ++month) {
        char name[4];
        GetMonth(month, name);
        all += name;
        EXPECT_EQ(monthNumber(name), month % 13);
    }
    EXPECT_EQ(all, "ERRJANFEBMARAPRMAYJUNJULAUGSEPOCTNOVDECERR");
    EXPECT_EQ(monthNumber("JA"), 0);
}

struct StampCase
{
    const char* what;
    double mjd;
    double a, b;
    int timeonly;
    const char* text;
};

// MJD 58281 is 12 June 2018, 58138 is 20 January 2018
constexpr StampCase stampCases[] = {
    {"with the date", 58281 + 75899.0 / 86400, 123, 45, 0, "JUN 12  21:04:59 (123, 45)"},
    {"time only", 58281 + 75899.0 / 86400, 123, 45, 1, "  21:04:59 (123, 45)"},
    {"half a second goes down", 58138 + 3599.50005 / 86400, 7.4, -3.6, 1, "   0:59:59 (  7, -4)"},
    {"seconds carry into the minute", 58138 + 3539.7 / 86400, 0, 0, 1, "   0:59:00 (  0,  0)"},
    {"and into the hour", 58138 + 3599.7 / 86400, 0, 0, 1, "   1:00:00 (  0,  0)"},
    {"but never into the day", 58138 + 86399.7 / 86400, 0, 0, 0, "JAN 20  24:00:00 (  0,  0)"},
};

TEST(TimeStamp, RoundsAndCarriesAndStaysInItsRoom)
{
    char out[78];
    out[77] = '#';
    for (const StampCase& c : stampCases) {
        aosstr(c.mjd, c.a, c.b, out, c.timeonly);
        EXPECT_STREQ(out, c.text) << c.what;
    }
    for (const double x : {1e300, -1e300, std::numeric_limits<double>::infinity(), std::nan("")}) {
        aosstr(x, 1e300, x, out, 0);
        EXPECT_LE(std::string_view(out).size(), 76U);
    }
    EXPECT_EQ(out[77], '#');
}

struct AngleCase
{
    const char* what;
    int ra4d, mode;
    double value;
    const char* text;
};

constexpr AngleCase angleCases[] = {
    {"decimal degrees", 0, 0, 48.479, "  48.48"},
    {"with three decimals", 1, 0, -148.479, " -148.479"},
    {"packed here", 0, 1, 48.479166666666667, "  48\26029"},  // 48 28 45: rounded to 29
    {"packed here with seconds", 1, 1, 48.479166666666667, "  48\2602845"},
    {"south", 0, 1, -33.5, " -33\26030"},
    {"packed before", 0, -1, -12.3458, " -12\26035"},  // 34 58: rounded to 35
    {"hours", 0, -2, 6.4509, "   6h45"},
    {"hours with seconds", 1, -2, 6.4509, "   6h4509"},
    {"nothing", 0, -1, 0.0, "   0\26000"},
    {"minutes that round up to the next degree", 0, 1, -1.9931, "  -2\26000"},
    {"to the next hour", 0, -2, 10.5951, "  11h00"},
    {"to the next day", 0, -2, 23.5959, "   0h00"},
    {"a point behind the seventh character stays", 0, -1, 12345678.0, "12345678.00"},
};

TEST(LegendAngle, TakesItsFormsAndStaysInItsRoom)
{
    char out[33];
    out[32] = '#';
    for (const AngleCase& c : angleCases) {
        prpang(out, c.ra4d, c.mode, c.value);
        EXPECT_STREQ(out, c.text) << c.what;
    }
    EXPECT_EQ(carriedMinutes(21.5958, 24.0), 22.0);
    EXPECT_EQ(carriedMinutes(21.5949, 24.0), 21.5949);
    prpang(out, 1, 1, 1e300);
    prpang(out, 1, 1, std::nan(""));
    EXPECT_EQ(out[32], '#');
}

TEST(SortKey, OrdersTheLinesOfAYear)
{
    const auto keyOf = [](const char* line) {
        char key[18];
        CpMMM(key, line);
        return std::string(key, 18);
    };
    EXPECT_EQ(keyOf("JAN 20  17:05:09 (123, 45)"), std::string("AJAN 20  17:05:09\0", 18));
    EXPECT_EQ(keyOf("DEC 1"), std::string("MDEC 1\0\0\0\0\0\0\0\0\0\0\0\0", 18));
    EXPECT_EQ(keyOf("Passes")[0], 'X');
    EXPECT_EQ(keyOf(""), std::string("X") + std::string(17, '\0'));
    EXPECT_LT(keyOf("NOV 30  12:00:00"), keyOf("DEC  1   0:00:00"));
}
}  // namespace
