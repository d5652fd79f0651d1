// The start-up report, and what start-up leaves in the input record.

#include "reports/welcome.h"

#include "app/record/clock.h"
#include "app/record/config.h"
#include "app/record/text.h"
#include "astro/time_scales.h"
#include "reports/report_helper.h"
#include "scratch_dir.h"

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

// 2018-01-20 17:05:09 UTC
constexpr std::time_t startSeconds = 1516467909;

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

    static void inZone(const char* zone)
    {
        setenv("TZ", zone, 1);
        tzset();
    }

    /// Writes the configuration of a run with other than default values.
    void configure(const std::vector<std::string>& names)
    {
        const auto run = std::make_unique<WinpData>();
        setDefaults(run.get());
        run->tzauto = 0;
        run->tzone = 5.5;
        run->lat = 48.25;
        run->lng = 16.5;
        run->height = 200;
        assignField(run->geoname, "Vienna");
        assignField(run->tlename, "./stations.txt");
        run->mgrey = 1;
        run->mgrid = 2;
        run->visflg = 0;
        run->yrepoch = 1899.0;
        run->satn = static_cast<int>(names.size());
        for (std::size_t i = 0; i < names.size(); ++i)
            assignField(run->fsname[i], names[i]);
        putcfg(run.get());
    }

    void run()
    {
        out->nlines = 0;
        swelcm(in.get(), out.get());
    }

    std::string line(int k) const { return std::string(lineText(*out, k)); }

    std::string text() const
    {
        std::string all;
        for (int k = 0; k < out->nlines; ++k)
            all += line(k) + "\n";
        return all;
    }

    const ScratchDir folder;
    std::unique_ptr<WinpData> in = std::make_unique<WinpData>();
    std::unique_ptr<WoutData> out = std::make_unique<WoutData>();
};

TEST_F(Welcome, WithoutAnyFileTellsTheDefaults)
{
    run();
    EXPECT_EQ(text(), expectedText("welcome_defaults.txt"));
    EXPECT_EQ(fieldText(in->tlename), "*");
    EXPECT_EQ(in->satn, 0);
    EXPECT_EQ(std::vector({in->year, in->month, in->day, in->hour, in->minute, in->second}),
              std::vector({2018, 1, 20, 17, 5, 9}));
    EXPECT_NEAR(in->mjd, 58138.0 + (17 * 3600 + 5 * 60 + 9) / 86400.0, 1e-9);
    EXPECT_EQ(in->ttut, DefTdUt(2018));
    EXPECT_NEAR(in->ttut, 32.184 - in->UtcTai, 1e-9);
}

TEST_F(Welcome, TellsTheConfigurationAndSelectsItsSatellites)
{
    configure({"ISS", "NO SUCH SATELLITE", "HST"});
    ASSERT_TRUE(QFile::copy(TEST_DATA "/elements/visual_2018.txt", "stations.txt"));
    run();
    EXPECT_EQ(text(), expectedText("welcome_configured.txt"));
    EXPECT_EQ(in->satn, 2);
    EXPECT_EQ(in->norad[0], 25544);
    EXPECT_EQ(in->norad[1], 20580);
    EXPECT_EQ(in->yrepoch, 0.0);
}

TEST_F(Welcome, DropsTheSelectionWithAnElementFileThatIsGone)
{
    configure({"ISS", "HST"});
    run();
    EXPECT_EQ(in->satn, 0);
    EXPECT_EQ(line(out->nlines - 1), "Epoch for R.A./Dec.: 0");
}

TEST_F(Welcome, SaysWhenTheConfigurationIsDamaged)
{
    ScratchDir::write("vorlix.cfg", "16.000000 \n48.25 \n");
    run();
    ASSERT_GE(out->nlines, 4);
    EXPECT_EQ(line(2), "Problems reading Configuration File. Using defaults instead.");
    EXPECT_EQ(line(3), " ");
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
        const auto former = std::make_unique<WinpData>();
        setDefaults(former.get());
        former->tzauto = c.configured == 16;
        former->tzone = c.configured;
        putcfg(former.get());
        run();
        EXPECT_EQ(line(4), c.line);
        EXPECT_EQ(std::vector({in->day, in->hour, in->minute, in->second}),
                  std::vector({c.day, c.hour, c.minute, 9}));
        EXPECT_NEAR(in->mjd, 58138.0 + (17 * 3600 + 5 * 60 + 9) / 86400.0, 1e-9);
    }
}

}  // namespace
