#include "elements/writer.h"

#include "elements/search_helper.h"
#include "scratch_dir.h"

#include "app/record/text.h"

#include <QFile>
#include <algorithm>
#include <cctype>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <sstream>
#include <vector>

namespace {
struct Elements
{
    const char* name;
    int norad;
    const char* designator;
    double epoch, ndot, n6dot, bstar, inc, ra, ecc, aper, m0, n0;
    int aflg;
};

void put(WinpData* in, int i, const Elements& e)
{
    assignField(in->fsname[i], e.name);
    in->norad[i] = e.norad;
    assignField(in->ldsn[i], e.designator);
    in->mjdep[i] = e.epoch;
    in->ndot[i] = e.ndot;
    in->n6dot[i] = e.n6dot;
    in->bstar[i] = e.bstar;
    in->inc[i] = e.inc;
    in->ra[i] = e.ra;
    in->ecc[i] = e.ecc;
    in->aper[i] = e.aper;
    in->m0[i] = e.m0;
    in->n0[i] = e.n0;
    in->aflg[i] = e.aflg;
}

/// A record with these satellites that saves into "out.tle" of the working directory.
std::unique_ptr<WinpData> recordOf(const std::vector<Elements>& satellites)
{
    auto in = std::make_unique<WinpData>();
    setDefaults(in.get());
    assignField(in->tlesave, "out.tle");
    for (const Elements& e : satellites)
        put(in.get(), in->satn++, e);
    return in;
}

std::string saved(const std::vector<Elements>& satellites)
{
    const auto in = recordOf(satellites);
    EXPECT_EQ(SaveTle(in.get()), 0);
    return ScratchDir::read("out.tle");
}

std::string expected(const char* file)
{
    return ScratchDir::read((std::string(TEST_DATA "/saved_elements/") + file).c_str());
}

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

std::string columns(const std::string& line, std::size_t first, std::size_t last)
{
    return line.substr(first - 1, last - first + 1);
}

/// Blanks for zeros in front of a number.
std::string unpadded(std::string fields)
{
    for (std::size_t i = 0; i + 1 < fields.size(); ++i)
        if (fields[i] == '0' && std::isdigit(fields[i + 1]) && (i == 0 || fields[i - 1] == ' '))
            fields[i] = ' ';
    return fields;
}

// MJD 58138 is 20 January 2018, 58119 the first of that year, 51543 the last day of 1999
const std::vector<Elements> analytic{
    {"ISS (ZARYA)\r", 25544, "1998-067A", 58138.5, 2.182e-5, -1.2345e-7, 4.0768e-5, 51.6416, 247.4627, 0.0006703,
     130.536, 325.0288, 15.54204125, 1},
    {"ATLAS CENTAUR 2     ", 694, "1963-047A  ", 58238.45477549, -1.92e-6, 0, 5e-4, 30.3567, 49.3864, 0.0587298,
     116.6761, 249.5182, 2.00561234, 1},
};
const std::vector<Elements> kepler{
    {"GENERATED", 0, "          ", 51543.0, -0.0, 0, 0, 0, 0, 0, 0, 0, 15, 0},
};
const std::vector<Elements> hyperbolic{
    {"ESCAPE", 99999, "2018-001AB", 58119.25, 0, 0, 0, 28.5, 200, 1.5, 45.25, 0, 6878.137, 0},
    {"FAR AWAY", 99998, "2018-001AC", 58119.25, 0, 0, 0, 28.5, 200, 12.25, 45.25, 0, 1234567.891, 0},
};

/// An integration has carried the state away from the epoch.
std::unique_ptr<WinpData> numericRecord()
{
    auto in = recordOf({{"TEST", 12345, "1998-067A", 58138.5, 0, 0, 0, 50, 0, 0.1, 0, 0, 13.3, 0}});
    in->numflg[0] = 1;
    in->epr0[0] = 7e6;
    in->epr2[0] = -125;
    in->epv0[0] = 300;
    in->epv1[0] = 5013.743355555;
    in->epv2[0] = 5975.146656328;
    in->csr0[0] = in->csr1[0] = in->csv2[0] = 77;
    in->F107[0] = 150;
    in->FB107[0] = 140;
    in->Kp[0] = 3;
    in->Cd[0] = 2.2;
    in->Cr[0] = 1.2;
    in->Am[0] = 0.02;
    return in;
}

TEST(Writer, LaysOutEveryKindOfEntry)
{
    const ScratchDir here;
    EXPECT_EQ(saved(analytic), expected("analytic.txt"));
    EXPECT_EQ(saved(kepler), expected("kepler.txt"));
    EXPECT_EQ(saved(hyperbolic), expected("hyperbolic.txt"));
    EXPECT_EQ(SaveTle(numericRecord().get()), 0);
    EXPECT_EQ(ScratchDir::read("out.tle"), expected("numeric.txt"));
}

TEST(Writer, StartsAFileAnewOnceAndAppendsThen)
{
    const ScratchDir here;
    ScratchDir::write("out.tle", "old\n");
    const auto in = recordOf(kepler);
    EXPECT_EQ(SaveTle(in.get()), 0);
    EXPECT_EQ(SaveTle(in.get()), 0);
    EXPECT_EQ(ScratchDir::read("out.tle"), expected("kepler.txt") + expected("kepler.txt"));
    in->newtle = 1;
    EXPECT_EQ(SaveTle(in.get()), 0);
    EXPECT_EQ(ScratchDir::read("out.tle"), expected("kepler.txt"));
}

TEST(Writer, FailsWithoutTouchingAnything)
{
    const ScratchDir here;
    const auto none = recordOf({});
    EXPECT_EQ(SaveTle(none.get()), 1);
    EXPECT_EQ(none->newtle, 1);
    EXPECT_FALSE(QFile::exists(QStringLiteral("out.tle")));
    const auto in = recordOf(kepler);
    assignField(in->tlesave, "no/such/directory/out.tle");
    EXPECT_EQ(SaveTle(in.get()), 2);
    EXPECT_EQ(in->newtle, 0);
}

TEST(Writer, GivesBackTheTextOfTheWholeCatalogue)
{
    const ScratchDir here;
    const std::string path = TEST_DATA "/elements/catalogue_2018.txt";
    const std::vector<std::string> original = linesOf(ScratchDir::read(path.c_str()));
    FileSearch search = FileSearch::of(path);
    WinpData& in = *search.in;
    in.satn = 1;
    assignField(in.tlesave, "out.tle");
    for (int more = 2; more == 2;) {
        more = search.next();
        ShiftElm(&in, 0, workSlot);
        ASSERT_EQ(SaveTle(&in), 0);
    }
    const std::vector<std::string> written = linesOf(ScratchDir::read("out.tle"));
    ASSERT_EQ(written.size(), 979U * 3);
    ASSERT_EQ(original.size(), written.size());
    for (std::size_t i = 0; i < written.size(); i += 3) {
        SCOPED_TRACE(original[i]);
        const std::string &one = original[i + 1], &two = original[i + 2];
        ASSERT_EQ(written[i], columns(original[i], 1, 20) + std::string(20, ' '));
        ASSERT_EQ(written[i + 1].size(), 69U);
        ASSERT_EQ(columns(written[i + 1], 10, 20), columns(one, 10, 20));
        // days of the year and positive rates have their zeros elsewhere
        ASSERT_EQ(columns(written[i + 1], 21, 32), unpadded(columns(one, 21, 32)));
        ASSERT_EQ(columns(written[i + 1], 35, 43), columns(one, 35, 43));
        std::string drag = columns(one, 54, 61);  // a positive exponent has no sign here, and zero a negative one
        std::replace(drag.begin(), drag.end(), '+', ' ');
        ASSERT_EQ(columns(written[i + 1], 54, 61), drag == " 00000 0" ? " 00000-0" : drag);
        ASSERT_EQ(columns(written[i + 2], 8, 25), unpadded(columns(two, 8, 25)));
        ASSERT_EQ(columns(written[i + 2], 26, 34), columns(two, 26, 34));
        ASSERT_EQ(columns(written[i + 2], 35, 63), unpadded(columns(two, 35, 63)));
        ASSERT_EQ(tcksum(one.c_str()), one[68]);
        ASSERT_EQ(tcksum(two.c_str()), two[68]);
    }
}

TEST(Writer, KeepsOpenAndNumericOrbits)
{
    const ScratchDir here;
    ASSERT_EQ(SaveTle(numericRecord().get()), 0);
    FileSearch state = FileSearch::of("out.tle");
    ASSERT_EQ(state.next(), 1);
    EXPECT_EQ(state.in->numflg[workSlot], 1);
    EXPECT_EQ(state.in->epr0[workSlot], 7e6);
    EXPECT_EQ(state.in->epr2[workSlot], -125);
    EXPECT_EQ(state.in->epv1[workSlot], 5013.743355555);
    EXPECT_EQ(state.in->Am[workSlot], 0.02);
    saved(hyperbolic);
    FileSearch open = FileSearch::of("out.tle");
    ASSERT_EQ(open.next(), 2);
    EXPECT_EQ(open.in->ecc[workSlot], 1.5);
    EXPECT_EQ(open.in->n0[workSlot], 6878.137);
    EXPECT_EQ(open.in->aflg[workSlot], 0);
    ASSERT_EQ(open.next(), 1);
    EXPECT_EQ(open.in->ecc[workSlot], 12.25);
    EXPECT_EQ(open.in->n0[workSlot], 1234567.89);
}

struct TooLargeCase
{
    const char* what;
    Elements elements;
    std::size_t line, first, last;  // of the field
    const char* text;
};

TEST(Writer, HoldsEveryValueWithinItsField)
{
    constexpr double inf = std::numeric_limits<double>::infinity();
    const Elements e{"E", 1, "2018-001A", 58119, 0, 0, 0, 10, 20, 0.1, 30, 40, 15, 1};
    const auto changed = [e](auto change) {
        Elements other = e;
        change(other);
        return other;
    };
    const TooLargeCase cases[] = {
        {"number", changed([](Elements& x) { x.norad = 339999; }), 1, 2, 8, " Z9999 "},
        {"rate", changed([](Elements& x) { x.ndot = 12.5; }), 1, 33, 44, " 9.99999999 "},
        {"rate that rounds to -1", changed([](Elements& x) { x.ndot = -0.999999999; }), 1, 33, 44, " -.99999999 "},
        {"drag", changed([](Elements& x) { x.bstar = 1e300; }), 1, 53, 62, "  99999 9 "},
        {"node", changed([](Elements& x) { x.ra = 1234.5; }), 2, 17, 26, " 999.9999 "},
        {"eccentricity that rounds to 1", changed([](Elements& x) { x.ecc = 0.99999999; }), 2, 26, 34, " 9999999 "},
        {"hyperbola", changed([](Elements& x) { x.ecc = 123; }), 2, 26, 34, "99.99999 "},
        {"perigee", changed([inf](Elements& x) { x.aper = inf; }), 2, 34, 43, " 999.9999 "},
        {"mean motion", changed([](Elements& x) { x.n0 = 100; }), 2, 52, 64, " 99.99999999 "},
        {"distance that rounds up", changed([](Elements& x) { x.ecc = 2, x.n0 = 999999.99999; }), 2, 52, 64,
         " 999999.9999 "},
    };
    const ScratchDir here;
    for (const TooLargeCase& c : cases) {
        SCOPED_TRACE(c.what);
        const std::vector<std::string> lines = linesOf(saved({c.elements}));
        ASSERT_EQ(lines.size(), 3U);
        EXPECT_EQ(lines[1].size(), 69U);
        EXPECT_EQ(lines[2].size(), 69U);
        EXPECT_EQ(columns(lines[c.line], c.first, c.last), c.text);
        FileSearch back = FileSearch::of("out.tle");
        EXPECT_EQ(back.next(), 1);
    }
}

TEST(Writer, HoldsEveryStateWithinItsColumns)
{
    const ScratchDir here;
    const auto in = numericRecord();
    in->epr0[0] = -1e300;
    in->epr1[0] = std::nan("");
    in->F107[0] = 1e300;
    in->Kp[0] = -1e300;
    in->Am[0] = -1e-300;
    ASSERT_EQ(SaveTle(in.get()), 0);
    const std::vector<std::string> lines = linesOf(ScratchDir::read("out.tle"));
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_EQ(lines[2], "-1.000000000000e+300   0.000000000000e+00  -1.250000000000e+02      2");
    EXPECT_EQ(lines[4], "99999.9   140.0 -9999.9   2.20000e+00   1.20000e+00 -1.00000e-300   4");
}

struct ExponentCase
{
    double value;
    const char* field;
};

constexpr ExponentCase exponentCases[] = {
    {0, " 00000-0"},         {0.5e-3, " 50000-3"},     {-0.5e-3, "-50000-3"},    {0.1, " 10000 0"},
    {0.05, " 50000-1"},      {0.999999, " 99999 0"},   {1, " 10000 1"},          {-12.345, "-12345 2"},
    {1e-4, " 10000-3"},      {1e-3, " 10000-2"},       {1e8, " 10000 9"},        {1e12, " 99999 9"},
    {1.2345e-9, " 12345-8"}, {1.2345e-10, " 12345-9"}, {1.2345e-13, "    12-9"}, {1e-30, "     0-9"},
    {1.3161e-5, " 13161-4"}, {0.99999e-4, " 99999-4"},
};

TEST(ExponentField, TakesFiveDigits)
{
    char out[9];
    for (const ExponentCase& c : exponentCases) {
        SCOPED_TRACE(c.value);
        cvtlef(out, c.value);
        EXPECT_STREQ(out, c.field);
    }
    cvtlef(out, std::nan(""));
    EXPECT_STREQ(out, " 00000-0");
    cvtlef(out, 5e-324);
    EXPECT_STREQ(out, "     0-9");
}

TEST(ExponentField, RoundTripsEveryMantissa)
{
    // the smallest in front: a field written one digit too low would come back so
    for (int mantissa = 10000; mantissa <= 99999; mantissa += 7) {
        const double value = mantissa * 1e-5 * std::pow(10.0, -(mantissa % 9));
        char out[9];
        cvtlef(out, value);
        ASSERT_EQ(std::stoi(std::string(out, 6)), mantissa) << out;
    }
}
}  // namespace
