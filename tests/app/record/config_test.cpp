#include "app/record/config.h"

#include "scratch_dir.h"

#include "app/record/text.h"

#include <cmath>
#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <string>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

namespace {
constexpr const char* configName = "vorlix.cfg";

const std::vector<std::string> goodLines{
    "1.000000 ",
    "52.516000 ",
    "13.377000 ",
    "34.000000 ",
    "Berlin",
    "8 ",
    "2 ",
    "1 ",
    "/data/tle/visual.txt",
    "0 ",
    "-12.000000 ",
    "15.000000",
    "0.000000",
    "12",
    "0",
    "1 ",
    "example.org/tle/stations.txt",
    "2.5   170.0   165.0     3.5",
    "  2.20000e+00   1.20000e+00   2.00000e-02",
    "2 ",
    "ISS (ZARYA)         ",
    "HST                 ",
};

std::string joined(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

std::unique_ptr<WinpData> defaults()
{
    auto in = std::make_unique<WinpData>();
    setDefaults(in.get());
    return in;
}

/// What stands in the record after a file of these bytes has been read over the defaults.
std::unique_ptr<WinpData> readBack(const std::string& bytes, int expectedResult)
{
    ScratchDir::write(configName, bytes);
    auto in = defaults();
    EXPECT_EQ(getcfg(in.get()), expectedResult);
    return in;
}

void expectDefaults(const WinpData& in)
{
    EXPECT_EQ(in.tzauto, 1);
    EXPECT_EQ(in.lat, 0);
    EXPECT_EQ(fieldText(in.geoname), "Default");
    EXPECT_EQ(fieldText(in.tlename), "./visual.txt");
    EXPECT_EQ(in.dur, 3.1);
    EXPECT_EQ(in.dAm, 0.01);
    EXPECT_EQ(in.satn, 0);
}

void expectGood(const WinpData& in)
{
    EXPECT_EQ(in.tzauto, 0);
    EXPECT_EQ(in.tzone, 1.0);
    EXPECT_EQ(in.lat, 52.516);
    EXPECT_EQ(in.lng, 13.377);
    EXPECT_EQ(in.height, 34.0);
    EXPECT_EQ(fieldText(in.geoname), "Berlin");
    EXPECT_EQ(in.fsz, 8);
    EXPECT_EQ(in.mgrid, 2);
    EXPECT_EQ(in.mgrey, 1);
    EXPECT_EQ(fieldText(in.tlename), "/data/tle/visual.txt");
    EXPECT_EQ(in.visflg, 0);
    EXPECT_EQ(in.sunel, -12.0);
    EXPECT_EQ(in.satel, 15.0);
    EXPECT_EQ(in.yrepoch, 0.0);
    EXPECT_EQ(in.mfsz, 12);
    EXPECT_FALSE(in.bf);
    EXPECT_TRUE(in.leftbtn);
    EXPECT_EQ(fieldText(in.url), "example.org/tle/stations.txt");
    EXPECT_EQ(in.dur, 2.5);
    EXPECT_EQ(in.dF107, 170.0);
    EXPECT_EQ(in.dFB107, 165.0);
    EXPECT_EQ(in.dKp, 3.5);
    EXPECT_EQ(in.dCd, 2.2);
    EXPECT_EQ(in.dCr, 1.2);
    EXPECT_EQ(in.dAm, 0.02);
    EXPECT_EQ(in.satn, 2);
    EXPECT_EQ(fieldText(in.cfgname[0]), "ISS (ZARYA)         ");
    EXPECT_EQ(fieldText(in.cfgname[1]), "HST                 ");
}

/// The record that the good file describes, its names in the slots.
std::unique_ptr<WinpData> goodRecord()
{
    auto in = readBack(joined(goodLines), 1);
    for (int i = 0; i < in->satn; ++i)
        assignField(in->fsname[i], fieldText(in->cfgname[i]));
    return in;
}

TEST(Config, AbsentFileChangesNothing)
{
    const ScratchDir here;
    const auto in = defaults();
    EXPECT_EQ(getcfg(in.get()), 2);
    expectDefaults(*in);
}

TEST(Config, IsReadByTheLine)
{
    const ScratchDir here;
    expectGood(*readBack(joined(goodLines), 1));
}

TEST(Config, IsWrittenAsItIsRead)
{
    const ScratchDir here;
    const auto in = goodRecord();
    ASSERT_EQ(unlink(configName), 0);
    putcfg(in.get());
    EXPECT_EQ(ScratchDir::read(configName), joined(goodLines));
}

struct RuleCase
{
    const char* what;
    std::size_t line;  // from 1
    std::string text;
    std::function<bool(const WinpData&)> holds;
};

const std::string thirtyLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZABCD";
const std::string longAddress = "example.org/" + std::string(92, 'p');

const RuleCase ruleCases[] = {
    {"16 follows the system", 1, "16.000000 ", [](const WinpData& in) { return in.tzauto == 1 && in.tzone == 0; }},
    {"15.5 is refused", 1, "15.5", [](const WinpData& in) { return in.tzauto == 0 && in.tzone == 0; }},
    {"letters are 0", 2, "north", [](const WinpData& in) { return in.lat == 0; }},
    {"an empty site keeps the default", 5, "", [](const WinpData& in) { return fieldText(in.geoname) == "Default"; }},
    {"a site of 31 is cut", 5, thirtyLetters + "E",
     [](const WinpData& in) { return fieldText(in.geoname) == thirtyLetters; }},
    {"font 12 is 10", 6, "12", [](const WinpData& in) { return in.fsz == 10; }},
    {"grid 3 is 1", 7, "3", [](const WinpData& in) { return in.mgrid == 1; }},
    {"grey 3 is 0", 8, "3", [](const WinpData& in) { return in.mgrey == 0; }},
    {"an empty element file keeps the default", 9, "",
     [](const WinpData& in) { return fieldText(in.tlename) == "./visual.txt"; }},
    {"bold by any number but 0", 15, "-7", [](const WinpData& in) { return in.bf; }},
    {"left button by 1 only", 16, "2", [](const WinpData& in) { return !in.leftbtn; }},
    {"an address of 5 keeps the default", 17, "a/b/c",
     [](const WinpData& in) { return fieldText(in.url) == "celestrak.org/NORAD/elements/visual.txt"; }},
    {"an address of 104", 17, longAddress, [](const WinpData& in) { return fieldText(in.url) == longAddress; }},
    {"20 days are 14", 18, "20 1 2 3", [](const WinpData& in) { return in.dur == 14 && in.dKp == 3; }},
    {"count above ten", 20, "11", [](const WinpData& in) { return in.satn == 0; }},
    {"count beyond an int", 20, "99999999999", [](const WinpData& in) { return in.satn == 0; }},
    {"more names than there are", 20, "3", [](const WinpData& in) { return in.satn == 2; }},
    {"a line too long", 2, "52.5 " + std::string(10000, 'x'), [](const WinpData& in) { return in.lat == 52.5; }},
};

TEST(Config, FollowsTheRuleOfEachLineAndStaysInStep)
{
    const ScratchDir here;
    for (const RuleCase& c : ruleCases) {
        SCOPED_TRACE(c.what);
        std::vector<std::string> lines = goodLines;
        lines[c.line - 1] = c.text;
        const auto in = readBack(joined(lines), 1);
        EXPECT_TRUE(c.holds(*in));
        EXPECT_EQ(in->dAm, 0.02);  // out of step nothing would stand there
    }
}

TEST(Config, CutAnywhereIsTakenWholeOrNotAtAll)
{
    const ScratchDir here;
    const std::string whole = joined(goodLines);
    std::vector<std::string> settings(goodLines.begin(), goodLines.begin() + 19);
    const std::size_t lineTwenty = joined(settings).size();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        SCOPED_TRACE(length);
        ScratchDir::write(configName, whole.substr(0, length));
        const auto in = defaults();
        const int result = getcfg(in.get());
        EXPECT_EQ(result, length <= lineTwenty ? 0 : 1);
        if (result == 0)
            expectDefaults(*in);
        else
            EXPECT_LE(in->satn, 2);
    }
}

TEST(Config, ComesBackCompleteFromFullFieldsAndWildNumbers)
{
    const ScratchDir here;
    const auto in = goodRecord();
    assignField(in->geoname, thirtyLetters);
    assignField(in->tlename, std::string(104, 't'));
    assignField(in->url, longAddress);
    in->satn = 10;
    for (int i = 0; i < 10; ++i)
        assignField(in->fsname[i], std::string(19, 'n') + static_cast<char>('0' + i));
    in->lat = -1.7e308;
    in->height = std::numeric_limits<double>::infinity();
    in->dF107 = 1.7e308;
    in->dur = std::nan("");
    putcfg(in.get());
    const auto back = defaults();
    EXPECT_EQ(getcfg(back.get()), 1);
    EXPECT_EQ(fieldText(back->geoname), thirtyLetters);
    EXPECT_EQ(fieldText(back->tlename), std::string(104, 't'));
    EXPECT_EQ(fieldText(back->url), longAddress);
    ASSERT_EQ(back->satn, 10);
    EXPECT_EQ(fieldText(back->cfgname[9]), "nnnnnnnnnnnnnnnnnnn9");
    EXPECT_EQ(back->lat, -1.7e308);
    EXPECT_EQ(back->height, 0);
    EXPECT_EQ(back->dF107, 1.7e308);
    EXPECT_EQ(back->dur, 1);
}

/// No file of the process grows beyond so many bytes, as on a full disk.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        ::getrlimit(RLIMIT_FSIZE, &before);
        const rlimit limit{bytes, before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        handler = std::signal(SIGXFSZ, SIG_IGN);
    }
    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before{};
    void (*handler)(int);
};

TEST(Config, StaysTheOldOneWhereTheDiskIsFull)
{
    const ScratchDir here;
    const auto in = goodRecord();
    in->lat = 1;
    {
        const FullDisk full(100);
        putcfg(in.get());
    }
    EXPECT_EQ(ScratchDir::read(configName), joined(goodLines));
    EXPECT_EQ(QDir().entryList(QDir::Files).size(), 1);
}

TEST(Config, LeavesNothingBesideItself)
{
    const ScratchDir here;
    putcfg(goodRecord().get());
    EXPECT_EQ(QDir().entryList(QDir::Files), QStringList(QString::fromUtf8(configName)));
}
}  // namespace
