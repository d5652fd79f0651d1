#include "scan/scan_helper.h"

#include "elements/reader.h"
#include "record/files.h"
#include "record/keep.h"
#include "record/text.h"

#include <fstream>
#include <gtest/gtest.h>

int filesHere()
{
    return static_cast<int>(QDir().entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size());
}

std::vector<std::string> linesOf(const std::string& name)
{
    std::vector<std::string> lines;
    std::ifstream file(name);
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

WinpData scanRecord(const std::string& elements, const std::string& fields)
{
    WinpData in;
    setDefaults(&in);
    setFields(in, "lat=48.2 lng=16.37 height=180 year=2018 month=1 day=20 mjd=58138 " + fields);
    assignField(in.geoname, "Vienna");
    assignField(in.tlename, elements[0] == '.' ? elements : TEST_DATA "/elements/" + elements);
    assignField(in.savename, "list.txt");
    return in;
}

void selectSatellite(WinpData& in, int slot, int norad)
{
    const FilePtr file = openForReading(in.tlename);
    const Keep byNumber(in.srcmd, 1);
    assignField(in.cfgname[workSlot], "");
    in.norad[workSlot] = norad;
    char report[entryTextRoom];
    ASSERT_TRUE(file && tleread(&in, file.get(), report, 0) != 0) << norad;
    ShiftElm(&in, slot, workSlot);
}

std::vector<int> selectedNumbers(const WinpData& in)
{
    return {in.norad, in.norad + in.satn};
}

Selection::Selection(const WinpData& in)
    : values{static_cast<double>(in.prs), static_cast<double>(in.rlm), in.sunel, in.maxdst}
{
    for (int k = 0; k < in.satn; ++k) {
        names.emplace_back(fieldText(in.fsname[k]));
        values.insert(values.end(), {in.mjdep[k], in.a[k], in.ecc[k], in.inc[k], in.ra[k], in.aper[k], in.m0[k],
                                     in.n0[k], in.bstar[k], in.epr0[k], in.epv2[k]});
    }
}
