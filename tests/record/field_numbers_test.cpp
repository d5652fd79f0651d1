#include "record/field_numbers.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace {

TEST(FieldNumbers, AreWholeNumbersWithinAnIntAndNothingElse)
{
    EXPECT_EQ(typedInteger(" 12 "), 12);
    EXPECT_EQ(typedInteger("-7"), -7);
    EXPECT_EQ(typedInteger("+2147483647"), 2147483647);
    for (const char* text : {"", "12abc", "2.5", "1,234", "nan", "0x10", "1e3", "2147483648"})
        EXPECT_EQ(typedInteger(text), 0) << text;
}

TEST(FieldNumbers, ShowSixDigitsAndLongitudesAboveAHundredDegreesFourDecimals)
{
    EXPECT_EQ(shownNumber(15.0), "15");
    EXPECT_EQ(shownNumber(1.0 / 3.0), "0.333333");
    EXPECT_EQ(shownNumber(-1e-10), "-1e-10");
    EXPECT_EQ(shownLongitude(12.1234567), "12.1235");
    EXPECT_EQ(shownLongitude(100.0), "100");
    EXPECT_EQ(shownLongitude(-120.1234567), " -120.1235");
}

TEST(FieldNumbers, PrintByTheFormatAndWhatIsNotFiniteAsZero)
{
    EXPECT_EQ(printedNumber("%9.4lf", std::nan("")), "   0.0000");
    EXPECT_EQ(printedNumber("%9.4lf", -std::numeric_limits<double>::infinity()), "   0.0000");
    EXPECT_EQ(printedNumber("%20.12le", 7000.0), "  7.000000000000e+03");
    EXPECT_EQ(printedNumber("%12.4lf", 1.7e308).size(), 314);
}

}  // namespace
