// Element files that are cut off, mutated or none at all.
#include "elements/search_helper.h"
#include "scratch_dir.h"

#include "elements/reader.h"

#include <QDir>
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
    while (search.next() > 0) {
        ++entries;
        EXPECT_EQ(search.in->fsname[workSlot][20], '\0');
        EXPECT_EQ(search.in->ldsn[workSlot][11], '\0');
        EXPECT_LT(search.report.size(), static_cast<std::size_t>(entryTextRoom));
        EXPECT_TRUE(std::isfinite(search.in->mjdep[workSlot]));
        EXPECT_TRUE(std::isfinite(search.in->a[workSlot]));
        if (entries > lines) {
            ADD_FAILURE() << "more entries than lines";
            break;
        }
    }
    return entries;
}

TEST(DamagedFile, CutAnywhereGivesTheWholeEntriesBeforeTheCut)
{
    const ScratchDir here;
    // line 2 is complete from its 62nd character on, the record at its last line end
    const std::size_t firstWhole = 25 + 70 + 63;
    for (std::size_t length = 0; length <= twoKinds.size(); ++length) {
        SCOPED_TRACE(length);
        const int expected = (length >= firstWhole ? 1 : 0) + (length == twoKinds.size() ? 1 : 0);
        ASSERT_EQ(entriesOf(twoKinds.substr(0, length)), expected);
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
    EXPECT_EQ(search.in->n0[workSlot], 14.02251561);
    ASSERT_EQ(search.next(), 1);
    EXPECT_EQ(search.name(), "TEST");
    EXPECT_EQ(search.in->Am[workSlot], 0.02);
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
    EXPECT_EQ(entriesOf(binary), 0);
    EXPECT_EQ(entriesOf(""), 0);
    EXPECT_EQ(entriesOf(std::string(100000, '\0')), 0);
    EXPECT_EQ(entriesOf(std::string(10000, '1')), 0);
    EXPECT_EQ(entriesOf(std::string(10000, 'x') + "\n" + atlas), 1);
    EXPECT_EQ(entriesOf(atlas + std::string(10000, '2') + "\n" + stateRecord), 2);
    QDir().mkdir(QStringLiteral("directory"));
    FileSearch directory = FileSearch::of("directory");
    EXPECT_EQ(directory.next(), 0);
    EXPECT_EQ(directory.byName("a"), 0);
}
}  // namespace
