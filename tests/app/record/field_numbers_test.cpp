#include "app/record/field_numbers.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace {

struct TextCase
{
    const char* text;
    double number;
    int integer;
};

constexpr TextCase textCases[] = {
    {"", 0, 0},
    {"   ", 0, 0},
    {"abc", 0, 0},
    {"12abc", 0, 0},
    {"12", 12, 12},
    {" 12 ", 12, 12},
    {"-7", -7, -7},
    {"+7", 7, 7},
    {"2.5", 2.5, 0},
    {"2,5", 0, 0},
    {"1,234", 0, 0},
    {"1e3", 1000, 0},
    {"1e300", 1e300, 0},
    {"-1e300", -1e300, 0},
    {"1e999", 0, 0},
    {"-1e999", 0, 0},
    {"nan", 0, 0},
    {"-nan", 0, 0},
    {"NaN", 0, 0},
    {"inf", 0, 0},
    {"-inf", 0, 0},
    {"infinity", 0, 0},
    {"0x10", 0, 0},
    {"99999999999", 99999999999.0, 0},
    {"2147483647", 2147483647.0, 2147483647},
    {"2147483648", 2147483648.0, 0},
};

TEST(FieldNumbers, ReadWhatIsANumberAndNothingElse)
{
    for (const TextCase& c : textCases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(typedNumber(c.text), c.number);
        EXPECT_EQ(typedInteger(c.text), c.integer);
    }
}

TEST(FieldNumbers, ShowSixDigits)
{
    EXPECT_EQ(shownNumber(15.0), "15");
    EXPECT_EQ(shownNumber(-7.5), "-7.5");
    EXPECT_EQ(shownNumber(1.0 / 3.0), "0.333333");
    EXPECT_EQ(shownNumber(1e-10), "1e-10");
}

TEST(FieldNumbers, ShowLongitudesAboveAHundredDegreesWithFourDecimals)
{
    EXPECT_EQ(shownLongitude(12.1234567), "12.1235");
    EXPECT_EQ(shownLongitude(120.1234567), "  120.1235");
    EXPECT_EQ(shownLongitude(-120.1234567), " -120.1235");
    EXPECT_EQ(shownLongitude(100.0), "100");
    EXPECT_EQ(shownLongitude(0.0), "0");
}

TEST(FieldNumbers, PrintByTheFormatAndWhatIsNotFiniteAsZero)
{
    EXPECT_EQ(printedNumber("%9.4lf", std::nan("")), "   0.0000");
    EXPECT_EQ(printedNumber("%9.4lf", -std::numeric_limits<double>::infinity()), "   0.0000");
    EXPECT_EQ(printedNumber("%20.12le", 7000.0), "  7.000000000000e+03");
    EXPECT_EQ(printedNumber("%10.4le", -1.5e-5), "-1.5000e-05");
    EXPECT_EQ(printedNumber("%6.4lf", 0.03125), "0.0312");  // a tie goes to the even digit
    EXPECT_EQ(printedNumber("%12.4lf", 1.7e308).size(), 314);
}

}  // namespace
