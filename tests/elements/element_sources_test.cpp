#include "elements/element_sources.h"

#include "record/further_settings.h"
#include "scratch_dir.h"

#include <QDir>
#include <gtest/gtest.h>

namespace {

constexpr double now = 61368.5;

TEST(ElementSources, AreDeliveredUntilOthersAreKept)
{
    const ScratchDir folder;
    setFurtherSettingsFolder(QDir::currentPath());
    EXPECT_GT(elementSources().size(), 30u);
    EXPECT_EQ(elementSources()[2].address, "https://celestrak.org/NORAD/elements/gp.php?GROUP=visual&FORMAT=csv");
    keepElementSources({{"mine", "http://a/b=c&d"}, {"yours", "e/f"}});
    keepElementSources({{"mine", "http://a/b=c&d"}});
    ASSERT_EQ(elementSources().size(), 1u);
    EXPECT_EQ(elementSources()[0].address, "http://a/b=c&d");
    keepElementSources({});
    EXPECT_TRUE(elementSources().empty());
}

TEST(Updates, AreNotAskedForTooOftenNorAfterARefusal)
{
    const ScratchDir folder;
    setFurtherSettingsFolder(QDir::currentPath());
    const StartUpdate start{true, 3.0, "https://h/gp.php?GROUP=a&FORMAT=csv", "a.csv"};
    EXPECT_TRUE(updateDue(start, now - 3.1, now));
    EXPECT_TRUE(updateDue(start, std::nullopt, now));
    EXPECT_FALSE(updateDue(start, now - 2.9, now));
    EXPECT_FALSE(updateDue({false, 3.0, "h/x", "x"}, now - 9, now));
    EXPECT_FALSE(updateDue({true, 3.0, "", "x"}, now - 9, now));
    keepLastUpdate(start.address, {now - 1.9 / 24.0, false});
    EXPECT_TRUE(askedJustNow(start.address, now));
    EXPECT_FALSE(updateDue(start, now - 9, now));
    EXPECT_FALSE(askedJustNow(start.address, now + 0.2 / 24.0));
    EXPECT_TRUE(updateDue(start, now - 9, now + 0.2 / 24.0));
    EXPECT_FALSE(askedJustNow(start.address, now - 1.0));  // the clock was wrong meanwhile
    EXPECT_FALSE(askedJustNow("https://h/gp.php?GROUP=b&FORMAT=csv", now));
    keepLastUpdate(start.address, {now - 30.0, true});
    EXPECT_FALSE(updateDue(start, now - 9, now));
    keepLastUpdate("http://h/x", {now, false});
    EXPECT_TRUE(askedJustNow("h/x", now));
}

TEST(Updates, KnowTheNewestEpochOfAFile)
{
    EXPECT_NEAR(newestEpoch(TEST_DATA "/elements/visual_2018.txt").value(), 58138.9, 1.0);
    EXPECT_FALSE(newestEpoch("none.txt"));
}

}  // namespace
