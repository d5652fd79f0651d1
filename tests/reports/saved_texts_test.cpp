// The files that the reports write, byte by byte. Where the expected texts come from: tests/data/reports/README.md.

#include "app/record/files.h"
#include "app/record/text.h"
#include "app/record/wout_data.h"
#include "engine/aos_list.h"
#include "engine/scan/all_satellites.h"
#include "engine/scan/iridium_scan.h"
#include "reports/orbit_track.h"
#include "reports/pass_details.h"
#include "reports/report_helper.h"
#include "scratch_dir.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr int station = 25544;

constexpr double minuteDays = 1.0 / 1440.0;
constexpr double secondPass = 58138.06773;

std::string textOf(const char* name)
{
    std::string text;
    const FilePtr file = openForReading(name);
    for (std::string line; file && readLine(file.get(), line);)
        text += line;
    return text;
}

/// The three lines of an entry.
std::string entryOf(const std::string& elements, const std::string& name)
{
    const std::size_t begin = elements.find("\n" + name) + 1;
    std::size_t end = begin;
    for (int line = 0; line < 3; ++line)
        end = elements.find('\n', end) + 1;
    return elements.substr(begin, end - begin);
}

class SavedText : public testing::Test
{
protected:
    SavedText() { fresh(); }

    void fresh()
    {
        *indata = WinpData{};
        observeFromVienna(indata);
        addSatellite(indata, station);
        indata->newsave = 1;
        assignField(indata->savename, "list.txt");
    }

    void occultStar()
    {
        indata->occflg = 3;
        indata->occra = 12.0;
        indata->occdec = 20.3;
        indata->refrc = false;
    }

    void choosePass(double stepDays)
    {
        indata->aostm[0] = secondPass;
        indata->aossel = 0;
        indata->naos = 1;
        indata->tmstep = stepDays;
        indata->ra4d = 1;
    }

    const ScratchDir folder;
};

TEST_F(SavedText, OfTheAosList)
{
    indata->dur = 1.0;
    indata->tofile = 1;
    aospass(indata, outdata);
    EXPECT_EQ(ScratchDir::read("list.txt"), expectedText("aos_list.txt"));
}

TEST_F(SavedText, OfAllPasses)
{
    const std::string elements = textOf(TEST_DATA "/elements/visual_2018.txt");
    std::string few;
    for (const char* name : {"ISS (ZARYA)", "HST", "TERRA"})
        few += entryOf(elements, name);
    ScratchDir::write("few.txt", few);
    assignField(indata->tlename, "few.txt");
    indata->dur = 1.0;
    EXPECT_EQ(AllSatAos(indata), 0);
    EXPECT_EQ(ScratchDir::read("list.txt"), expectedText("all_passes.txt"));
}

TEST_F(SavedText, OfAFlareSearchAndItsTable)
{
    const std::string elements = textOf(TEST_DATA "/elements/iridium_2018.txt");
    std::string few;
    for (const char* name : {"IRIDIUM 54 [+]", "IRIDIUM 82 [-]", "IRIDIUM 83 [+]", "IRIDIUM 14 [+]"})
        few += entryOf(elements, name);
    ScratchDir::write("few.txt", few);
    assignField(indata->tlename, "few.txt");
    indata->satn = 0;
    indata->lat = 48.2;
    indata->lng = 16.37;
    indata->height = 180.0;
    indata->visflg = 1;
    indata->dur = 2.0;
    IridiumSearch search(indata);
    search.accept(-3.0, false, false);
    ASSERT_EQ(AllSatAos(indata), 0);
    EXPECT_EQ(ScratchDir::read("list.txt"), expectedText("flare_passes.txt"));

    Iriddspy(indata, outdata);
    std::string table;
    for (int line = 0; line < outdata->nlines; ++line)
        table += std::string(lineText(*outdata, line)) + "\n";
    EXPECT_EQ(table, expectedText("flare_table.txt"));
    EXPECT_EQ(indata->satn, 4);
}

TEST_F(SavedText, OfThePassDetails)
{
    choosePass(minuteDays);
    EXPECT_TRUE(vsSavePassDt(passform::save));
    EXPECT_EQ(ScratchDir::read("list.txt"), expectedText("pass_details.txt"));
}

TEST_F(SavedText, OfThePassDetailsOfAnOccultation)
{
    choosePass(minuteDays);
    occultStar();
    EXPECT_TRUE(vsSavePassDt(passform::save));
    EXPECT_EQ(ScratchDir::read("list.txt"), expectedText("pass_events.txt"));
}

TEST_F(SavedText, OfTheGroundTrack)
{
    choosePass(minuteDays / 2);
    EXPECT_TRUE(vsSavePassDt(passform::groundTrack));
    EXPECT_EQ(ScratchDir::read("list.txt"), expectedText("ground_track.txt"));
}

TEST_F(SavedText, OfTheOrbitTrack)
{
    indata->dur = 48 * 2 * minuteDays - 1e-6;
    indata->tmstep = 2 * minuteDays;
    indata->newsave = 0;
    ScratchDir::write("list.txt", "old\n");
    EXPECT_EQ(saveOrbitTrack(indata), 0);
    EXPECT_EQ(ScratchDir::read("list.txt"), expectedText("orbit_track.txt"));
    EXPECT_EQ(indata->newsave, 0);
    occultStar();
    EXPECT_EQ(saveOrbitTrack(indata), 0);
    EXPECT_EQ(ScratchDir::read("list.txt"), expectedText("orbit_track_events.txt"));
}

}  // namespace
