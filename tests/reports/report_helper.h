// A record for the tests of the reports, with satellites read from the sample elements.
#pragma once

#include "record/winp_data.h"
#include "scratch_dir.h"

#include <gtest/gtest.h>

#include <string>

constexpr double minuteDays = 1.0 / 1440.0;
constexpr double secondDays = 1.0 / 86400.0;
constexpr double secondPass = 58138.06773;  // of the station; 2:37:31.9 in the zone

/// `indata` at the place of the expected texts: Vienna, 2018-01-20 1h of the zone one hour east, every pass above 10
/// degrees, coordinates true of date; the station selected, its second pass chosen, a minute as time step. The save
/// file is list.txt in an empty directory.
class ReportTest : public testing::Test
{
protected:
    ReportTest() { startAnew(); }

    static void startAnew();
    static void occultStar();
    static std::string saved() { return ScratchDir::read("list.txt"); }

    const ScratchDir folder;
};

/// Adds the satellite of a catalogue number to the selection, as the program reads it from visual_2018.txt.
void addSatellite(WinpData* in, int norad);

/// A text of tests/data/reports.
std::string expectedText(const char* name);
