#include "record/numbers.h"

#include "scratch_dir.h"

#include "record/field_numbers.h"
#include "record/files.h"

#include <gtest/gtest.h>

namespace {
TEST(Numbers, OfFilesAndFieldsAreWholeTextsAndFinite)
{
    const std::pair<const char*, double> cases[] = {
        {"51.6416", 51.6416}, {"  -.00002182", -2.182e-5}, {".5", 0.5}, {"1.5E-3", 1.5e-3},
        {"12.25\n", 12.25},   {"7.0 \r\n", 7.0},           {"+3", 3.0}, {"1e300", 1e300},
    };
    for (const auto& [text, value] : cases)
        EXPECT_EQ(Atof(text), value) << text;
    for (const char* text :
         {"", "\n", "   ", "1,5", "12x", "nan", "inf", "-INF", "1e999", "0x10", "1.2.3", "\xff\xfe"}) {
        EXPECT_EQ(Atof(text), 0) << text;
        EXPECT_EQ(typedNumber(QString::fromLatin1(text)), 0) << text;
    }
}

TEST(WholeNumber, ReadsLeadingDigitsAndStopsAtTheRange)
{
    const std::pair<const char*, int> cases[] = {
        {"  25544U", 25544}, {"-5", -5}, {"+7 8", 7}, {" \n", 0}, {"-", 0}, {"2147483648", 2147483647},
    };
    for (const auto& [text, value] : cases)
        EXPECT_EQ(wholeNumber(text), value) << text;
    EXPECT_EQ(wholeNumber("-99999999999999999999999"), -2147483647 - 1);
}

struct LineCase
{
    const char* what;
    std::string line;
    int n;
    int result;
    double v[3];  // -1 where nothing is stored
};

TEST(Fscanf, TakesOneLineOfBlankSeparatedNumbers)
{
    const LineCase cases[] = {
        {"three numbers", "1.5 -2 3e2\n", 3, 1, {1.5, -2, 300}},
        {"runs of blanks", "   1.5    2   3\n", 3, 1, {1.5, 2, 3}},
        {"more than asked for", "1 2 3 4 5\n", 2, 1, {1, 2, -1}},
        {"too few, stored all the same", "1 2\n", 3, 0, {1, 2, -1}},
        {"a trailing blank leaves the line end as a number", "1 2 \n", 3, 1, {1, 2, 0}},
        {"a line end alone is a number", "\n", 1, 1, {0, -1, -1}},
        {"only the blank separates", "1\t2 3\n", 3, 0, {0, 3, -1}},
        {"no line at all", "", 1, 0, {-1, -1, -1}},
        {"cut at 79 characters", std::string(75, ' ') + "1 23456 7\n", 2, 1, {1, 23, -1}},
    };
    const ScratchDir here;
    for (const LineCase& c : cases) {
        SCOPED_TRACE(c.what);
        ScratchDir::write("line", c.line);
        const FilePtr file = openForReading("line");
        double v[3] = {-1, -1, -1};
        EXPECT_EQ(Fscanf(file.get(), c.n, v), c.result);
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(v[i], c.v[i]);
    }
}

TEST(Numbers, HavePointsUnderALocaleOfCommas)
{
    const CommaLocale comma;
    if (!comma.present)
        GTEST_SKIP() << "no de_DE.UTF-8 on this machine";
    EXPECT_EQ(Atof("1.5"), 1.5);
    EXPECT_EQ(Atof("1,5"), 0.0);
    char text[32];
    EXPECT_EQ(formatted(text, "%6.2lf (%3.1lf)", 1.25, 2.5), "  1.25 (2,5)");
    TextWriter writer(text);
    writer.add("a,b").addFormatted(" %.1lf", 0.5).add(", ").addFormatted0("(h):%.1lf", 1.5);
    EXPECT_STREQ(text, "a,b 0.5, (h):1.5");
}

TEST(Formatted, CutsToTheArray)
{
    char text[6];
    EXPECT_EQ(formatted(text, "%lf", 1e300), "10000");
    TextWriter writer(text);
    writer.add("abc").addFormatted("%i", 12345).add("x").addFormatted("%i", 1);
    EXPECT_EQ(writer.text(), "abc12");
    EXPECT_STREQ(text, "abc12");
}
}  // namespace
