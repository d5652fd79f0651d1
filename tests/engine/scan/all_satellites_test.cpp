#include "engine/scan/all_satellites.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <map>
#include <string>
#include <vector>

#include "app/record/text.h"
#include "app/record/winp_data.h"
#include "app/record/wout_data.h"
#include "engine/aos_list.h"
#include "engine/scan/entry_lines.h"
#include "engine/scan/scratch_helper.h"
#include "engine/scan/workers.h"
#include "report_lines.h"

namespace {

std::string sorted(const std::string& content)
{
    const ScratchDirectory here;
    writeFile("list.txt", content);
    WinpData in;
    assignField(in.savename, "list.txt");
    SortAos(&in);
    EXPECT_EQ(here.files(), 1u) << "the temporary file stayed";
    return contentOf("list.txt");
}

struct SortCase
{
    const char* what;
    const char* content;
    const char* sorted;
};

constexpr SortCase sortCases[] = {
    {"by month, day and time",
     "FEB  1   0:00:00 a\nJAN 20  10:00:00 b\nJAN 20   9:59:59 c\nDEC 31   0:00:00 d\nJAN  3  12:00:00 e\n",
     "\nJAN  3  12:00:00 e\nJAN 20   9:59:59 c\nJAN 20  10:00:00 b\nFEB  1   0:00:00 a\nDEC 31   0:00:00 d\n"},
    {"the same second keeps its order, groups of five",
     "JAN 20  10:00:00 3\nJAN 20  10:00:00 1\nJAN 20  10:00:00 2\n\nJAN 20   9:00:00 0\nJAN 20  11:00:00 4\n"
     "JAN 20  12:00:00 5\nJAN 20  13:00:00 6\n",
     "\nJAN 20   9:00:00 0\nJAN 20  10:00:00 3\nJAN 20  10:00:00 1\nJAN 20  10:00:00 2\nJAN 20  11:00:00 4\n"
     "\nJAN 20  12:00:00 5\nJAN 20  13:00:00 6\n"},
    {"headings to the top, in their order",
     "JAN 20  10:00:00 1\nGeographic Location: x\n Year: 2018\n=====\nJAN 20   9:00:00 0\nmin.\nYear\n",
     "Geographic Location: x\n Year: 2018\n=====\nmin.\nYear\n\nJAN 20   9:00:00 0\nJAN 20  10:00:00 1\n"},
    {"lines of no month last, in their order",
     "zzz 20  10:00:00 1\nAAA 20  10:00:00 2\nDEC 20   9:00:00 0\nEtc. and so forth\n",
     "\nDEC 20   9:00:00 0\nzzz 20  10:00:00 1\nAAA 20  10:00:00 2\nEtc. and so forth\n"},
    {"short lines go, those of 16 characters stay", "JAN 20  10:00:00\nJAN 20   9:00:0\nx\n \nJAN 20   9:00:00\n",
     "\nJAN 20   9:00:00\nJAN 20  10:00:00\n"},
    {"one line is no list", " heading\nJAN 20  10:00:00 1\n\n", " heading\nJAN 20  10:00:00 1\n\n"},
    {"the last line without its end", "JAN 20  10:00:00 1\nJAN 20   9:00:00 0",
     "\nJAN 20   9:00:00 0\nJAN 20  10:00:00 1\n"},
    {"empty", "", ""},
};

TEST(SortAos, SortsByTime)
{
    for (const SortCase& c : sortCases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(sorted(c.content), c.sorted);
    }
}

TEST(SortAos, KeepsLongLinesWhole)
{
    const std::string tail(400, 'x');
    EXPECT_EQ(sorted("JAN 20  10:00:00 " + tail + "\nJAN 20   9:00:00 0\n"),
              "\nJAN 20   9:00:00 0\nJAN 20  10:00:00 " + tail + "\n");
}

TEST(SortAos, LeavesWhatItCannotSort)
{
    const ScratchDirectory here;
    WinpData in;
    assignField(in.savename, "missing.txt");
    SortAos(&in);
    EXPECT_EQ(here.files(), 0u);
    const std::string list = "JAN 20  10:00:00 1\nJAN 20   9:00:00 0\n";
    writeFile("vorlix.tmp", list);
    assignField(in.savename, "./vorlix.tmp");
    SortAos(&in);
    EXPECT_EQ(contentOf("vorlix.tmp"), list) << "the list has the name of the temporary file";
    std::filesystem::remove("vorlix.tmp");
    std::filesystem::create_directory("vorlix.tmp");
    writeFile("list.txt", list);
    assignField(in.savename, "list.txt");
    SortAos(&in);
    EXPECT_EQ(contentOf("list.txt"), list) << "there is no temporary file";
    std::filesystem::create_directory("directory");
    assignField(in.savename, "directory");
    SortAos(&in);
    EXPECT_TRUE(std::filesystem::is_directory("directory"));
}

constexpr const char* heading = "Geographic Location: Vienna\n"
                                " Lat.: 48.2   Long.: 16.37   Height: 180 \n"
                                " min.Sat.Elev.: 10   max.Sun Elev.: -6   visible passes only\n"
                                " Year: 2018  +++ Timezone: 0 +++ \n"
                                "=======================================================================\n"
                                "  Start (Azim.,Elev.)    Maximum (Azim.,MaxElev.)     End (Azim.,Elev.)\n";

constexpr const char* twoEntries = "ENVISAT                 \n"
                                   "1 27386U 02009A   18021.19064154 -.00000004  00000-0  12368-4 0  9998\n"
                                   "2 27386  98.2205  65.1834 0001220  94.2131 265.9184 14.37886447833106\n"
                                   "SEASAT 1                \n"
                                   "1 10967U 78064A   18020.63020774 -.00000062  00000-0  22054-4 0  9994\n"
                                   "2 10967 108.0145 322.7236 0002183 265.4160  94.6817 14.43829042 72884\n";

TEST(AllSatellites, WriteHeadingAndSortedLines)
{
    const ScratchDirectory here;
    WinpData in = scanRecord("");
    writeFile("two.txt", twoEntries);
    assignField(in.tlename, "two.txt");
    EXPECT_EQ(AllSatAos(&in), 0);
    EXPECT_EQ(in.satn, 0);
    EXPECT_EQ(in.newsave, 0);
    const std::string content = contentOf("list.txt");
    ASSERT_EQ(content.substr(0, std::string(heading).size()), heading);
    for (const std::string& line : linesOf("list.txt"))
        if (line.rfind("JAN", 0) == 0) {
            EXPECT_EQ(line[68], ' ') << line;
            EXPECT_TRUE(line.substr(69) == "ENVISAT             " || line.substr(69) == "SEASAT 1            ")
                << line;
        }
}

// A program killed in a scan leaves the list of before.
TEST(AllSatellites, LeaveTheOldListUntilTheNewOneIsWhole)
{
    const ScratchDirectory here;
    WinpData in = scanRecord("visual_2018.txt");
    in.newsave = 1;
    writeFile("list.txt", "the old list");
    std::vector<std::string> names, contents;
    setScanProgress([&](std::string_view name) {
        names.emplace_back(name);
        contents.push_back(contentOf("list.txt"));
        return true;
    });
    EXPECT_EQ(AllSatAos(&in), 0);
    setScanProgress({});
    ASSERT_FALSE(names.empty());
    EXPECT_EQ(names[0].substr(0, 4), "ATLA");
    for (const std::string& content : contents)
        EXPECT_EQ(content, "the old list");
    EXPECT_EQ(contentOf("list.txt").rfind("Geographic", 0), 0u);
    EXPECT_EQ(here.files(), 1u);
}

// The search steps over passes at the same instants whatever slot it uses, so the lines agree to the letter.
std::vector<std::string> singleTable(WinpData& in, int norad)
{
    EXPECT_TRUE(selectSatellite(in, 0, norad));
    in.satn = 1;
    WoutData out;
    aospass(&in, &out);
    std::vector<std::string> lines;
    for (const std::string& line : reportLines(out))
        if (line[0] == '.')
            lines.push_back(line.substr(1));
    return lines;
}

/// The time stamps of a list by the name behind them.
std::map<std::string, std::vector<std::string>> linesByName(const std::string& file)
{
    std::map<std::string, std::vector<std::string>> lines;
    for (const std::string& line : linesOf(file))
        if (line.rfind("JAN", 0) == 0)
            lines[line.substr(69)].push_back(line.substr(0, 66));
    return lines;
}

// Ten satellites whose names no other entry has.
TEST(AllSatellites, HaveEveryPassOfTheSingleTables)
{
    const ScratchDirectory here;
    WinpData in = scanRecord("catalogue_2018.txt");
    ASSERT_TRUE(selectSatellite(in, 0, 694));
    ASSERT_TRUE(selectSatellite(in, 1, 25544));
    in.satn = 2;
    in.prs = 1;
    in.rlm = 1;
    const Selection before(in);
    ASSERT_EQ(AllSatAos(&in), 0);
    EXPECT_TRUE(Selection(in) == before);

    std::vector<std::string> stamps;
    for (const std::string& line : linesOf("list.txt"))
        if (line.rfind("JAN", 0) == 0)
            stamps.push_back(line.substr(0, 16));
    EXPECT_GT(stamps.size(), 500u);
    EXPECT_TRUE(std::is_sorted(stamps.begin(), stamps.end()));

    auto lines = linesByName("list.txt");
    int compared = 0;
    for (int norad : {694, 14819, 10967, 16908, 21574, 23560, 25544, 27386, 28931, 37820}) {
        SCOPED_TRACE(norad);
        WinpData single = scanRecord("catalogue_2018.txt");
        const std::vector<std::string> table = singleTable(single, norad);
        EXPECT_EQ(lines[std::string(fieldText(single.fsname[0]))], table);
        compared += static_cast<int>(table.size());
    }
    EXPECT_GT(compared, 20);
}

TEST(AllSatellites, RefusalsLeaveTheOldList)
{
    struct Case
    {
        const char* what;
        const char* elements;
        int iridflg, occflg;
        double maxdst, irmag;
        int result;
    };
    constexpr Case cases[] = {
        {"no element file", "missing.txt", 0, 0, 50.0, 1.0, 2},
        {"limit too faint", "two.txt", 3, 0, 50.0, 29.5, -1},
        {"flares without a distance", "two.txt", 2, 0, 0.0, 1.0, -1},
        {"occultations without a distance", "two.txt", 1, 3, 0.0, 1.0, -1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const ScratchDirectory here;
        writeFile("two.txt", twoEntries);
        writeFile("list.txt", "old\n");
        WinpData in = scanRecord("");
        assignField(in.tlename, c.elements);
        in.iridflg = c.iridflg;
        in.occflg = c.occflg;
        in.maxdst = c.maxdst;
        in.irmag = c.irmag;
        EXPECT_EQ(AllSatAos(&in), c.result);
        EXPECT_EQ(contentOf("list.txt"), "old\n");
        EXPECT_EQ(in.maxdst, c.maxdst);
    }
    const ScratchDirectory here;
    WinpData in = scanRecord("visual_2018.txt");
    assignField(in.savename, "no/such/list.txt");
    EXPECT_EQ(AllSatAos(&in), 1);
    EXPECT_EQ(in.newsave, 1);
}

TEST(AllSatellites, AppendByTheSaveRule)
{
    const ScratchDirectory here;
    WinpData in = scanRecord("");
    writeFile("two.txt", twoEntries);
    writeFile("list.txt", "old heading\n");
    assignField(in.tlename, "two.txt");
    ASSERT_EQ(AllSatAos(&in), 0);
    const std::size_t once = linesOf("list.txt").size();
    ASSERT_EQ(AllSatAos(&in), 0);
    const std::vector<std::string> lines = linesOf("list.txt");
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "Geographic Location: Vienna"), 2);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "old heading"), 0);
    EXPECT_GT(lines.size(), once + once / 2);
}

struct WidthCase
{
    const char* what;
    int selected;
    int expected;
    const char* prime;
};

// The station passes before the Sun within 0.3 km of this place on January 20th, and nothing else of the file does.
TEST(AllSatellites, WithATransitInAutomaticWidthJoinTheSelection)
{
    for (const WidthCase& c :
         {WidthCase{"nothing selected", 0, 1, "ISS (ZARYA)"}, WidthCase{"one selected", 1, 2, "ATLAS CENTAUR 2"}}) {
        SCOPED_TRACE(c.what);
        const ScratchDirectory here;
        WinpData in = scanRecord("visual_2018.txt");
        in.lat = -53.77;
        in.lng = 142.75;
        in.height = 50.0;
        in.visflg = 0;
        in.dur = 0.2;
        in.occflg = 1;
        in.maxdst = 0.0;
        chooseEventKind(&in);
        ASSERT_TRUE(c.selected == 0 || selectSatellite(in, 0, 694));
        in.satn = c.selected;
        ASSERT_EQ(AllSatAos(&in), 0);
        EXPECT_EQ(in.satn, c.expected);
        EXPECT_EQ(fieldText(in.fsname[0]).substr(0, std::string(c.prime).size()), c.prime);
        EXPECT_EQ(in.norad[in.satn - 1], 25544);
        EXPECT_EQ(in.sunel, -6.0);
        EXPECT_EQ(in.maxdst, 0.0);
        const std::string content = contentOf("list.txt");
        EXPECT_NE(content.find("max.Sun Elev.: 90\n"), std::string::npos);
        EXPECT_NE(content.find("  Sun Transit  dist:    0.3 km   ISS (ZARYA)"), std::string::npos) << content;
    }
}

// Whatever the dialogs let through: the scan ends, and leaves the record as it was.
TEST(AllSatellites, EndOnAnyNumbers)
{
    const ScratchDirectory here;
    writeFile("two.txt", twoEntries);
    constexpr double inf = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    double WinpData::*const fields[] = {&WinpData::tzone, &WinpData::lat,   &WinpData::lng,   &WinpData::height,
                                        &WinpData::satel, &WinpData::sunel, &WinpData::occra, &WinpData::maxdst};
    for (double WinpData::*field : fields) {
        for (double value : {1e300, -1e300, inf, -inf, nan}) {
            for (int kind : {event::plain, event::transit, event::iridium}) {
                WinpData in = scanRecord("");
                assignField(in.tlename, "two.txt");
                in.dur = 0.3;
                in.iridflg = kind;
                in.occflg = kind == event::transit ? 3 : 0;
                in.*field = value;
                EXPECT_EQ(AllSatAos(&in), 0);
                EXPECT_EQ(in.satn, 0);
            }
        }
    }
    WinpData in = scanRecord("");
    assignField(in.tlename, "two.txt");
    in.visflg = 0;
    in.satel = -91.0;  // passes without end
    in.sunel = 91.0;
    in.tzone = 1e300;
    EXPECT_EQ(AllSatAos(&in), 0);
    in = scanRecord("");
    assignField(in.tlename, "two.txt");
    for (int year : {std::numeric_limits<int>::max(), std::numeric_limits<int>::min(), -5000}) {
        in.year = year;
        in.month = year;
        EXPECT_EQ(AllSatAos(&in), 0);
    }
}

TEST(OperationalOrbit, IsTheBandOfTheModel)
{
    struct Case
    {
        int aflg;
        double km;
        bool operational;
    };
    for (const Case& c :
         {Case{1, 7157.0, true}, Case{1, 7157.6, true}, Case{1, 7156.99, false}, Case{1, 7157.61, false},
          Case{0, 7150.0, true}, Case{0, 7159.9, true}, Case{0, 7149.99, false}, Case{0, 7159.91, false}}) {
        WinpData in;
        in.aflg[4] = c.aflg;
        in.a[4] = c.km;
        EXPECT_EQ(operationalOrbit(in, 4), c.operational) << c.aflg << " " << c.km;
    }
}

}  // namespace
