#include "engine/scan/next_satellites.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "app/record/clock.h"
#include "app/record/text.h"
#include "app/record/winp_data.h"
#include "engine/pass_search.h"
#include "engine/scan/scratch_helper.h"

namespace {

constexpr double dusk = 58138.69;  // 2018-01-20 16:34 UTC: the passes of the evening have begun

/// Catalogue numbers of the satellites of a file.
std::vector<int> numbersOf(const std::string& file)
{
    std::vector<int> numbers;
    for (const std::string& line : linesOf(file))
        if (line.size() > 60 && line[0] == '1')
            numbers.push_back(std::stoi(line.substr(2, 5)));
    return numbers;
}

/// The numbers of those whose pass starts in the window, earliest first.
std::vector<int> candidates(WinpData in, double t)
{
    std::vector<std::pair<double, int>> found;
    for (int norad : numbersOf(in.tlename)) {
        EXPECT_TRUE(selectSatellite(in, 0, norad));
        double tm[3], a[3], b[3];
        if (nextpass(&in, 0, t, t + 0.1, tm, a, b) != 0 && tm[0] > t + 0.0018)
            found.emplace_back(tm[0], norad);
    }
    std::stable_sort(found.begin(), found.end(), [](const auto& x, const auto& y) { return x.first < y.first; });
    std::vector<int> numbers;
    numbers.reserve(found.size());
    for (const auto& [start, norad] : found)
        numbers.push_back(norad);
    return numbers;
}

std::vector<int> selected(const WinpData& in)
{
    return {in.norad, in.norad + in.satn};
}

TEST(NextSatellites, AreTheTenThatPassFirst)
{
    WinpData in = scanRecord("visual_2018.txt");
    std::vector<int> expected = candidates(in, dusk);
    ASSERT_GT(expected.size(), 20u) << "the table has to overflow";
    expected.resize(10);
    in.rlm = 1;
    in.satn = 3;
    in.prs = 2;
    EXPECT_EQ(nextSatellites(&in, dusk), 10);
    EXPECT_EQ(selected(in), expected);
    EXPECT_EQ(in.prs, 0);
    EXPECT_EQ(in.rlm, 0);
}

TEST(NextSatellites, MayBeFewerThanTen)
{
    WinpData in = scanRecord("visual_2018.txt");
    in.satel = 68.0;
    const std::vector<int> expected = candidates(in, dusk);
    ASSERT_GT(expected.size(), 1u);
    ASSERT_LT(expected.size(), 10u);
    EXPECT_EQ(nextSatellites(&in, dusk), static_cast<int>(expected.size()));
    EXPECT_EQ(selected(in), expected);
}

TEST(NextSatellites, LeaveTheSelectionIfThereAreNone)
{
    WinpData in = scanRecord("visual_2018.txt");
    in.sunel = -90.0;
    ASSERT_TRUE(selectSatellite(in, 0, 694));
    ASSERT_TRUE(selectSatellite(in, 1, 25544));
    in.satn = 2;
    const std::vector<std::string> names = Selection(in).names;
    in.prs = 1;
    in.rlm = 1;
    EXPECT_EQ(nextSatellites(&in, dusk), 0);
    EXPECT_EQ(Selection(in).names, names);
    EXPECT_EQ(in.prs, 0);
    EXPECT_EQ(in.rlm, 0);
    assignField(in.tlename, "no/such/file.txt");
    EXPECT_EQ(nextSatellites(&in, dusk), -1);
    EXPECT_EQ(in.satn, 2);
}

std::time_t fixedSeconds()
{
    return 1516466760 - 7200;
}  // two hours before 2018-01-20 16:46:00 UTC

TEST(NextSatellites, StartFromTheRealTimeClock)
{
    std::time_t (*const clock)() = systemSeconds;
    systemSeconds = fixedSeconds;
    WinpData in = scanRecord("visual_2018.txt");
    in.rtoff = 2.0;
    WinpData other = in;
    const int found = Nxt4Pass(&in);
    systemSeconds = clock;
    EXPECT_EQ(found, nextSatellites(&other, 58138.0 + (16.0 + 46.0 / 60.0) / 24.0));
    EXPECT_EQ(selected(in), selected(other));
    EXPECT_GT(found, 0);
}

}  // namespace
