// The start-up report, and what start-up leaves in the input record.

#include "reports/welcome.h"

#include "app/record/clock.h"
#include "app/record/config.h"
#include "app/record/text.h"
#include "astro/time_scales.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

// 2018-01-20 17:05:09 UTC
constexpr std::time_t startSeconds = 1516467909;

class Welcome : public testing::Test
{
protected:
    void SetUp() override
    {
        before = fs::current_path();
        std::string pattern = (fs::temp_directory_path() / "welcomeXXXXXX").string();
        folder = mkdtemp(pattern.data());
        fs::current_path(folder);
        systemSeconds = [] { return startSeconds; };
        inZone("UTC");
    }

    void TearDown() override
    {
        fs::current_path(before);
        fs::remove_all(folder);
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

    void provideElements(const char* name)
    {
        fs::copy_file(fs::path(TEST_DATA) / "elements" / "visual_2018.txt", folder / name);
    }

    void run()
    {
        out->nlines = 0;
        swelcm(in.get(), out.get());
    }

    std::vector<std::string> lines() const
    {
        std::vector<std::string> all;
        for (int i = 0; i < out->nlines; ++i)
            all.emplace_back(lineText(*out, i));
        return all;
    }

    fs::path before, folder;
    std::unique_ptr<WinpData> in = std::make_unique<WinpData>();
    std::unique_ptr<WoutData> out = std::make_unique<WoutData>();
};

TEST_F(Welcome, WithoutAnyFileTellsTheDefaults)
{
    run();
    const std::vector<std::string> expected{
        "   *** Welcome to Vorlix Version 11.8 ***",
        " ",
        "The startup input values are:",
        " ",
        "Timezone: 0",
        "Geographic Location:",
        "Default",
        "Lat.: 0  Long.: 0  Height: 0",
        " ",
        "Name of the Orbit Element File:",
        "*** No valid TLE file selected ***",
        " ",
        "Maximum Sun Elev.: -6",
        "Minimum Sat Elev.: 10",
        "Only visible passes",
        " ",
        "Map background: Black   No coordinate grid",
        " ",
        "Epoch for R.A./Dec.: 2000",
    };
    EXPECT_EQ(lines(), expected);
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
    provideElements("stations.txt");
    run();
    const std::vector<std::string> expected{
        "   *** Welcome to Vorlix Version 11.8 ***",
        " ",
        "The startup input values are:",
        " ",
        "Timezone: 5.5 *** Timezone different from set system time! ***",
        "Geographic Location:",
        "Vienna",
        "Lat.: 48.25  Long.: 16.5  Height: 200",
        " ",
        "Name of the Orbit Element File:",
        "./stations.txt",
        " ",
        "Maximum Sun Elev.: -6",
        "Minimum Sat Elev.: 10",
        "All passes",
        " ",
        "Map background: Grey   10 deg coordinate grid",
        " ",
        "Epoch for R.A./Dec.: 0",
        " ",
        "Selected Satellites:",
        " ",
    };
    std::vector<std::string> got = lines();
    ASSERT_EQ(got.size(), expected.size() + 2);
    EXPECT_EQ(got[expected.size()].substr(0, 3), "ISS");
    EXPECT_EQ(got[expected.size() + 1].substr(0, 3), "HST");
    got.resize(expected.size());
    EXPECT_EQ(got, expected);
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
    EXPECT_EQ(lines().back(), "Epoch for R.A./Dec.: 0");
}

TEST_F(Welcome, SaysWhenTheConfigurationIsDamaged)
{
    std::ofstream("vorlix.cfg") << "16.000000 \n48.25 \n";
    run();
    ASSERT_GE(out->nlines, 4);
    EXPECT_EQ(lines()[2], "Problems reading Configuration File. Using defaults instead.");
    EXPECT_EQ(lines()[3], " ");
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
        EXPECT_EQ(lines()[4], c.line);
        EXPECT_EQ(std::vector({in->day, in->hour, in->minute, in->second}),
                  std::vector({c.day, c.hour, c.minute, 9}));
        EXPECT_NEAR(in->mjd, 58138.0 + (17 * 3600 + 5 * 60 + 9) / 86400.0, 1e-9);
    }
}

TEST_F(Welcome, CarriesAClockOfSixtySeconds)
{
    // DefTime gives second 60 where the day fraction falls a hair short of a full minute; the civil date never does
    for (int minute = 0; minute < 60; ++minute) {
        static std::time_t now;
        now = startSeconds - 309 + 60 * minute;
        systemSeconds = [] { return now; };
        run();
        EXPECT_EQ(in->second, 0) << minute;
        EXPECT_EQ(in->hour * 60 + in->minute, 17 * 60 + minute);
    }
}

}  // namespace
