#include "scan/iridium_scan.h"

#include "elements/element_file.h"
#include "elements/reader.h"
#include "elements/selection.h"
#include "engine/flares.h"
#include "record/files.h"
#include "record/numbers.h"
#include "record/text.h"
#include "record/wout_data.h"
#include "scan/save_lines.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <string_view>

namespace {

constexpr const char* scratchName = "./satird.tmp";
constexpr std::size_t longestLine = 160;
constexpr std::size_t kindColumn = 28;  // of a line of the save file
constexpr std::string_view kind = "Iridium";
constexpr std::size_t kindLength = 13;  // "Iridium Flare"
constexpr std::size_t nameColumn = 54;  // of a line of the table
constexpr std::size_t nameLength = 11;
constexpr std::size_t tableLineLength = 75;
constexpr int linesPerGroup = 5;

void putHeading(WoutData* out, const WinpData& in)
{
    char text[256];
    TextWriter title(text);
    title.add(" *** Iridium Flares *** ");
    if (in.irdrun)
        title.add(" written to ").add(fieldText(in.savename));
    PutSpace(out);
    PutNxtLn(out, std::string(title.text()).c_str());
    PutSpace(out);
    TextWriter year(text);
    year.addFormatted(" Year: %4i  +++ Timezone: %g +++", in.year, in.tzone);
    if (in.moonflg)
        year.add("   Moonshine Flares");
    PutNxtLn(out, std::string(year.text()).c_str());
}

bool isFlare(std::string_view line)
{
    return !isHeading(line) && line.size() >= kindColumn && line.substr(kindColumn, kind.size()) == kind;
}

/// Looks the satellite of a line up by its name and adds it to the selection.
void select(WinpData* in, std::FILE* elements, std::string_view line)
{
    if (!elements || in->satn >= maxSatellites || line.size() <= nameColumn)
        return;
    assignField(in->cfgname[workSlot], line.substr(nameColumn, nameLength));
    const Keep byName(in->srcmd, 0);
    char report[entryTextRoom] = {};
    std::rewind(elements);
    if (tleread(in, elements, report, 0) != 0)
        ShiftElm(in, in->satn++, workSlot);
}

}  // namespace

IridiumSearch::IridiumSearch(WinpData* in)
    : record(in),
      keptAngle1(in->occra, 0.0),
      keptAngle2(in->occdec, mirrorPitchDeg),
      keptKind(in->iridflg, event::iridium),
      keptFlares(in->flarflg, 1),
      keptMode(in->flarmod, 1),
      keptSteering(in->flaryst, 0),
      keptOccultation(in->occflg, 0),
      keptLength(in->chlen)
{}

void IridiumSearch::accept(double magnitude, bool operationalOnly, bool solarPanels)
{
    record->irmag = magnitude;
    record->ops = operationalOnly;
    record->irsol = solarPanels;
    record->chlen = record->moonflg ? 1.0 : 0.0;
}

OtherSaveFile::OtherSaveFile(WinpData* in, const char* name)
    : record(in), nameBefore(fieldText(in->savename)), keptStart(in->newsave, 1)
{
    assignField(record->savename, name);
}

OtherSaveFile::~OtherSaveFile()
{
    assignField(record->savename, nameBefore);
}

IridiumFiles::IridiumFiles(WinpData* in)
    : record(in), elementsBefore(fieldText(in->tlename)), saveFile(in, "*iridiumf.doc"), keptRun(in->irdrun, true)
{
    char elements[sizeof in->tlename] = {};
    assignField(elements, "*iridium.txt");
    vsFileName(elements);
    vsFileName(record->savename);
    assignField(record->tlename, fieldText(elements));
}

IridiumFiles::~IridiumFiles()
{
    assignField(record->tlename, elementsBefore);
}

ScratchSaveFile::ScratchSaveFile(WinpData* in) : saveFile(in, scratchName) {}

ScratchSaveFile::~ScratchSaveFile()
{
    std::remove(scratchName);
}

void Iriddspy(WinpData* in, WoutData* out)
{
    const FilePtr elements = openElementFile(in->tlename);
    out->nlines = 0;
    const FilePtr saved = openForReading(in->savename);
    if (!saved)
        return;
    putHeading(out, *in);
    in->newsave = 0;
    std::string last;
    int accepted = 0;
    for (std::string line; nextSaveLine(saved.get(), line);) {
        line.resize(std::min(line.size(), longestLine));
        if (!isFlare(line) || line.compare(0, passStampLength, last) == 0)
            continue;
        last = line.substr(0, passStampLength);
        if (accepted++ % linesPerGroup == 0)
            PutSpace(out);
        line.erase(kindColumn, kindLength);
        line.resize(std::min(line.size(), tableLineLength));
        PutNxtLnT(out, line.c_str());
        select(in, elements.get(), line);
    }
}
