// Element files that are cut off, mutated or none at all.
#include "elements/search_helper.h"

#include "elements/element_file.h"
#include "elements/reader.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace {
const std::string twoKinds = atlas + stateRecord;

/// Goes through a file to its end. Every entry lies in its fields; their number is bounded by that of the lines.
int entriesOf(const std::string& bytes)
{
    FileSearch search(bytes);
    const auto lines = std::count(bytes.begin(), bytes.end(), '\n') + static_cast<long>(bytes.size() / 79) + 1;
    int entries = 0;
    for (; search.next() > 0 && entries <= lines; ++entries) {
        EXPECT_EQ(search.in->fsname[workSlot][20], '\0');
        EXPECT_EQ(search.in->ldsn[workSlot][11], '\0');
        EXPECT_LT(search.report.size(), static_cast<std::size_t>(entryTextRoom));
        EXPECT_TRUE(std::isfinite(search.in->mjdep[workSlot]) && std::isfinite(search.in->a[workSlot]));
    }
    EXPECT_LE(entries, lines);
    return entries;
}

TEST(DamagedFile, CutAnywhereGivesTheWholeEntriesBeforeTheCut)
{
    const ScratchDir here;
    // line 2 is complete from its 62nd character on, the record at its last line end
    const std::size_t firstWhole = 25 + 70 + 63;
    for (std::size_t length = 0; length <= twoKinds.size(); ++length) {
        const int expected = (length >= firstWhole ? 1 : 0) + (length == twoKinds.size() ? 1 : 0);
        ASSERT_EQ(entriesOf(twoKinds.substr(0, length)), expected) << length;
    }
}

TEST(DamagedFile, LineEndsOfOtherSystems)
{
    const ScratchDir here;
    std::string windows = twoKinds;
    for (std::size_t i = windows.find('\n'); i != std::string::npos; i = windows.find('\n', i + 2))
        windows.insert(i, 1, '\r');
    FileSearch search(windows);
    ASSERT_EQ(search.next(), 2);
    EXPECT_EQ(search.name(), "ATLAS CENTAUR 2     ");
    EXPECT_EQ(differences(*search.in, "n0=14.02251561"), "");
    ASSERT_EQ(search.next(), 1);
    EXPECT_EQ(search.name(), "TEST");
    EXPECT_EQ(differences(*search.in, "Am=0.02"), "");
    std::string loneCr = twoKinds;
    std::replace(loneCr.begin(), loneCr.end(), '\n', '\r');
    EXPECT_EQ(entriesOf(loneCr), 0);
}

TEST(DamagedFile, IsPassedOverWhereItIsNoElementFile)
{
    const ScratchDir here;
    std::string binary;
    for (int i = 0; i < 100000; ++i)
        binary.push_back(static_cast<char>(i * 7919 % 257));
    for (const std::string& bytes : {binary, std::string(), std::string(100000, '\0'), std::string(10000, '1')})
        EXPECT_EQ(entriesOf(bytes), 0);
    EXPECT_EQ(entriesOf(std::string(10000, 'x') + "\n" + atlas), 1);
    EXPECT_EQ(entriesOf(atlas + std::string(10000, '2') + "\n" + stateRecord), 2);
    EXPECT_FALSE(openElementFile("."));
    EXPECT_FALSE(openElementFile("absent"));
    ScratchDir::write("set.tle", "{\"");
    QFile::resize("set.tle", 60'000'000'000);  // takes no room on the disk
    FileSearch huge = FileSearch::of("set.tle");
    EXPECT_EQ(huge.next(), 0);
    EXPECT_NE(huge.report.find("at most 256 MB"), std::string::npos) << huge.report;
}
}  // namespace
