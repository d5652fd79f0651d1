#include "engine/scan/scratch_helper.h"

#include <unistd.h>

#include <fstream>
#include <sstream>

#include "app/record/files.h"
#include "app/record/keep.h"
#include "app/record/text.h"
#include "elements/reader.h"

namespace fs = std::filesystem;

ScratchDirectory::ScratchDirectory() : before(fs::current_path())
{
    std::string name = (fs::temp_directory_path() / "vorlix_scan_XXXXXX").string();
    here = ::mkdtemp(name.data());
    fs::current_path(here);
}

ScratchDirectory::~ScratchDirectory()
{
    fs::current_path(before);
    fs::remove_all(here);
}

std::size_t ScratchDirectory::files() const
{
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(here), fs::directory_iterator()));
}

void writeFile(const std::string& name, const std::string& content)
{
    std::ofstream(name) << content;
}

std::string contentOf(const std::string& name)
{
    std::ostringstream content;
    content << std::ifstream(name).rdbuf();
    return content.str();
}

std::vector<std::string> linesOf(const std::string& name)
{
    std::vector<std::string> lines;
    std::ifstream file(name);
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

WinpData scanRecord(const char* elements)
{
    WinpData in;
    setDefaults(&in);
    in.lat = 48.2;
    in.lng = 16.37;
    in.height = 180.0;
    in.year = 2018;
    in.month = 1;
    in.day = 20;
    in.mjd = 58138.0;
    assignField(in.geoname, "Vienna");
    assignField(in.tlename, std::string(TEST_DATA "/elements/") + elements);
    assignField(in.savename, "list.txt");
    return in;
}

bool selectSatellite(WinpData& in, int slot, int norad)
{
    const FilePtr file = openForReading(in.tlename);
    const Keep byNumber(in.srcmd, 1);
    assignField(in.cfgname[workSlot], "");
    in.norad[workSlot] = norad;
    char report[entryTextRoom];
    if (!file || tleread(&in, file.get(), report, 0) == 0)
        return false;
    ShiftElm(&in, slot, workSlot);
    return true;
}

Selection::Selection(const WinpData& in) : prs(in.prs), rlm(in.rlm), sunel(in.sunel), maxdst(in.maxdst)
{
    for (int k = 0; k < in.satn; ++k) {
        names.emplace_back(fieldText(in.fsname[k]));
        elements.insert(elements.end(), {in.mjdep[k], in.a[k], in.ecc[k], in.inc[k], in.ra[k], in.aper[k], in.m0[k],
                                         in.n0[k], in.bstar[k], in.epr0[k], in.epv2[k]});
    }
}
