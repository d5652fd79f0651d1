#include "record/leap_table.h"

#include "scratch_dir.h"

#include <fstream>

#include <gtest/gtest.h>

namespace {

// ERFA has the same history from its own table: months of 1961 to 1971, half years from 1972 on.
TEST(LeapSeconds, AreThoseOfErfa)
{
    const LeapSeconds table = leapSecondsWith("none");
    std::ifstream in(TEST_DATA "/models/tai_utc.txt");
    std::string line;
    std::getline(in, line);
    double year = 0, month = 0, day = 0, mjd = 0, seconds = 0;
    int rows = 0;
    for (; in >> year >> month >> day >> mjd >> seconds; ++rows)
        EXPECT_NEAR(taiMinusUtc(mjd, table), seconds, 1e-6) << year << ' ' << month;
    EXPECT_EQ(rows, 236);
}

TEST(LeapSeconds, ComeFromAFileThatIsNotOlderAndCanBeRead)
{
    const ScratchDir here;
    constexpr double later = 61500.0;  // 2027
    const std::string until2017 = "3692217600 37 # 1 Jan 2017\n";
    const struct
    {
        std::string text;
        double expected;
    } cases[] = {{until2017 + "4007577600 38\n", 38},
                 {"#@ 4007577600\r\n\r\n" + until2017, 37},
                 {"3644697600 36\n", 37},                       // older
                 {"2272060800 10\n" + until2017 + "x 38", 37},  // no number
                 {until2017 + "3692217600 38\n", 37},           // days that do not rise
                 {until2017 + "4007577600 1e9\n", 37},
                 {"", 37}};
    for (const auto& [text, expected] : cases) {
        ScratchDir::write("list", text);
        EXPECT_EQ(taiMinusUtc(later, leapSecondsWith("list")), expected) << text;
    }
}

}  // namespace
