#include "elements/reader.h"

#include "elements/element_file.h"
#include "elements/entry_reader.h"
#include "elements/search_helper.h"

#include "record/text.h"

#include <fstream>
#include <gtest/gtest.h>
#include <vector>

namespace {
struct ReaderCase
{
    std::string what, settings, search, file, fields, name, designator, report;
    bool refused = false;
};

std::string betweenQuotes(const std::string& line)
{
    const std::size_t begin = line.find('"') + 1;
    return line.substr(begin, line.rfind('"') - begin);
}

void takeLine(ReaderCase& c, const std::string& line)
{
    const std::string word = line.substr(0, line.find(' ')),
                      rest = line.substr(std::min(word.size() + 1, line.size()));
    if (line.starts_with('|'))
        c.file += line.substr(1) + "\n";
    else if (line.starts_with('>'))
        c.report += line.substr(1) + "\n";
    else if (word == "with")
        c.settings = rest;
    else if (word == "find")
        c.search = rest;
    else if (word == "cut")
        c.file.pop_back();
    else if (word == "name")
        c.name = betweenQuotes(rest);
    else if (word == "designator")
        c.designator = betweenQuotes(rest);
    else if (line == "is refused")
        c.refused = true;
    else if (word == "is")
        c.fields = rest;
    else if (!line.empty())
        ADD_FAILURE() << line;
}

std::vector<ReaderCase> readerCases()
{
    std::vector<ReaderCase> cases;
    std::ifstream file(TEST_DATA "/elements/reader_cases.txt");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("case "))
            cases.emplace_back().what = line.substr(5);
        else if (!cases.empty())
            takeLine(cases.back(), line);
    }
    return cases;
}

TEST(Reader, MakesOfEachEntryWhatItSays)
{
    const ScratchDir here;
    const std::vector<ReaderCase> cases = readerCases();
    EXPECT_EQ(cases.size(), 47U);
    for (const ReaderCase& c : cases) {
        SCOPED_TRACE(c.what);
        FileSearch search(c.file);
        setFields(*search.in, c.settings);
        const int result =
            c.search == "*" ? search.next() : search.byNumber(std::stoi(c.search.substr(c.search.find(' '))));
        EXPECT_EQ(result, c.refused ? 0 : 1);
        EXPECT_EQ(differences(*search.in, c.fields), "");
        EXPECT_TRUE(c.name.empty() || search.name() == c.name) << search.name();
        EXPECT_TRUE(c.designator.empty() || search.designator() == c.designator) << search.designator();
        if (c.report.starts_with("...")) {
            EXPECT_TRUE((search.report + "\n").ends_with(c.report.substr(3))) << search.report;
        } else if (!c.report.empty()) {
            EXPECT_EQ(search.report + "\n", c.report);
        }
    }
}

const std::string threeEntries = "ISS (ZARYA)             \n"
                                 "1 25544U 98067A   18020.50000000  .00002182  00000-0  40768-4 0  9992\n"
                                 "2 25544  51.6416 247.4627 0006703 130.5360 325.0288 15.54204125 56353\n" +
                                 atlas +
                                 "ISS DEB\n"
                                 "1 43550U 98067NY  18020.25000000 -.00000123 -12345-6  11606-3 0  9993\n"
                                 "2 43550  51.6410 100.0000 0001000  10.0000  20.0000 15.60000000    99\n";

TEST(Reader, CountsYearsFrom1957)
{
    const auto entryOfYear = [](const std::string& year) {
        std::string lines = atlasLines;
        lines.replace(9, 2, year);
        lines.replace(18, 2, year);
        const ScratchDir here;
        ScratchDir::write("set.tle", lines);
        const FilePtr file = openElementFile("set.tle");
        Entry entry;
        EXPECT_TRUE(EntryReader(file.get()).next(entry));
        return entry;
    };
    EXPECT_EQ(entryOfYear("56").year, 2056);
    EXPECT_EQ(entryOfYear("57").year, 1957);
    EXPECT_EQ(fullDesignator(entryOfYear("56").designator), "2056-047A  ");
    EXPECT_EQ(fullDesignator(entryOfYear("57").designator), "1957-047A  ");
}

TEST(Reader, FindsNamesAndGoesOn)
{
    const ScratchDir here;
    FileSearch search(threeEntries);
    EXPECT_EQ(search.byName("iss"), 2);
    EXPECT_EQ(search.in->norad[workSlot], 25544);
    EXPECT_EQ(search.more(), 1);
    EXPECT_EQ(search.in->norad[workSlot], 43550);
    EXPECT_EQ(search.name(), "ISS DEB");
    EXPECT_EQ(search.more(), 0);
    EXPECT_EQ(search.report, "\n+++ No match found for iss +++");
    EXPECT_EQ(search.byName("ATLAS CENTAUR 2     "), 1);
    EXPECT_EQ(search.byName("zarya"), 0);
    EXPECT_EQ(search.byName(""), 0);
}

TEST(Reader, FindsNumbersAndDesignators)
{
    const ScratchDir here;
    FileSearch search(threeEntries);
    EXPECT_EQ(search.byNumber(43550), 1);
    EXPECT_EQ(search.name(), "ISS DEB");
    EXPECT_EQ(search.byNumber(99999), 0);
    EXPECT_EQ(search.report, "\n+++ No match found for NORAD# 99999 +++");
    EXPECT_EQ(search.byDesignator("1998-067ny"), 1);
    EXPECT_EQ(search.in->norad[workSlot], 43550);
    EXPECT_EQ(search.byDesignator("1963"), 1);
    EXPECT_EQ(search.in->norad[workSlot], 694);
    EXPECT_EQ(search.byDesignator("2063"), 0);
}

TEST(Designator, ChangesItsForm)
{
    WinpData in;
    const auto full = [&](const char* raw) {
        assignField(in.ldraw, raw);
        convldsn(&in, true);
        return fieldText(in.ldfull);
    };
    const auto raw = [&](const char* designator) {
        assignField(in.ldfull, designator);
        convldsn(&in, false);
        return fieldText(in.ldraw);
    };
    EXPECT_EQ(full("98067A  "), "1998-067A  ");
    EXPECT_EQ(full("56001BCD"), "2056-001BCD");
    EXPECT_EQ(full(" "), "           ");
    EXPECT_EQ(raw("1998-067A  "), "98067A  ");
    EXPECT_EQ(raw("1998-067"), "98067   ");  // padded with NULs
}

TEST(Epoch, KeepsASecondOfSixty)
{
    WinpData in;
    char out[40];
    cnvepch(&in, 2000, 60.5, out);  // 29 February
    EXPECT_EQ(in.mjdep[workSlot], 51603.5);
    EXPECT_STREQ(out, "29-FEB-2000   12: 0: 0");
    cnvepch(&in, 1999, 1.0 + 59.7 / 86400, out);
    EXPECT_STREQ(out, " 1-JAN-1999    0: 0:60");
    cnvepch(&in, 2018, 1e300, out);
    EXPECT_LT(std::string_view(out).size(), 40U);
}

}  // namespace
