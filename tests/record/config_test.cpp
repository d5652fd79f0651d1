#include "record/config.h"

#include "scratch_dir.h"

#include "record/text.h"

#include <csignal>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>

namespace {
constexpr const char* configName = "vorlix.cfg";

const std::string goodFile = "1.000000 \n52.516000 \n13.377000 \n34.000000 \nBerlin\n"
                             "8 \n2 \n1 \n/data/tle/visual.txt\n"
                             "0 \n-12.000000 \n15.000000\n0.000000\n"
                             "12\n0\n1 \nexample.org/tle/stations.txt\n"
                             "2.5   170.0   165.0     3.5\n  2.20000e+00   1.20000e+00   2.00000e-02\n"
                             "2 \nISS (ZARYA)         \nHST                 \n";

std::size_t beginOfLine(int number)
{
    std::size_t begin = 0;
    for (int line = 1; line < number; ++line)
        begin = goodFile.find('\n', begin) + 1;
    return begin;
}

/// The good file with another text in a line, which counts from 1.
std::string goodFileBut(int line, const std::string& text)
{
    const std::size_t begin = beginOfLine(line);
    return goodFile.substr(0, begin) + text + goodFile.substr(goodFile.find('\n', begin));
}

WinpData defaults()
{
    WinpData in;
    setDefaults(&in);
    return in;
}

/// What the good file describes.
const WinpData goodRecord{.tzone = 1,
                          .dur = 2.5,
                          .fsz = 8,
                          .mfsz = 12,
                          .leftbtn = true,
                          .lat = 52.516,
                          .lng = 13.377,
                          .height = 34,
                          .geoname = "Berlin",
                          .tlename = "/data/tle/visual.txt",
                          .url = "example.org/tle/stations.txt",
                          .satn = 2,
                          .satel = 15,
                          .sunel = -12,
                          .dF107 = 170,
                          .dFB107 = 165,
                          .dKp = 3.5,
                          .dCd = 2.2,
                          .dCr = 1.2,
                          .dAm = 0.02,
                          .mgrid = 2,
                          .mgrey = 1,
                          .fsname = {"ISS (ZARYA)         ", "HST                 "}};

std::string written(const WinpData& in)
{
    putcfg(&in);
    return ScratchDir::read(configName);
}

/// What is written after a file has been read over the defaults and its names have been found.
std::string rewritten(const std::string& bytes)
{
    ScratchDir::write(configName, bytes);
    WinpData in = defaults();
    EXPECT_EQ(getcfg(&in), 1);
    for (int i = 0; i < in.satn; ++i)
        assignField(in.fsname[i], fieldText(in.cfgname[i]));
    return written(in);
}

TEST(Config, IsWrittenAndReadByTheLineWithPointsAlsoWhereCommasRule)
{
    const ScratchDir here;
    const CommaLocale comma;  // if the machine has one
    EXPECT_EQ(written(goodRecord), goodFile);
    EXPECT_EQ(rewritten(goodFile), goodFile);
    EXPECT_EQ(QDir().entryList(QDir::Files), QStringList(QString::fromUtf8(configName)));
    WinpData other = goodRecord;
    other.tzauto = 1;
    EXPECT_EQ(written(other), goodFileBut(1, "16.000000 "));
    other = goodRecord;
    other.dur = 0.5;
    EXPECT_EQ(written(other), goodFileBut(18, "1   170.0   165.0     3.5"));
}

struct RuleCase
{
    const char* what;
    int line;
    std::string text, comesBack;
};

const std::string thirtyLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZABCD";
const std::string longAddress = "example.org/" + std::string(92, 'p');

const std::string tenNames = "10 \n\"Nine\"\n8\n7\n6\n5\n4\n3\nA NAME OF 20 LETTERS";

const RuleCase ruleCases[] = {
    {"16 follows the system", 1, "16", "16.000000 "},
    {"15.5 is refused", 1, "15.5", "0.000000 "},
    {"and -15.5", 1, "-15.5", "0.000000 "},
    {"letters are 0", 2, "north", "0.000000 "},
    {"no finite number is 0", 4, "inf", "0.000000 "},
    {"an empty site keeps the default", 5, "", "Default"},
    {"a carriage return ends a text", 5, "Berlin\r", "Berlin"},
    {"a site of 31 is cut", 5, thirtyLetters + "E", thirtyLetters},
    {"font 12 is 10", 6, "12", "10 "},
    {"grid 3 is 1", 7, "3", "1 "},
    {"grey 3 is 0", 8, "3", "0 "},
    {"an empty element file keeps the default", 9, "", "./visual.txt"},
    {"bold by any number but 0", 15, "-7", "1"},
    {"left button by 1 only", 16, "2", "0 "},
    {"an address of 5 keeps the default", 17, "a/b/c", "celestrak.org/NORAD/elements/visual.txt"},
    {"an address of 6", 17, "a.b/cd", "a.b/cd"},
    {"20 days are 14", 18, "20 1 2 3", "14     1.0     2.0     3.0"},
    {"half a day is 1", 18, "0.5 1 2 3 4", "1     1.0     2.0     3.0"},
    {"no days are 1", 18, "nan 1 2 3", "1     1.0     2.0     3.0"},
    {"count above ten", 20, "11", "0 "},
    {"count beyond an int", 20, "99999999999", "0 "},
    {"count below none", 20, "-1", "0 "},
    {"more names than there are", 20, "3", "2 "},
    {"ten names", 20, tenNames, tenNames},
    {"the longest number", 2, std::to_string(-1.7e308), std::to_string(-1.7e308) + " "},
    {"the longest site", 5, thirtyLetters, thirtyLetters},
    {"the longest file name", 9, std::string(104, 't'), std::string(104, 't')},
    {"the longest address", 17, longAddress, longAddress},
    {"a line too long", 2, "52.5 " + std::string(10000, 'x'), "52.500000 "},
};

TEST(Config, FollowsTheRuleOfEachLineAndStaysInStep)
{
    const ScratchDir here;
    for (const RuleCase& c : ruleCases) {
        std::string expected = goodFileBut(c.line, c.comesBack);
        if (c.line == 20 && c.comesBack == "0 ")
            expected.resize(expected.find("ISS"));
        EXPECT_EQ(rewritten(goodFileBut(c.line, c.text)), expected) << c.what;
    }
}

TEST(Config, AbsentCutOrTooShortIsTakenWholeOrNotAtAll)
{
    const ScratchDir here;
    WinpData in = defaults();
    EXPECT_EQ(getcfg(&in), 2);
    for (const auto& [line, text] : {std::pair{18, "2.5 170 165"}, {18, ""}, {19, "2.2 1.2"}}) {
        ScratchDir::write(configName, goodFileBut(line, text));
        EXPECT_EQ(getcfg(&in), 0) << text;
    }
    EXPECT_EQ(written(in), written(defaults()));
    ScratchDir::write(configName, goodFileBut(20, "1"));
    EXPECT_EQ(getcfg(&in), 1);
    EXPECT_EQ(fieldText(in.cfgname[1]), std::string(20, ' '));  // one name was wanted
    for (std::size_t length = 0; length < goodFile.size(); ++length) {
        ScratchDir::write(configName, goodFile.substr(0, length));
        WinpData cut = defaults();
        const bool damaged = length <= beginOfLine(20);
        EXPECT_EQ(getcfg(&cut), damaged ? 0 : 1) << length;
        EXPECT_EQ(cut.tzauto, damaged ? 1 : 0) << length;
        EXPECT_EQ(cut.dAm, damaged ? 0.01 : 0.02) << length;
        EXPECT_EQ(cut.satn, length < beginOfLine(22) ? 0 : 1) << length;
    }
}

TEST(Config, IsDamagedWhereADirectoryHasItsName)
{
    const ScratchDir here;
    ASSERT_TRUE(QDir().mkdir(QString::fromUtf8(configName)));
    WinpData in = defaults();
    EXPECT_EQ(getcfg(&in), 0);
}

TEST(Config, StaysTheOldOneWhereTheDiskIsFull)
{
    const ScratchDir here;
    const std::string old = written(goodRecord);
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit hundredBytes{100, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &hundredBytes);
    auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
    const WinpData another;
    putcfg(&another);
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(ScratchDir::read(configName), old);
    EXPECT_EQ(QDir().entryList(QDir::Files).size(), 1);
}
}  // namespace
