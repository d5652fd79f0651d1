#include "elements/brightness_files.h"

#include "record/further_settings.h"
#include "scratch_dir.h"

#include <QDir>
#include <gtest/gtest.h>

namespace {

TEST(BrightnessFiles, ReadListsOfBothForms)
{
    const ScratchDir scratch;
    ScratchDir::write("list.txt", "# number magnitude spread\n"
                                  "25544 -1.8 0.7\n"
                                  "20580,2.2\r\n"
                                  "10967 Seasat 1         13.0  2.0  2.7 v  20.0\n"
                                  "100123 9 # six digits\n"
                                  "20580 2.5\n"
                                  "words only\n"
                                  "4000 99\n"
                                  "4001 5 -1\n"
                                  "nan 5\n");
    const MagnitudeList list = readMagnitudes("list.txt", 90);
    EXPECT_EQ(list.rows.size(), 4u);
    EXPECT_EQ(list.refused, 4);
    EXPECT_EQ(list.why, "");
    const auto at90 = [&](int number) { return list.rows.at(number).full + phaseLoss(PhaseLaw::diffuse, 90); };
    EXPECT_NEAR(at90(25544), -1.8, 1e-9);
    EXPECT_EQ(list.rows.at(25544).spread, 0.7);
    EXPECT_NEAR(at90(20580), 2.5, 1e-9);
    EXPECT_NEAR(at90(10967), 2.7, 1e-9);
    EXPECT_NEAR(at90(100123), 9.0, 1e-9);
    EXPECT_NE(readMagnitudes("absent.txt", 0).why, "");
}

TEST(BrightnessFiles, TakeRadarClassesOfMessages)
{
    const ScratchDir scratch;
    setFurtherSettingsFolder(QDir::currentPath());
    ScratchDir::write("gp.csv", "OBJECT_NAME,NORAD_CAT_ID,EPOCH,RCS_SIZE\nA,1,2026-01-01,LARGE\nB,123456,2026-01-01,"
                                "SMALL\nC,3,2026-01-01,\n");
    const auto classes = readRadarClasses("gp.csv");
    EXPECT_EQ(classes.size(), 2u);
    EXPECT_EQ(classes.at(123456), RadarClass::small);
    EXPECT_TRUE(readRadarClasses("absent").empty());

    keepBrightnessSettings({"list.txt", true, 2.5});
    const BrightnessSettings kept = keptBrightnessSettings(7);
    EXPECT_EQ(kept.file, "list.txt");
    EXPECT_TRUE(kept.halfPhase);
    EXPECT_EQ(kept.lengthM, 2.5);
    std::string why;
    EXPECT_EQ(brightnessBook(kept, "gp.csv", &why).classes.size(), 2u);
    EXPECT_NE(why, "");
}

}  // namespace
