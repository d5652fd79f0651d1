// The start-up report, and what start-up leaves in the input record.

#include "reports/welcome.h"

#include "astro/time_scales.h"
#include "record/clock.h"
#include "record/config.h"
#include "record/text.h"
#include "report_lines.h"
#include "reports/report_helper.h"

#include <cstdlib>
#include <vector>

namespace {

// 2018-01-20 17:05:09 UTC
constexpr std::time_t startSeconds = 1516467909;

void inZone(const char* zone)
{
    setenv("TZ", zone, 1);
    tzset();
}

/// A start at a set time of the computer's clock.
class Welcome : public testing::Test
{
protected:
    void SetUp() override
    {
        systemSeconds = [] { return startSeconds; };
        inZone("UTC");
    }

    void TearDown() override
    {
        systemSeconds = [] { return std::time(nullptr); };
        inZone("UTC");
    }

    /// The lines of the report.
    std::string start()
    {
        out.nlines = 0;
        swelcm(in, &out);
        EXPECT_NEAR(in->mjd, 58138.0 + (17 * 3600 + 5 * 60 + 9) / 86400.0, 1e-9);
        std::string text;
        for (const std::string& line : reportLines(out))
            text += line + "\n";
        return text;
    }

    std::vector<int> startDate() const { return {in->year, in->month, in->day, in->hour, in->minute, in->second}; }

    const ScratchDir folder;
    WinpData* const in = indata;
    WoutData out;
};

TEST_F(Welcome, WithoutAnyFileTellsTheDefaults)
{
    EXPECT_EQ(start(), expectedText("welcome_defaults.txt"));
    EXPECT_EQ(fieldText(in->tlename), "*");
    EXPECT_EQ(in->satn, 0);
    EXPECT_EQ(startDate(), std::vector({2018, 1, 20, 17, 5, 9}));
    EXPECT_EQ(in->ttut, DefTdUt(2018));
    EXPECT_NEAR(in->ttut, 32.184 - in->UtcTai, 1e-9);
}

TEST_F(Welcome, TellsTheConfigurationAndSelectsItsSatellites)
{
    setDefaults(in);
    in->tzauto = 0;
    in->tzone = 5.5;
    in->lat = 48.25;
    in->lng = 16.5;
    in->height = 200;
    assignField(in->geoname, "Vienna");
    assignField(in->tlename, "./stations.txt");
    in->mgrey = 1;
    in->mgrid = 2;
    in->visflg = 0;
    in->yrepoch = 1899.0;
    for (const char* name : {"ISS", "NO SUCH SATELLITE", "HST"})
        assignField(in->fsname[in->satn++], name);
    putcfg(in);
    ASSERT_TRUE(QFile::copy(TEST_DATA "/elements/visual_2018.txt", "stations.txt"));
    EXPECT_EQ(start(), expectedText("welcome_configured.txt"));
    EXPECT_EQ(in->satn, 2);
    EXPECT_EQ(in->norad[0], 25544);
    EXPECT_EQ(in->norad[1], 20580);
    EXPECT_EQ(in->yrepoch, 0.0);

    QFile::remove("stations.txt");
    EXPECT_TRUE(start().ends_with("\nEpoch for R.A./Dec.: 0\n"));
    EXPECT_EQ(in->satn, 0) << "the selection goes with its file";
}

TEST_F(Welcome, SaysWhenTheConfigurationIsDamaged)
{
    ScratchDir::write("vorlix.cfg", "16.000000 \n48.25 \n");
    EXPECT_TRUE(start().starts_with("   *** Welcome to Vorlix Version 11.8 ***\n \n"
                                    "Problems reading Configuration File. Using defaults instead.\n \n"));
    EXPECT_EQ(in->lat, 0.0);
}

struct ZoneCase
{
    const char* what;
    const char* system;     // POSIX zone of the computer
    double configured;      // hours; 16 follows the computer
    const char* line;       // what the report says
    int day, hour, minute;  // the start date in that zone
};

constexpr ZoneCase zoneCases[] = {
    {"no configuration, the computer's zone", "LOC-2", 16, "Timezone: 2", 20, 19, 5},
    {"west of Greenwich, half an hour", "XXX3:30", 16, "Timezone: -3.5", 20, 13, 35},
    {"the date of the next day", "LOC-9", 16, "Timezone: 9", 21, 2, 5},
    {"a fixed zone like the computer's", "LOC-2", 2, "Timezone: 2", 20, 19, 5},
    {"a fixed zone unlike the computer's", "LOC-2", 1, "Timezone: 1 *** Timezone different from set system time! ***",
     20, 18, 5},
};

TEST_F(Welcome, TurnsTheStartDateIntoCivilTimeOfTheZone)
{
    for (const ZoneCase& c : zoneCases) {
        SCOPED_TRACE(c.what);
        inZone(c.system);
        setDefaults(in);
        in->tzauto = c.configured == 16;
        in->tzone = c.configured;
        putcfg(in);
        EXPECT_NE(start().find(std::string("\n \n") + c.line + "\n"), std::string::npos);
        EXPECT_EQ(startDate(), std::vector({2018, 1, c.day, c.hour, c.minute, 9}));
    }
}

}  // namespace
