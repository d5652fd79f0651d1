#include "elements/reader.h"

#include "elements/search_helper.h"
#include "scratch_dir.h"

#include "app/record/text.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {
constexpr int k = workSlot;

/// A line with other characters from a column on; columns count from 1.
std::string with(std::string text, std::size_t line, std::size_t column, const std::string& characters)
{
    std::size_t begin = 0;
    for (; line > 1; --line)
        begin = text.find('\n', begin) + 1;
    return text.replace(begin + column - 1, characters.size(), characters);
}

const std::string threeEntries = "ISS (ZARYA)             \n"
                                 "1 25544U 98067A   18020.50000000  .00002182  00000-0  40768-4 0  9992\n"
                                 "2 25544  51.6416 247.4627 0006703 130.5360 325.0288 15.54204125 56353\n" +
                                 atlas +
                                 "ISS DEB\n"
                                 "1 43550U 98067NY  18020.25000000 -.00000123 -12345-6  11606-3 0  9993\n"
                                 "2 43550  51.6410 100.0000 0001000  10.0000  20.0000 15.60000000    99\n";

TEST(Reader, DecodesEveryField)
{
    const ScratchDir here;
    FileSearch search(atlas);
    ASSERT_EQ(search.byNumber(694), 1);
    const WinpData& in = *search.in;
    EXPECT_EQ(search.name(), "ATLAS CENTAUR 2     ");
    EXPECT_EQ(search.designator(), "1963-047A  ");
    EXPECT_EQ(in.norad[k], 694);
    EXPECT_EQ(in.aflg[k], 1);
    EXPECT_EQ(in.numflg[k], 0);
    EXPECT_NEAR(in.mjdep[k], 58138.45477549, 1e-10);
    EXPECT_EQ(in.inc[k], 30.3567);
    EXPECT_EQ(in.ra[k], 49.3864);
    EXPECT_EQ(in.ecc[k], 0.0587298);
    EXPECT_EQ(in.aper[k], 116.6761);
    EXPECT_EQ(in.m0[k], 249.5182);
    EXPECT_EQ(in.n0[k], 14.02251561);
    EXPECT_EQ(in.ndot[k], 1.92e-6);
    EXPECT_EQ(in.n6dot[k], 0);
    EXPECT_NEAR(in.bstar[k], 1.3161e-5, 1e-20);
    // both forms of Kepler's third law under oblateness, worked out apart
    EXPECT_NEAR(in.a[k], 7262.264613819824, 1e-8);
    EXPECT_NEAR(in.adot[k], -0.0013258246899807693, 1e-15);
    EXPECT_EQ(in.F107[k], 160.0);  // the default forces come with it
    EXPECT_NEAR(std::hypot(in.epr0[k], in.epr1[k], in.epr2[k]), 7.26e6, 5e5);
}

TEST(Reader, DescribesAnEntry)
{
    const ScratchDir here;
    FileSearch search(atlas);
    search.byNumber(694);
    EXPECT_EQ(search.report, "ATLAS CENTAUR 2     \n================================\nNORAD#\t\t:   694\n"
                             "Int.Launch#\t: 1963-047A  \n\nEpoch\t: 20-JAN-2018   10:54:53\n\n"
                             "Inclination\t:  30.3567\nRight Ascension\t:  49.3864\nArg. of Perigee\t: 116.6761\n"
                             "Mean Anomaly\t: 249.5182\n\nEccentricity\t: 0.0587298\n"
                             "Semi-Major Axis a\t:   7262.265 km\nChange in a\t:     -0.001 km/day\n"
                             "Perigee\t\t:    457.616 km\nApogee\t\t:   1310.639 km\n\n"
                             "Revolution at Epoch: 71361\nRevolutions per day:  14.02251561\n\n"
                             "Period (min):    102.69");
}

TEST(Reader, DescribesAnOpenOrbit)
{
    const ScratchDir here;
    // e = 1.5 in columns 26-33, q = 6878.1370 km in columns 53-63
    std::string text = with(with(atlas, 3, 26, " 1.50000"), 3, 53, "  6878.1370     ");
    FileSearch search(text);
    ASSERT_EQ(search.byNumber(694), 1);
    EXPECT_EQ(search.in->ecc[k], 1.5);
    EXPECT_EQ(search.in->n0[k], 6878.137);
    EXPECT_DOUBLE_EQ(search.in->a[k], -13756.274);
    EXPECT_EQ(search.in->adot[k], 0);
    const std::string tail = "\nArg. of Perigee\t: 116.6761\n\nEccentricity\t:  1.50000\n"
                             "Semi-Major Axis a\t: -13756.274 km\nPerigee Distance q\t:   6878.137 km";
    EXPECT_EQ(search.report.substr(search.report.size() - tail.size()), tail);
}

TEST(Reader, ColumnTwentyEightTellsTheFormOfTheEccentricity)
{
    const ScratchDir here;
    FileSearch open(with(atlas, 3, 26, " 1.2345 "));
    open.byNumber(694);
    EXPECT_EQ(open.in->ecc[k], 1.2345);
    FileSearch parabola(with(atlas, 3, 26, " 1.00000"));
    parabola.byNumber(694);
    EXPECT_EQ(parabola.in->ecc[k], 1.0);
    EXPECT_EQ(parabola.in->a[k], 1.0);
    FileSearch letters(with(atlas, 3, 27, "05x7298"));
    letters.byNumber(694);
    EXPECT_EQ(letters.in->ecc[k], 0.0);
}

TEST(Reader, EphemerisTypeNineIsTheSimpleModel)
{
    const ScratchDir here;
    FileSearch search(with(atlas, 2, 63, "9"));
    search.byNumber(694);
    EXPECT_EQ(search.in->aflg[k], 0);
    EXPECT_NEAR(search.in->a[k], 7267.90492174871, 1e-8);
}

TEST(Reader, FindsNamesAndGoesOn)
{
    const ScratchDir here;
    FileSearch search(threeEntries);
    EXPECT_EQ(search.byName("iss"), 2);
    EXPECT_EQ(search.in->norad[k], 25544);
    EXPECT_EQ(search.more(), 1);
    EXPECT_EQ(search.in->norad[k], 43550);
    EXPECT_EQ(search.name(), "ISS DEB");
    EXPECT_EQ(search.more(), 0);
    EXPECT_EQ(search.report, "\n+++ No match found for iss +++");
    EXPECT_EQ(search.byName("ATLAS CENTAUR 2     "), 1);
    EXPECT_EQ(search.byName("zarya"), 0);
    EXPECT_EQ(search.byName(""), 0);
}

TEST(Reader, FindsNumbersAndDesignators)
{
    const ScratchDir here;
    FileSearch search(threeEntries);
    EXPECT_EQ(search.byNumber(43550), 1);
    EXPECT_EQ(search.name(), "ISS DEB");
    EXPECT_EQ(search.byNumber(99999), 0);
    EXPECT_EQ(search.report, "\n+++ No match found for NORAD# 99999 +++");
    EXPECT_EQ(search.byDesignator("1998-067ny"), 1);
    EXPECT_EQ(search.in->norad[k], 43550);
    EXPECT_EQ(search.byDesignator("1963"), 1);
    EXPECT_EQ(search.in->norad[k], 694);
    EXPECT_EQ(search.byDesignator("2063"), 0);
}

struct NameCase
{
    const char* what;
    std::string text;
    const char* name;
};

TEST(Reader, TakesNamesFromTheLineBefore)
{
    const NameCase cases[] = {
        {"no name line", atlasLines, "                    "},
        {"CR LF", "CENTAUR\r\n" + atlasLines, "CENTAUR"},
        {"30 characters", "ABCDEFGHIJKLMNOPQRSTUVWXYZABCD\n" + atlasLines, "ABCDEFGHIJKLMNOPQRST"},
        {"a one in front", "1 OF 24 SATELLITES\n" + atlasLines, "1 OF 24 SATELLITES"},
        {"an empty line", "\n" + atlasLines, "1963-047A  "},
        {"one blank", " \n" + atlasLines, "1963-047A  "},
        {"two lines", "first\nsecond\n" + atlasLines, "second"},
    };
    const ScratchDir here;
    for (const NameCase& c : cases) {
        SCOPED_TRACE(c.what);
        FileSearch search(c.text);
        EXPECT_EQ(search.byNumber(694), 1);
        EXPECT_EQ(search.name(), c.name);
    }
}

struct LengthCase
{
    const char* what;
    std::size_t lineOne, lineTwo;  // characters, line end included
    bool accepted;
};

TEST(Reader, RefusesShortLines)
{
    constexpr LengthCase cases[] = {
        {"whole", 70, 70, true},
        {"line 1 without checksum", 63, 70, true},
        {"line 1 too short", 62, 70, false},
        {"no revolution number", 70, 63, true},
        {"line 2 too short", 70, 62, false},
    };
    const ScratchDir here;
    const std::string one = atlasLines.substr(0, 69), two = atlasLines.substr(70, 69);
    for (const LengthCase& c : cases) {
        SCOPED_TRACE(c.what);
        FileSearch search(one.substr(0, c.lineOne - 1) + "\n" + two.substr(0, c.lineTwo - 1) + "\n");
        EXPECT_EQ(search.next(), c.accepted ? 1 : 0);
    }
    FileSearch halved(one + "\n" + atlas);
    EXPECT_EQ(halved.next(), 1);  // the name line was read in place of line 2
    EXPECT_EQ(halved.name(), "                    ");
    FileSearch lostLine(one + "\n" + one + "\n" + two + "\n" + atlas);
    EXPECT_EQ(lostLine.next(), 1);
    EXPECT_EQ(lostLine.in->norad[k], 694);
}

TEST(Reader, LowOrbitFilterLooksAtMotionAndAge)
{
    const ScratchDir here;
    const std::string low = with(with(atlas, 3, 53, "16.08800000"), 2, 21, "020.00000000");
    FileSearch search(low);
    search.in->lowflg = 1;
    search.in->mjd = 58138.0 + 7.0;
    EXPECT_EQ(search.byNumber(694), 1);
    search.in->mjd += 1e-6;
    EXPECT_EQ(search.byNumber(694), 0);
    FileSearch high(with(low, 3, 53, "16.08799999"));
    high.in->lowflg = 1;
    high.in->mjd = 58138.0;
    EXPECT_EQ(high.byNumber(694), 0);
}

struct RecentCase
{
    const char* what;
    const char* tail;  // columns 53 on
    bool accepted;
};

TEST(Reader, RecentLaunchFilterCountsRevolutions)
{
    constexpr RecentCase cases[] = {
        {"99 revolutions", "14.02251561   99", true},  {"100 revolutions", "14.02251561  100", false},
        {"slow, 9", " 3.99999999    9", true},         {"slow, 10", " 3.99999999   10", false},
        {"not so slow, 10", " 4.00000000   10", true}, {"a field of 0", " 1.00000000    0", true},
        {"a blank field", "14.02251561     ", true},   {"no field", "14.02251561\n", true},
    };
    const ScratchDir here;
    for (const RecentCase& c : cases) {
        SCOPED_TRACE(c.what);
        FileSearch search(with(atlas, 3, 53, c.tail));
        search.in->recflg = 1;
        EXPECT_EQ(search.byNumber(694), c.accepted ? 1 : 0);
    }
}

TEST(Reader, AdjustsWhatItReads)
{
    const ScratchDir here;
    FileSearch search(atlas);
    WinpData& in = *search.in;
    in.adjflg = true;
    in.adjtim = 43200;
    in.adjra = 2.5;
    ASSERT_EQ(search.byNumber(694), 1);
    EXPECT_NEAR(in.mjdep[k], 58137.95477549, 1e-10);
    EXPECT_EQ(in.ra[k], 51.8864);
    EXPECT_EQ(in.aflg[k], 0);
    EXPECT_EQ(in.ndot[k] + in.adot[k] + in.n6dot[k], 0);
    EXPECT_EQ(in.n0[k], 14.02251561);
    EXPECT_NEAR(in.a[k], 7262.264613819824, 1e-8);
    in.adjn0 = 14.02251561;
    search.byNumber(694);
    EXPECT_NEAR(in.a[k], 7267.90492174871, 1e-8);
    in.adjn0 = 15;
    in.iridflg = event::iridium;
    in.ops = 1;
    search.byNumber(694);
    EXPECT_EQ(in.n0[k], 14.02251561);  // outside the band of the constellation
}

TEST(StateVectorRecord, IsReadAsANumericSatellite)
{
    const ScratchDir here;
    FileSearch search(stateRecord);
    ASSERT_EQ(search.byNumber(12345), 1);
    const WinpData& in = *search.in;
    EXPECT_EQ(search.name(), "TEST");
    EXPECT_EQ(in.numflg[k], 1);
    EXPECT_EQ(in.aflg[k], 0);
    EXPECT_EQ(in.mjdep[k], 58138.5);
    EXPECT_EQ(in.cstm[k], 58138.5);
    EXPECT_EQ(in.epr0[k], 7e6);
    EXPECT_EQ(in.epv1[k], 5013.743355555);
    EXPECT_EQ(in.csr0[k], 7e6);
    EXPECT_EQ(in.csv2[k], 5975.146656328);
    EXPECT_EQ(in.F107[k], 150.0);
    EXPECT_EQ(in.FB107[k], 140.0);
    EXPECT_EQ(in.Kp[k], 3.0);
    EXPECT_EQ(in.Cd[k], 2.2);
    EXPECT_EQ(in.Cr[k], 1.2);
    EXPECT_EQ(in.Am[k], 0.02);
    EXPECT_TRUE(in.suns[k]);
    // vis viva and the angular momentum, worked out apart; the last printed digit of the velocity is 1e-12 of it
    EXPECT_NEAR(in.ecc[k], 0.07982798644812687, 1e-10);
    EXPECT_NEAR(in.inc[k], 50.0, 1e-9);
    EXPECT_NEAR(in.m0[k], 26.50622885349078, 1e-7);
    EXPECT_NEAR(in.aper[k], 329.0173058980899, 1e-7);
    EXPECT_NEAR(in.n0[k], 13.296218033985081, 1e-8);
    // back through the mean motion, which closes to the square of the oblateness
    EXPECT_NEAR(in.a[k], 7527.034568314428, 0.02);
    EXPECT_EQ(search.report.substr(search.report.size() - 28), "\n+++ Numeric Propagation +++");
}

TEST(StateVectorRecord, OnAnOpenOrbitHasAPerigeeDistance)
{
    const ScratchDir here;
    const std::string fast =
        with(stateRecord, 4, 1, "  0.000000000000e+00   1.200000000000e+04   0.000000000000e+00 ");
    FileSearch search(with(fast, 4, 43, "  1.000000000000e+03"));
    ASSERT_EQ(search.byNumber(12345), 1);
    // r v^2 / GM - 1 at the perigee itself
    EXPECT_NEAR(search.in->ecc[k], 7000 * (144.0 + 1.0) / 398600.4415 - 1, 1e-9);
    EXPECT_NEAR(search.in->n0[k], 7000.0, 1e-6);
    EXPECT_LT(search.in->a[k], 0);
}

struct RecordCase
{
    const char* what;
    std::string text;
    int result;
};

TEST(StateVectorRecord, WantsItsMarks)
{
    const RecordCase cases[] = {
        {"the marker in small letters", with(stateRecord, 2, 45, "statevct"), 1},
        {"no mark in line 2", with(stateRecord, 3, 69, " "), 1},  // the line end is the token then
        {"line 2 cut behind z", stateRecord.substr(0, 75 + 62) + "\n" + stateRecord.substr(145), 0},
        {"no line end behind line 4", stateRecord.substr(0, stateRecord.size() - 1), 0},
        {"any line behind it", stateRecord + "x", 1},
        {"lines 3 and 4 missing", stateRecord.substr(0, 145), 0},
        {"line 4 of five numbers", stateRecord.substr(0, 215 + 51) + "\n", 0},
        {"at the centre of the Earth", with(stateRecord, 3, 1, "  0.000000000000e+00"), 1},
        {"so far out that there is no orbit", with(stateRecord, 3, 1, " 1.000000000000e+300"), 0},
        {"letters for a number", with(stateRecord, 3, 1, "  x.000000000000e+06"), 1},
    };
    const ScratchDir here;
    for (const RecordCase& c : cases) {
        SCOPED_TRACE(c.what);
        FileSearch search(c.text);
        EXPECT_EQ(search.byNumber(12345), c.result);
    }
}

TEST(Designator, ChangesItsForm)
{
    WinpData in;
    assignField(in.ldraw, "98067A  ");
    convldsn(&in, true);
    EXPECT_EQ(fieldText(in.ldfull), "1998-067A  ");
    assignField(in.ldraw, "");
    convldsn(&in, false);
    EXPECT_EQ(fieldText(in.ldraw), "98067A  ");
    assignField(in.ldraw, "56001BCD");
    convldsn(&in, true);
    EXPECT_EQ(fieldText(in.ldfull), "2056-001BCD");
    assignField(in.ldraw, " ");
    convldsn(&in, true);
    EXPECT_EQ(fieldText(in.ldfull), "           ");
    assignField(in.ldfull, "1998-067");  // padded with NULs
    convldsn(&in, false);
    EXPECT_EQ(fieldText(in.ldraw), "98067   ");
}

TEST(Epoch, KeepsASecondOfSixty)
{
    WinpData in;
    char out[40];
    cnvepch(&in, 2000, 60.5, out);  // 29 February
    EXPECT_EQ(in.mjdep[k], 51603.5);
    EXPECT_STREQ(out, "29-FEB-2000   12: 0: 0");
    cnvepch(&in, 1999, 1.0 + 59.7 / 86400, out);
    EXPECT_STREQ(out, " 1-JAN-1999    0: 0:60");
    cnvepch(&in, 2018, 1e300, out);
    EXPECT_LT(std::string_view(out).size(), 40U);
}

}  // namespace
