#include "scan/all_satellites.h"
#include "scan/next_satellites.h"
#include "scan/scan_helper.h"
#include "scan/workers.h"

#include "engine/satpos_data.h"
#include "record/files.h"
#include "record/text.h"
#include "scan/entries.h"
#include "scan/entry_lines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>

namespace {

constexpr const char* mixed = "./mixed.txt";

struct ListCase
{
    const char *elements, *fields;
    bool next = false;  // the next satellites in place of a scan
};

/// The fields of all slots, and the positions up to the circles, to the last bit.
std::string leftBehind(const WinpData& in)
{
    std::string text(reinterpret_cast<const char*>(satpos), offsetof(SatPosData, vlat));
    for (int k = 0; k < slotCount; ++k) {
        const std::vector<double> values = slotFields(in, k);
        text.append(reinterpret_cast<const char*>(values.data()), values.size() * sizeof(double));
        (text += fieldText(in.fsname[k])) += '\n';
    }
    for (const double value : {in.occra, in.occdec, in.flrang, in.moondst, in.smang, in.eclmag, in.eclpow,
                               static_cast<double>(in.satn), static_cast<double>(in.sgpsat)})
        text.append(reinterpret_cast<const char*>(&value), sizeof value);
    return text;
}

struct Outcome
{
    std::string list, left;
};

Outcome outcomeOn(WinpData& in, const ListCase& c, int workers)
{
    setScanWorkers(workers);
    in = scanRecord(c.elements, std::string("visflg=0 sunel=91 newsave=1 dur=0.3 ") + c.fields);
    *satpos = SatPosData{};
    const int result = c.next ? nextSatellites(&in, 58138.2) : AllSatAos(&in);
    EXPECT_EQ(result < 0, false) << c.fields;
    setScanWorkers(0);
    return {c.next ? "" : ScratchDir::read("list.txt"), leftBehind(in)};
}

struct SameLists : testing::Test
{
    /// The mixed file, and behind its entries two satellites alike but for their area to mass.
    SameLists()
    {
        const std::string numeric = ScratchDir::read(TEST_DATA "/saved_elements/numeric.txt");
        std::string file = ScratchDir::read(TEST_DATA "/scan/mixed.txt");
        for (const char* area : {"2.00000e-01", "2.00000e-03"}) {
            file += numeric;
            file.replace(file.rfind("2.00000e-02"), 11, area);
        }
        ScratchDir::write("mixed.txt", file);
    }
    const ScratchDir here;
};

// Without entries of every kind the comparisons below would say little.
TEST_F(SameLists, HaveEntriesOfEveryKind)
{
    WinpData in = scanRecord(mixed);
    int numeric = 0, simple = 0, analytic = 0;
    const FilePtr file = openForReading(in.tlename);
    for (Entries entries(&in, file.get()); entries.next();)
        ++(in.numflg[workSlot] ? numeric : in.aflg[workSlot] ? analytic : simple);
    EXPECT_EQ(numeric, 6);
    EXPECT_EQ(simple, 5);
    EXPECT_EQ(analytic, 16);
}

/// The lines of passes, sorted.
std::vector<std::string> passLines(const std::vector<std::string>& lines)
{
    std::vector<std::string> passes;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(passes),
                 [](const std::string& line) { return line.starts_with("JAN"); });
    std::sort(passes.begin(), passes.end());
    return passes;
}

// Each with its own forces: searched on the record of the windows, one after the other.
TEST_F(SameLists, HaveTheLinesOfEachSatelliteAlone)
{
    const ListCase passes{mixed, "dur=0.5"};
    WinpData in;
    outcomeOn(in, passes, 4);
    const std::vector<std::string> listed = passLines(linesOf("list.txt"));
    *indata = scanRecord(mixed, "visflg=0 sunel=91 dur=0.5 satn=1");
    const EntrySearch entrySearch(indata, limitsOf(*indata));
    std::string single;
    const FilePtr file = openForReading(indata->tlename);
    for (Entries entries(indata, file.get()); entries.next();) {
        ShiftElm(indata, 0, workSlot);
        single += entrySearch.search(indata).text;
    }
    ScratchDir::write("single.txt", single);
    EXPECT_EQ(passLines(linesOf("single.txt")), listed);
    EXPECT_GT(listed.size(), 20U);
}

// In the last rows the engine goes on from what it left in the record at an entry before.
TEST_F(SameLists, DependOnNeitherTheNumberOfWorkersNorTheRecord)
{
    constexpr ListCase cases[] = {
        {mixed, ""},
        {mixed, "moonflg=1 visflg=1 satel=-20"},
        {mixed, "dur=1 iridflg=1 occflg=2 maxdst=20000"},
        {mixed, "iridflg=2 flarflg=1 flarmod=1 maxdst=9000 occra=30 occdec=-40"},
        {mixed, "", true},
        {"visual_2018.txt", "dur=2 visflg=1 sunel=-6"},
        {"visual_2018.txt", "lat=-53.77 lng=142.75 height=50 iridflg=1 occflg=1 maxdst=0"},
        {"visual_2018.txt", "rlm=1", true},
        {"iridium_2018.txt", "dur=1 iridflg=3 flarflg=1 flarmod=1 occdec=-40 irmag=5 irsol=1"},
        {"iridium_2018.txt", "iridflg=3 flarflg=1 flarmod=1 flaryst=1 occdec=-40 irmag=5"},
        {"iridium_2018.txt", "iridflg=3 irmag=5"},
        {"iridium_2018.txt", "iridflg=1 occflg=3 occra=5.143 occdec=-8.12 maxdst=4000", true},
        {"iridium_2018.txt", "flarflg=1 flarmod=1 occra=30 occdec=-40", true},
    };
    const auto own = std::make_unique<WinpData>();
    for (const ListCase& c : cases) {
        SCOPED_TRACE(std::string(c.elements) + " " + c.fields);
        const Outcome alone = outcomeOn(*indata, c, 1);
        EXPECT_TRUE(c.next || alone.list.find("\nJAN") != std::string::npos) << "an empty list";
        for (const auto& [in, workers] : {std::pair{indata, 2}, {indata, 4}, {own.get(), 1}, {own.get(), 4}}) {
            SCOPED_TRACE(std::to_string(workers) + (in == indata ? "" : " on a record of its own"));
            const Outcome shared = outcomeOn(*in, c, workers);
            EXPECT_EQ(shared.list, alone.list);
            EXPECT_TRUE(shared.left == alone.left);
        }
    }
}

}  // namespace
