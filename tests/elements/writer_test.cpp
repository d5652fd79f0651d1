#include "elements/writer.h"

#include "elements/search_helper.h"

#include "record/text.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <gtest/gtest.h>
#include <sstream>
#include <vector>

namespace {
struct Saved
{
    const char *name, *designator;
    std::string fields;
};

/// A record with these satellites that saves into "out.tle" of the working directory.
std::unique_ptr<WinpData> recordOf(const std::vector<Saved>& satellites)
{
    auto in = std::make_unique<WinpData>();
    setDefaults(in.get());
    assignField(in->tlesave, "out.tle");
    for (const Saved& satellite : satellites) {
        const int slot = in->satn++;
        assignField(in->fsname[slot], satellite.name);
        assignField(in->ldsn[slot], satellite.designator);
        setFields(*in, satellite.fields, slot);
    }
    return in;
}

std::string saved(const std::vector<Saved>& satellites)
{
    EXPECT_EQ(SaveTle(recordOf(satellites).get()), 0);
    return ScratchDir::read("out.tle");
}

std::string expected(const std::string& file)
{
    return ScratchDir::read((TEST_DATA "/saved_elements/" + file).c_str());
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
const std::vector<Saved> analytic{
    {"ISS (ZARYA)\r", "1998-067A",
     "norad=25544 mjdep=58138.5 ndot=2.182e-5 n6dot=-1.2345e-7 bstar=4.0768e-5 inc=51.6416 ra=247.4627 ecc=0.0006703 "
     "aper=130.536 m0=325.0288 n0=15.54204125 aflg=1"},
    {"ATLAS CENTAUR 2     ", "1963-047A  ",
     "norad=694 mjdep=58238.45477549 ndot=-1.92e-6 bstar=5e-4 inc=30.3567 ra=49.3864 ecc=0.0587298 aper=116.6761 "
     "m0=249.5182 n0=2.00561234 aflg=1"},
};
const std::vector<Saved> kepler{{"GENERATED", "          ", "norad=0 mjdep=51543 ndot=-0 n0=15 aflg=0"}};
const std::vector<Saved> hyperbolic{
    {"ESCAPE", "2018-001AB", "norad=99999 mjdep=58119.25 inc=28.5 ra=200 ecc=1.5 aper=45.25 n0=6878.137 aflg=0"},
    {"FAR AWAY", "2018-001AC",
     "norad=99998 mjdep=58119.25 inc=28.5 ra=200 ecc=12.25 aper=45.25 n0=1234567.891 aflg=0"},
};
// an integration has carried the state away from the epoch
const std::vector<Saved> numeric{{"TEST", "1998-067A",
                                  "norad=12345 mjdep=58138.5 numflg=1 aflg=0 epr0=7e6 epr2=-125 epv0=300 "
                                  "epv1=5013.743355555 epv2=5975.146656328 csr0=77 "
                                  "csr1=77 csv2=77 F107=150 FB107=140 Kp=3 Cd=2.2 Cr=1.2 Am=0.02"}};

TEST(Writer, LaysOutEveryKindOfEntry)
{
    const ScratchDir here;
    EXPECT_EQ(saved(analytic), expected("analytic.txt"));
    EXPECT_EQ(saved(kepler), expected("kepler.txt"));
    EXPECT_EQ(saved(hyperbolic), expected("hyperbolic.txt"));
    FileSearch open = FileSearch::of("out.tle");
    ASSERT_EQ(open.next(), 2);
    EXPECT_EQ(differences(*open.in, "ecc=1.5 n0=6878.137 aflg=0"), "");
    ASSERT_EQ(open.next(), 1);
    EXPECT_EQ(differences(*open.in, "ecc=12.25 n0=1234567.89"), "");
    EXPECT_EQ(saved(numeric), expected("numeric.txt"));
    FileSearch state = FileSearch::of("out.tle");
    ASSERT_EQ(state.next(), 1);
    EXPECT_EQ(differences(*state.in, "numflg=1 epr0=7e6 epr2=-125 epv1=5013.743355555 Am=0.02"), "");
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
    EXPECT_FALSE(QFile::exists("out.tle"));
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

struct TooLargeCase
{
    const char *what, *fields;
    std::size_t line, first, last;  // of the field
    const char* text;
};

TEST(Writer, HoldsEveryValueWithinItsField)
{
    constexpr TooLargeCase cases[] = {
        {"number", "norad=339999", 1, 2, 8, " Z9999 "},
        {"rate", "ndot=12.5", 1, 33, 44, " 9.99999999 "},
        {"rate that rounds to -1", "ndot=-0.999999999", 1, 33, 44, " -.99999999 "},
        {"drag", "bstar=1e300", 1, 53, 62, "  99999 9 "},
        {"node", "ra=1234.5", 2, 17, 26, " 154.5000 "},
        {"perigee below -100", "aper=-120", 2, 34, 43, " 240.0000 "},
        {"anomaly that rounds to 360", "m0=-0.00004", 2, 43, 52, "   0.0000 "},
        {"whole turn", "m0=360", 2, 43, 52, " 360.0000 "},
        {"inclination", "inc=-120", 2, 8, 17, " -99.9999 "},
        {"eccentricity that rounds to 1", "ecc=0.99999999", 2, 26, 34, " 9999999 "},
        {"hyperbola", "ecc=123", 2, 26, 34, "99.99999 "},
        {"perigee", "aper=inf", 2, 34, 43, " 999.9999 "},
        {"mean motion", "n0=100", 2, 52, 64, " 99.99999999 "},
        {"distance that rounds up", "ecc=2 n0=999999.99999", 2, 52, 64, " 999999.9999 "},
    };
    const ScratchDir here;
    for (const TooLargeCase& c : cases) {
        SCOPED_TRACE(c.what);
        const std::string others = "norad=1 mjdep=58119 inc=10 ra=20 ecc=0.1 aper=30 m0=40 n0=15 aflg=1 ";
        const std::vector<std::string> lines = linesOf(saved({{"E", "2018-001A", others + c.fields}}));
        ASSERT_EQ(lines.size(), 3U);
        EXPECT_EQ(lines[1].size(), 69U);
        EXPECT_EQ(lines[2].size(), 69U);
        EXPECT_EQ(columns(lines[c.line], c.first, c.last), c.text);
        EXPECT_EQ(FileSearch::of("out.tle").next(), 1);
    }
    std::vector<Saved> state = numeric;
    state[0].fields += " epr0=-1e300 epr1=nan F107=1e300 Kp=-1e300 Am=-1e-300";
    const std::vector<std::string> lines = linesOf(saved(state));
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_EQ(lines[2], "-1.000000000000e+300   0.000000000000e+00  -1.250000000000e+02      2");
    EXPECT_EQ(lines[4], "99999.9   140.0 -9999.9   2.20000e+00   1.20000e+00 -1.00000e-300   4");
}

struct ExponentCase
{
    double value;
    const char* field;
};

const ExponentCase exponentCases[] = {
    {0, " 00000-0"},
    {0.5e-3, " 50000-3"},
    {-0.5e-3, "-50000-3"},
    {0.1, " 10000 0"},
    {0.05, " 50000-1"},
    {0.999999, " 99999 0"},
    {1, " 10000 1"},
    {-12.345, "-12345 2"},
    {1e-4, " 10000-3"},
    {1e-3, " 10000-2"},
    {1e8, " 10000 9"},
    {1e12, " 99999 9"},
    {1.2345e-9, " 12345-8"},
    {1.2345e-10, " 12345-9"},
    {1.2345e-13, "    12-9"},
    {1e-30, "     0-9"},
    {1.3161e-5, " 13161-4"},
    {0.99999e-4, " 99999-4"},
    {std::nan(""), " 00000-0"},
    {5e-324, "     0-9"},
};

TEST(ExponentField, TakesFiveDigits)
{
    char out[9];
    for (const ExponentCase& c : exponentCases) {
        cvtlef(out, c.value);
        EXPECT_STREQ(out, c.field) << c.value;
    }
    // the smallest in front: a field written one digit too low would come back so
    for (int mantissa = 10000; mantissa <= 99999; mantissa += 7) {
        cvtlef(out, mantissa * 1e-5 * std::pow(10.0, -(mantissa % 9)));
        ASSERT_EQ(std::stoi(std::string(out, 6)), mantissa) << out;
    }
}
}  // namespace
