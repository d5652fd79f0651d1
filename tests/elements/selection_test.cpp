#include "elements/selection.h"

#include "elements/kept_selection.h"
#include "elements/search_helper.h"

#include "record/text.h"

#include <gtest/gtest.h>

namespace {
/// The record of the process, at its defaults for a test.
class Selection : public testing::Test
{
protected:
    void SetUp() override { setDefaults(indata); }
    void TearDown() override { setDefaults(indata); }

    static void select(int n)
    {
        indata->satn = n;
        for (int i = 0; i < n; ++i) {
            indata->norad[i] = i;
            assignField(indata->fsname[i], std::string(1, static_cast<char>('A' + i)));
        }
    }
};

TEST_F(Selection, ListsItsFileAndNames)
{
    assignField(indata->tlename, "/data/visual.txt");
    EXPECT_EQ(vsSatList(), QStringLiteral("TLE filename: /data/visual.txt\n\n*** No Satellites Selected ***"));
    select(2);
    EXPECT_EQ(vsSatList(), QStringLiteral("TLE filename: /data/visual.txt\n\nSelected Satellites:\n\n  A\n  B"));
    setFields(*indata, "prs=1 sgpsat=1");
    vsResetSatList();
    EXPECT_EQ(differences(*indata, "satn=0 prs=0 sgpsat=9999"), "");
}

TEST_F(Selection, TheEleventhTakesThePlaceOfTheTenth)
{
    select(9);
    for (const int norad : {25544, 20580}) {
        indata->norad[workSlot] = norad;
        vsSatSel();
        EXPECT_EQ(indata->satn, 10);
        EXPECT_EQ(indata->norad[9], norad);
    }
    EXPECT_EQ(indata->norad[8], 8);
}

TEST_F(Selection, SearchesItsFileAndKeepsTheSearch)
{
    const ScratchDir here;
    ScratchDir::write("set.tle", atlas);
    const FilePtr file = openForReading("set.tle");
    satfle = file.get();
    QString text;
    int result = 0, mode = 0, norad = 0, satn = 0, low = 0, recent = 0;
    const auto find = [&](int wantLow, int wantRecent) {
        text = "atlas";
        result = 5;  // a number, which a search by name leaves alone
        vsFindSat(text, result, 0, wantLow, wantRecent);
        return result;
    };
    EXPECT_EQ(find(1, 0) + find(0, 1), 0);
    EXPECT_EQ(text, "\n+++ No match found for atlas +++");
    EXPECT_EQ(find(0, 0), 1);
    EXPECT_TRUE(text.startsWith("ATLAS CENTAUR 2"));
    vsLowRecent(1, 1);
    vsLastSat(text, mode, norad, satn, low, recent);
    EXPECT_EQ(text, "atlas");
    EXPECT_EQ((std::array{mode, norad, satn, low, recent}), (std::array{0, 694, 0, 1, 1}));
    satfle = nullptr;
}

/// Two lines with this number in place of that of ATLAS CENTAUR 2.
std::string entryOf(const std::string& name, const char* number)
{
    std::string lines = atlasLines;
    lines.replace(2, 5, number).replace(lines.find("\n2 ") + 3, 5, number);
    return name + lines;
}

/// Numbers in the selection after a start with these names in the configuration, and what it did not find.
std::string afterStart(const QStringList& names)
{
    setDefaults(indata);
    assignField(indata->tlename, "set.tle");
    for (qsizetype i = 0; i < names.size(); ++i)
        assignField(indata->cfgname[i], names[i].toStdString());
    selectConfigured(indata, static_cast<int>(names.size()));
    std::string numbers;
    for (int i = 0; i < indata->satn; ++i)
        numbers += std::to_string(indata->norad[i]) + " ";
    return numbers + missingAfterStart(*indata).join(",").toStdString();
}

TEST_F(Selection, ComesBackByItsNumbers)
{
    const ScratchDir here;
    const QString same = QStringLiteral("SL-16 R/B");
    ScratchDir::write("set.tle", entryOf("", "00001") + entryOf("SL-16 R/B\n", "00002") +
                                     entryOf("SL-16 R/B\n", "00003") + entryOf("SL-16 R/B\n", "00004"));
    EXPECT_EQ(afterStart({same, "GONE", same}), "2 3 GONE");  // never one of them twice
    int slot = 0;
    for (const int number : {4, 1, 9, 3}) {
        assignField(indata->fsname[slot], number == 1 ? "                    " : "SL-16 R/B           ");
        indata->norad[slot++] = number;
    }
    indata->satn = slot;
    keepSelectedNumbers(*indata);
    EXPECT_EQ(afterStart({same, same, same}), "4 1 2 3 ");  // 9 has gone
    EXPECT_EQ(afterStart({same, same}), "2 3 ");            // of another selection
    ScratchDir::write("vorlix.ini", "[selection\nnumbers=\xFF,,=4\n@@");
    EXPECT_EQ(afterStart({same}), "2 ");
}

struct RemovalCase
{
    const char* what;
    int satn, prime;
    const char* marked;  // one character each, x is removed
    const char* left;
    int primeAfter;
};

constexpr RemovalCase removalCases[] = {
    {"the prime one passes it on to the one before", 4, 2, "..x.", "ABD", 1},
    {"the first one as prime stays first", 3, 0, "x..", "BC", 0},
    {"above the prime one", 4, 1, "..xx", "AB", 1},
    {"below the prime one", 4, 3, "x.x.", "BD", 1},
    {"all", 3, 2, "xxx", "", 0},
    {"none", 3, 2, "...", "ABC", 2},
    {"the last of ten", 10, 9, ".........x", "ABCDEFGHI", 8},
    {"marks above the selection", 2, 1, "...xx", "AB", 1},
};

TEST_F(Selection, RemovesTheMarkedOnes)
{
    for (const RemovalCase& c : removalCases) {
        SCOPED_TRACE(c.what);
        select(c.satn);
        indata->prs = c.prime;
        std::array<bool, maxSatellites> marked{};
        for (std::size_t i = 0; c.marked[i]; ++i)
            marked[i] = c.marked[i] == 'x';
        removeSatellites(indata, marked);
        std::string left;
        for (int i = 1; i <= indata->satn; ++i)
            left += vsSatName(i).toStdString();
        EXPECT_EQ(left, c.left);
        EXPECT_EQ(indata->prs, c.primeAfter);
    }
}

struct FileNameCase
{
    std::string elementFile, name, completed;
};

TEST_F(Selection, CompletesDefaultNamesBesideTheElementFile)
{
    const std::string deep = "/" + std::string(98, 'd') + "/";
    const FileNameCase cases[] = {
        {"/data/tle/visual.txt", "*satsave.txt", "/data/tle/satsave.txt"},
        {"./visual.txt", "*vorlix.tle", "./vorlix.tle"},
        {"/data/tle/visual.txt", "chosen.txt", "chosen.txt"},
        {"visual.txt", "*satsave.txt", "/satsave.txt"},
        {"", "*satsave.txt", "/satsave.txt"},
        {deep + "v", "*satsave.txt", deep + "sats"},
        {"/data/x", "", ""},
    };
    for (const FileNameCase& c : cases) {
        assignField(indata->tlename, c.elementFile);
        assignField(indata->savename, c.name);
        vsFileName(indata->savename);
        EXPECT_EQ(fieldText(indata->savename), c.completed) << c.elementFile;
    }
}
}  // namespace
