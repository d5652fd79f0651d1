// Saving satellites as Orbit Mean-Elements Messages, and catalogue numbers of six digits.
#include "elements/writer.h"

#include "elements/search_helper.h"

#include "elements/catalogue_number.h"
#include "record/text.h"

#include <gtest/gtest.h>
#include <limits>

namespace {
/// ATLAS CENTAUR 2 in the first slots of a record that saves into this file.
std::unique_ptr<WinpData> recordOf(const char* file, int satellites)
{
    FileSearch search(atlas);
    EXPECT_EQ(search.next(), 1);
    for (int i = 0; i < satellites; ++i)
        ShiftElm(search.in.get(), i, workSlot);
    search.in->satn = satellites;
    assignField(search.in->tlesave, file);
    return std::move(search.in);
}

struct NumberCase
{
    int number;
    const char* columns;
};

// leading letters as the services publish them: I and O are left out
constexpr NumberCase numberCases[] = {
    {5, "    5"},      {99999, "99999"},  {100000, "A0000"}, {148493, "E8493"}, {179999, "H9999"},
    {180000, "J0000"}, {182931, "J2931"}, {229999, "N9999"}, {230000, "P0000"}, {234018, "P4018"},
    {301928, "W1928"}, {310000, "X0000"}, {339999, "Z9999"},
};

TEST(CatalogueNumber, HasALetterForItsLeadingDigits)
{
    for (const NumberCase& c : numberCases) {
        EXPECT_EQ(catalogueText(c.number), c.columns);
        EXPECT_EQ(catalogueNumber(c.columns), c.number);
    }
    EXPECT_EQ(catalogueText(340000), "40000");  // its last five digits
    EXPECT_EQ(catalogueText(799500012), "00012");
    EXPECT_EQ(catalogueText(std::numeric_limits<int>::min()), "-9999");
    for (const char* none : {"I0000", "O0000", "a0000", "A000", "A 000", "A000B", "?0000", "     ", ""})
        EXPECT_EQ(catalogueNumber(none), 0) << none;
}

TEST(CatalogueNumber, BeyondTheColumnsIsLeftOutOrShortened)
{
    const ScratchDir here;
    const auto in = recordOf("out.tle", 2);
    in->norad[1] = 340012;
    EXPECT_EQ(leftOut(*in).numbers, std::vector<int>{1});
    ASSERT_EQ(SaveTle(in.get()), 0);
    const std::string one = ScratchDir::read("out.tle");
    EXPECT_EQ(one.size(), 41U + 70 + 70);
    in->newtle = 1;
    ASSERT_EQ(SaveTle(in.get(), true), 0);
    EXPECT_EQ(ScratchDir::read("out.tle").substr(one.size() + 41, 7), "1 40012");
    assignField(in->tlesave, "out.csv");  // which has room for it
    EXPECT_TRUE(leftOut(*in).numbers.empty());
}

TEST(OmmCsv, IsWrittenLikeThoseOfTheServices)
{
    const ScratchDir here;
    const auto in = recordOf("OUT.CSV", 2);
    assignField(in->fsname[1], "A \"B\", C");
    setFields(*in, "norad=799500012 aflg=0", 1);
    ASSERT_TRUE(savesMessages(*in));
    ASSERT_EQ(SaveTle(in.get()), 0);
    const std::string header = "OBJECT_NAME,OBJECT_ID,EPOCH,MEAN_MOTION,ECCENTRICITY,INCLINATION,RA_OF_ASC_NODE,"
                               "ARG_OF_PERICENTER,MEAN_ANOMALY,EPHEMERIS_TYPE,CLASSIFICATION_TYPE,NORAD_CAT_ID,"
                               "ELEMENT_SET_NO,REV_AT_EPOCH,BSTAR,MEAN_MOTION_DOT,MEAN_MOTION_DDOT\r\n";
    const std::string start = ",1963-047A,2018-01-20T10:54:52.602336,14.02251561,0.0587298,30.3567,49.3864,"
                              "116.6761,249.5182,";
    const std::string drag = ",999,0,1.3161e-05,1.92e-06,0\r\n";
    EXPECT_EQ(ScratchDir::read("OUT.CSV"), header + "ATLAS CENTAUR 2" + start + "0,U,694" + drag +
                                               "\"A \"\"B\"\", C\"" + start + "9,U,799500012" + drag);
    ASSERT_EQ(SaveTle(in.get()), 0);  // behind it, and read as one file
    FileSearch search = FileSearch::of("OUT.CSV");
    for (const int more : {2, 2, 2, 1})
        EXPECT_EQ(search.next(), more);
    EXPECT_EQ(search.name(), "A \"B\", C            ");
    EXPECT_EQ(differences(*search.in, "norad=799500012 aflg=0"), "");
}

TEST(OmmCsv, BringsEveryElementBack)
{
    const ScratchDir here;
    const auto in = recordOf("out.csv", 1);
    const std::string elements = "n0=14.333333333333334 ecc=0.3333333333333333 inc=50.333333333333336 "
                                 "ra=359.6666666666667 aper=-0.3333333333333333 m0=100.33333333333333 "
                                 "bstar=-3.333333333333333e-8 ndot=3.333333333333333e-13 n6dot=1e-30";
    const std::string epoch = " mjdep=61236.333333333336";
    setFields(*in, elements + epoch, 0);
    ASSERT_EQ(SaveTle(in.get()), 0);
    FileSearch back = FileSearch::of("out.csv");
    ASSERT_EQ(back.next(), 1);
    EXPECT_EQ(differences(*back.in, elements + epoch + "~1.2e-11"), "");  // one microsecond
}

TEST(OmmCsv, LeavesNumericSatellitesOut)
{
    const ScratchDir here;
    const auto in = recordOf("out.csv", 3);
    in->numflg[1] = 1;
    EXPECT_EQ(leftOut(*in).numeric, std::vector<int>{1});
    ASSERT_EQ(SaveTle(in.get()), 0);
    FileSearch search = FileSearch::of("out.csv");
    EXPECT_EQ(search.next(), 2);
    EXPECT_EQ(search.next(), 1);
    assignField(in->tlesave, "out.tle");
    EXPECT_TRUE(leftOut(*in).numeric.empty());
}
}  // namespace
