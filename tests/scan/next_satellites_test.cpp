#include "scan/next_satellites.h"

#include "scan/scan_helper.h"

#include "engine/pass_search.h"
#include "record/clock.h"
#include "record/text.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

constexpr double dusk = 58138.69;  // 2018-01-20 16:34 UTC: the passes of the evening have begun

/// The catalogue numbers of those whose pass starts in the window, earliest first.
std::vector<int> candidates(WinpData in, double t)
{
    std::vector<std::pair<double, int>> found;
    for (const std::string& line : linesOf(in.tlename)) {
        if (line.size() < 60 || line[0] != '1')
            continue;
        selectSatellite(in, 0, std::stoi(line.substr(2, 5)));
        double tm[3], a[3], b[3];
        if (nextpass(&in, 0, t, t + 0.1, tm, a, b) != 0 && tm[0] > t + 0.0018)
            found.emplace_back(tm[0], in.norad[0]);
    }
    std::stable_sort(found.begin(), found.end(), [](const auto& x, const auto& y) { return x.first < y.first; });
    std::vector<int> numbers;
    std::transform(found.begin(), found.end(), std::back_inserter(numbers), [](const auto& x) { return x.second; });
    return numbers;
}

TEST(NextSatellites, AreTheTenThatPassFirst)
{
    WinpData in = scanRecord("visual_2018.txt");
    std::vector<int> expected = candidates(in, dusk);
    ASSERT_GT(expected.size(), 20U) << "the table has to overflow";
    expected.resize(10);
    setFields(in, "rlm=1 satn=3 prs=2");
    EXPECT_EQ(nextSatellites(&in, dusk), 10);
    EXPECT_EQ(selectedNumbers(in), expected);
    EXPECT_EQ(differences(in, "prs=0 rlm=0"), "");
    WinpData few = scanRecord("visual_2018.txt", "satel=68");
    expected = candidates(few, dusk);
    ASSERT_TRUE(expected.size() > 1 && expected.size() < 10);
    EXPECT_EQ(nextSatellites(&few, dusk), static_cast<int>(expected.size()));
    EXPECT_EQ(selectedNumbers(few), expected);
}

TEST(NextSatellites, LeaveTheSelectionIfThereAreNone)
{
    WinpData in = scanRecord("visual_2018.txt", "sunel=-90 satn=2 prs=1 rlm=1");
    selectSatellite(in, 0, 694);
    selectSatellite(in, 1, 25544);
    EXPECT_EQ(nextSatellites(&in, dusk), 0);
    EXPECT_EQ(selectedNumbers(in), (std::vector<int>{694, 25544}));
    EXPECT_EQ(differences(in, "prs=0 rlm=0"), "");
    assignField(in.tlename, "no/such/file.txt");
    EXPECT_EQ(nextSatellites(&in, dusk), -1);
    EXPECT_EQ(in.satn, 2);
}

TEST(NextSatellites, StartFromTheRealTimeClock)
{
    std::time_t (*const clock)() = systemSeconds;
    systemSeconds = [] { return std::time_t{1516466760 - 7200}; };  // two hours before 2018-01-20 16:46:00 UTC
    WinpData in = scanRecord("visual_2018.txt");
    in.rtoff = 2.0;
    WinpData other = in;
    const int found = Nxt4Pass(&in);
    systemSeconds = clock;
    EXPECT_EQ(found, nextSatellites(&other, 58138.0 + (16.0 + 46.0 / 60.0) / 24.0));
    EXPECT_EQ(selectedNumbers(in), selectedNumbers(other));
    EXPECT_GT(found, 0);
}

}  // namespace
