#include "elements/selection.h"

#include "elements/reader.h"
#include "record/numbers.h"
#include "record/text.h"

#include <algorithm>
#include <string>

std::FILE* satfle = nullptr;

namespace {
constexpr std::size_t fileNameRoom = sizeof(WinpData::tlename);

void showLastSearch(const WinpData& in, QString& s, int& srcmd, int& norad, int& satn, int& low, int& rec)
{
    s = fieldQString(in.cfgname[workSlot]);
    srcmd = in.srcmd;
    norad = in.norad[workSlot];
    satn = in.satn;
    low = in.lowflg;
    rec = in.recflg;
}

/// Counted from 1.
QString nameOfSlot(const WinpData& in, int i)
{
    return i < 1 || i > slotCount ? QString() : fieldQString(in.fsname[i - 1]);
}

QString selectionText(const WinpData& in)
{
    const QString file = QStringLiteral("TLE filename: ") + fieldQString(in.tlename);
    if (in.satn < 1)
        return file + QStringLiteral("\n\n*** No Satellites Selected ***");
    QString list = file + QStringLiteral("\n\nSelected Satellites:\n");
    for (int i = 1; i <= in.satn; ++i)
        list += QStringLiteral("\n  ") + nameOfSlot(in, i);
    return list;
}

void emptySelection(WinpData& in)
{
    in.satn = 0;
    in.prs = 0;
    in.sgpsat = noSlot;
}

/// The satellite in the work slot joins the selection.
void addFound(WinpData* in)
{
    in->satn = std::min(in->satn, maxSatellites - 1);
    ShiftElm(in, in->satn, workSlot);
    ++in->satn;
}

void putFilters(WinpData& in, int low, int rec)
{
    in.lowflg = low;
    in.recflg = rec;
}

/// `vsReComp` on a record.
void searchEntry(WinpData* in, QString& s, int& n, int mode, int more, int low, int rec)
{
    QsToChar(s, in->cfgname[workSlot], sizeof in->cfgname[workSlot] - 1);
    in->srcmd = mode;
    in->norad[workSlot] = n;
    putFilters(*in, low, rec);
    char report[entryTextRoom] = {};
    n = satfle ? tleread(in, satfle, report, more) : 0;
    s = textQString(report);
}

/// A path beside the element file.
void putBeside(std::string_view elementFile, char* name)
{
    const std::size_t slash = elementFile.rfind('/');
    if (slash == std::string_view::npos) {
        name[0] = '/';
        return;
    }
    const std::string rest(name + 1);
    TextWriter(name, fileNameRoom).add(elementFile.substr(0, slash + 1)).add(rest);
}
}  // namespace

void vsLastSat(QString& s, int& srcmd, int& norad, int& satn, int& low, int& rec)
{
    showLastSearch(*indata, s, srcmd, norad, satn, low, rec);
}

QString vsSatList()
{
    return selectionText(*indata);
}

void vsResetSatList()
{
    emptySelection(*indata);
}

void vsSatSel()
{
    addFound(indata);
}

void vsReComp(QString& s, int& n, int mode, int more, int low, int rec)
{
    searchEntry(indata, s, n, mode, more, low, rec);
}

void vsFindSat(QString& s, int& n, int mode, int low, int rec)
{
    if (satfle)
        std::rewind(satfle);
    vsReComp(s, n, mode, 0, low, rec);
}

void vsLowRecent(int low, int rec)
{
    putFilters(*indata, low, rec);
}

QString vsSatName(int i)
{
    return nameOfSlot(*indata, i);
}

void removeSatellites(WinpData* in, const std::array<bool, maxSatellites>& marked)
{
    for (int i = std::min(in->satn, maxSatellites) - 1; i >= 0; --i) {
        if (!marked[static_cast<std::size_t>(i)])
            continue;
        if (in->prs >= i)
            in->prs = std::max(in->prs - 1, 0);
        --in->satn;
        for (int k = i; k < in->satn; ++k)
            ShiftElm(in, k, k + 1);
    }
    if (in->prs >= in->satn)
        in->prs = std::max(in->satn - 1, 0);
}

void vsFileName(char* name)
{
    if (name[0] == '*')
        putBeside(fieldText(indata->tlename), name);
}
