// The configuration reader: a record is taken over whole or not at all, holds what the program can work with, and comes
// back the same from the file that is written of it.

#include "fuzz/fuzz_target.h"

#include "record/config.h"
#include "record/text.h"

#include <QDir>
#include <cstring>
#include <initializer_list>

namespace {

using fuzz::require;

void requireTextsEnd(const WinpData& in)
{
    require(fuzz::isTerminated(in.geoname) && fuzz::isTerminated(in.tlename) && fuzz::isTerminated(in.url),
            "the texts end in their fields");
    for (const auto& name : in.cfgname)
        require(fuzz::isTerminated(name), "the names end in their fields");
}

void requireUsable(const WinpData& in)
{
    for (const double x : {in.tzone, in.lat, in.lng, in.height, in.sunel, in.satel, in.yrepoch, in.dur, in.dF107,
                           in.dFB107, in.dKp, in.dCd, in.dCr, in.dAm})
        require(std::isfinite(x), "the numbers are finite");
    require(std::abs(in.tzone) <= 15.0 && in.dur >= 1.0 && in.dur <= 14.0, "zone and duration lie in their range");
    require(in.fsz == 8 || in.fsz == 10, "the text has one of two sizes");
    require(in.mgrid >= 0 && in.mgrid <= 2 && in.mgrey >= 0 && in.mgrey <= 2, "grid and background are known ones");
    require(in.satn >= 0 && in.satn <= maxSatellites, "no more satellites than slots");
}

/// Of a damaged file only the names may have come.
void requireUnchanged(WinpData after, const WinpData& before)
{
    std::memcpy(after.cfgname, before.cfgname, sizeof after.cfgname);
    // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): byte for byte, so that a NaN is like itself
    require(std::memcmp(&after, &before, sizeof after) == 0, "a damaged file changes nothing");
}

void selectNamed(WinpData& in)
{
    for (int i = 0; i < in.satn; ++i)
        assignField(in.fsname[i], fieldText(in.cfgname[i]));
}

bool allNamed(const WinpData& in)
{
    for (int i = 0; i < in.satn; ++i)
        if (fieldText(in.cfgname[i]).empty())
            return false;
    return true;
}

void requireRoundTrip(WinpData in)
{
    selectNamed(in);
    putcfg(&in);
    const std::string written = fuzz::readFile("vorlix.cfg");
    WinpData again = in;
    require(getcfg(&again) == 1, "what the program writes, it reads");
    requireUsable(again);
    if (!allNamed(in))
        return;  // an empty name cannot be told from an empty line
    selectNamed(again);
    putcfg(&again);
    require(fuzz::readFile("vorlix.cfg") == written, "and it writes the same again");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool entered = QDir::setCurrent(QFileInfo(QString::fromStdString(fuzz::scratchFile("x"))).path());
    require(entered, "there is a scratch folder");
    fuzz::writeFile("vorlix.cfg", {reinterpret_cast<const char*>(data), size});
    // bytes, so that a comparison sees the same between the fields
    static WinpData before;
    std::memset(static_cast<void*>(&before), 0, sizeof before);
    setDefaults(&before);
    static WinpData in;
    std::memcpy(static_cast<void*>(&in), &before, sizeof in);
    const int result = getcfg(&in);
    requireTextsEnd(in);
    require(result == 0 || result == 1, "a file that is there is taken over or is damaged");
    if (result == 0)
        requireUnchanged(in, before);
    else {
        requireUsable(in);
        requireRoundTrip(in);
    }
    return 0;
}
