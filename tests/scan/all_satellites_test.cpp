#include "scan/all_satellites.h"

#include "omm_catalogue.h"
#include "report_lines.h"
#include "scan/scan_helper.h"

#include "engine/aos_list.h"
#include "record/progress.h"
#include "record/text.h"
#include "scan/entry_lines.h"
#include "scan/save_lines.h"
#include "scan/workers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace {

/// What a list has become after sorting.
std::string sorted(const std::string& list, const char* name = "list.txt")
{
    ScratchDir::write(name, list);
    WinpData in;
    assignField(in.savename, name);
    SortAos(&in);
    return ScratchDir::read(name);
}

struct SortCase
{
    const char* what;
    std::string list, sorted;
};

TEST(SortAos, SortsByTime)
{
    const std::string tail(400, 'x');
    const SortCase cases[] = {
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
        {"long lines stay whole", "JAN 20  10:00:00 " + tail + "\nJAN 20   9:00:00 0\n",
         "\nJAN 20   9:00:00 0\nJAN 20  10:00:00 " + tail + "\n"},
        {"empty", "", ""},
    };
    const ScratchDir here;
    for (const SortCase& c : cases) {
        EXPECT_EQ(sorted(c.list), c.sorted) << c.what;
        EXPECT_EQ(filesHere(), 1) << "the temporary file stayed";
    }
}

TEST(SortAos, LeavesWhatItCannotSort)
{
    const ScratchDir here;
    const std::string list = "JAN 20  10:00:00 1\nJAN 20   9:00:00 0\n";
    EXPECT_EQ(sorted(list, "vorlix.tmp"), list) << "the list has the name of the temporary file";
    QFile::remove("vorlix.tmp");
    QDir().mkdir("vorlix.tmp");
    EXPECT_EQ(sorted(list), list) << "there is no temporary file";
    WinpData in;
    for (const char* name : {"missing.txt", "vorlix.tmp"}) {  // the second is a directory
        assignField(in.savename, name);
        SortAos(&in);
        EXPECT_EQ(filesHere(), 2);
    }
}

constexpr const char* twoEntries = "ENVISAT                 \n"
                                   "1 27386U 02009A   18021.19064154 -.00000004  00000-0  12368-4 0  9998\n"
                                   "2 27386  98.2205  65.1834 0001220  94.2131 265.9184 14.37886447833106\n"
                                   "SEASAT 1                \n"
                                   "1 10967U 78064A   18020.63020774 -.00000062  00000-0  22054-4 0  9994\n"
                                   "2 10967 108.0145 322.7236 0002183 265.4160  94.6817 14.43829042 72884\n";

struct AllSatellites : testing::Test
{
    AllSatellites() { ScratchDir::write("two.txt", twoEntries); }
    const ScratchDir here;
};

// A program killed in a scan leaves the list of before.
TEST_F(AllSatellites, LeaveTheOldListUntilTheNewOneIsWhole)
{
    WinpData in = scanRecord("visual_2018.txt", "newsave=1");
    ScratchDir::write("list.txt", "the old list");
    std::vector<std::string> names;
    setProgressListener([&](std::string_view name) {
        names.emplace_back(name);
        EXPECT_EQ(ScratchDir::read("list.txt"), "the old list");
        return true;
    });
    EXPECT_EQ(AllSatAos(&in), 0);
    setProgressListener({});
    ASSERT_FALSE(names.empty());
    EXPECT_EQ(names[0].substr(0, 4), "ATLA");
    EXPECT_TRUE(ScratchDir::read("list.txt").starts_with("Geographic"));
    EXPECT_EQ(filesHere(), 2);
}

/// The time stamps of a list by the name behind them.
std::map<std::string, std::vector<std::string>> stampsByName(const std::vector<std::string>& list)
{
    std::map<std::string, std::vector<std::string>> stamps;
    for (const std::string& line : list)
        if (line.starts_with("JAN"))
            stamps[line.substr(69)].push_back(line.substr(0, 66));
    return stamps;
}

// The search steps over passes at the same instants whatever slot it uses, so the lines agree to the letter. The ten
// have names that no other entry has.
TEST_F(AllSatellites, HaveEveryPassOfTheSingleTables)
{
    WinpData in = scanRecord("catalogue_2018.txt", "satn=2 prs=1 rlm=1");
    selectSatellite(in, 0, 694);
    selectSatellite(in, 1, 25544);
    const Selection before(in);
    ASSERT_EQ(AllSatAos(&in), 0);
    EXPECT_TRUE(Selection(in) == before);
    const std::vector<std::string> list = linesOf("list.txt");
    EXPECT_GT(list.size(), 500U);
    auto stamps = stampsByName(list);
    std::size_t compared = 0;
    for (int norad : {694, 14819, 10967, 16908, 21574, 23560, 25544, 27386, 28931, 37820}) {
        WinpData single = scanRecord("catalogue_2018.txt", "satn=1");
        selectSatellite(single, 0, norad);
        WoutData out;
        aospass(&single, &out);
        std::vector<std::string> table;
        for (const std::string& line : reportLines(out))
            if (line[0] == '.')
                table.push_back(line.substr(1));
        EXPECT_EQ(stamps[std::string(fieldText(single.fsname[0]))], table) << norad;
        compared += table.size();
    }
    EXPECT_GT(compared, 20U);
}

TEST_F(AllSatellites, AreTheSameFromEveryFormOfElementFile)
{
    const std::string text = ScratchDir::read(TEST_DATA "/elements/visual_2018.txt");
    const auto listFrom = [](const std::string& elements) {
        ScratchDir::write("elements.txt", elements);
        WinpData in = scanRecord("./elements.txt", "newsave=1 dur=0.5 visflg=0 sunel=90");
        EXPECT_EQ(AllSatAos(&in), 0);
        return ScratchDir::read("list.txt");
    };
    const std::string expected = listFrom(text);
    EXPECT_GT(expected.size(), 20000U);
    for (const omm::Form& form : omm::forms)
        EXPECT_EQ(listFrom(form.write(omm::messages(text))), expected) << form.what;
}

struct RefusalCase
{
    const char *what, *elements, *fields;
    int result;
};

TEST_F(AllSatellites, RefusalsLeaveTheOldList)
{
    constexpr RefusalCase cases[] = {
        {"no element file", "./missing.txt", "maxdst=50", 2},
        {"limit too faint", "./two.txt", "iridflg=3 irmag=29.5 maxdst=50", -1},
        {"flares without a distance", "./two.txt", "iridflg=2 maxdst=0", -1},
        {"occultations without a distance", "./two.txt", "iridflg=1 occflg=3 maxdst=0", -1},
    };
    ScratchDir::write("list.txt", "old\n");
    for (const RefusalCase& c : cases) {
        WinpData in = scanRecord(c.elements, c.fields);
        EXPECT_EQ(AllSatAos(&in), c.result) << c.what;
        EXPECT_EQ(ScratchDir::read("list.txt"), "old\n");
        EXPECT_EQ(differences(in, c.fields + std::string(" newsave=1")), "");
    }
    WinpData in = scanRecord("visual_2018.txt");
    assignField(in.savename, "no/such/list.txt");
    EXPECT_EQ(AllSatAos(&in), 1);
    EXPECT_EQ(in.newsave, 1);
}

TEST_F(AllSatellites, AppendByTheSaveRule)
{
    ScratchDir::write("list.txt", "old heading\n");
    WinpData in = scanRecord("./two.txt");
    ASSERT_EQ(AllSatAos(&in), 0);
    EXPECT_EQ(differences(in, "satn=0 newsave=0"), "");
    const std::size_t once = linesOf("list.txt").size();
    ASSERT_EQ(AllSatAos(&in), 0);
    const std::vector<std::string> lines = linesOf("list.txt");
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "Geographic Location: Vienna"), 2);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "old heading"), 0);
    EXPECT_GT(lines.size(), once + once / 2);
}

// The station passes before the Sun within 0.3 km of this place on January 20th, and nothing else of the file does.
TEST_F(AllSatellites, WithATransitInAutomaticWidthJoinTheSelection)
{
    const char* transit = "lat=-53.77 lng=142.75 height=50 visflg=0 dur=0.2 iridflg=1 occflg=1 maxdst=0";
    for (const std::vector<int>& selected : {std::vector<int>{}, std::vector<int>{694}}) {
        WinpData in = scanRecord("visual_2018.txt", transit);
        for (const int norad : selected)
            selectSatellite(in, in.satn++, norad);
        ASSERT_EQ(AllSatAos(&in), 0);
        std::vector<int> expected = selected;
        expected.push_back(25544);
        EXPECT_EQ(selectedNumbers(in), expected);
        EXPECT_EQ(differences(in, "sunel=-6 maxdst=0"), "");
        const std::string list = ScratchDir::read("list.txt");
        EXPECT_NE(list.find("max.Sun Elev.: 90\n"), std::string::npos);
        EXPECT_NE(list.find("  Sun Transit  dist:    0.3 km   ISS (ZARYA)"), std::string::npos) << list;
    }
}

// Whatever the dialogs let through: the scan ends, and leaves the record as it was.
TEST_F(AllSatellites, EndOnAnyNumbers)
{
    std::vector<std::string> absurd{"visflg=0 satel=-91 sunel=91 tzone=1e300",  // passes without end
                                    "year=2147483647 month=2147483647", "year=-2147483648 month=-2147483648",
                                    "year=-5000 month=-5000"};
    for (const char* field : {"tzone", "lat", "lng", "height", "satel", "sunel", "occra", "maxdst"})
        for (const char* value : {"=1e300", "=-1e300", "=inf", "=-inf", "=nan"})
            for (const char* kind : {" iridflg=0", " iridflg=1 occflg=3", " iridflg=3"})
                absurd.push_back(std::string("dur=0.3 ") + field + value + kind);
    for (const std::string& fields : absurd) {
        WinpData in = scanRecord("./two.txt", fields);
        EXPECT_EQ(AllSatAos(&in), 0) << fields;
        EXPECT_EQ(in.satn, 0);
    }
}

TEST(OperationalOrbit, IsTheBandOfTheModel)
{
    struct Case
    {
        const char* fields;
        bool operational;
    };
    for (const Case& c : {Case{"aflg=1 a=7157", true}, Case{"aflg=1 a=7157.6", true}, Case{"aflg=1 a=7156.99", false},
                          Case{"aflg=1 a=7157.61", false}, Case{"aflg=0 a=7150", true}, Case{"aflg=0 a=7159.9", true},
                          Case{"aflg=0 a=7149.99", false}, Case{"aflg=0 a=7159.91", false}}) {
        WinpData in;
        setFields(in, c.fields, 4);
        EXPECT_EQ(operationalOrbit(in, 4), c.operational) << c.fields;
    }
}

}  // namespace
