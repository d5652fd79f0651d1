#include "elements/selection.h"

#include "elements/reader.h"
#include "record/numbers.h"
#include "record/text.h"

#include <algorithm>
#include <string>

namespace {
constexpr std::size_t fileNameRoom = sizeof(WinpData::tlename);
}

std::FILE* satfle = nullptr;

void vsLastSat(QString& s, int& srcmd, int& norad, int& satn, int& low, int& rec)
{
    s = fieldQString(indata->cfgname[workSlot]);
    srcmd = indata->srcmd;
    norad = indata->norad[workSlot];
    satn = indata->satn;
    low = indata->lowflg;
    rec = indata->recflg;
}

QString vsSatList()
{
    const QString file = QStringLiteral("TLE filename: ") + fieldQString(indata->tlename);
    if (indata->satn < 1)
        return file + QStringLiteral("\n\n*** No Satellites Selected ***");
    QString list = file + QStringLiteral("\n\nSelected Satellites:\n");
    for (int i = 1; i <= indata->satn; ++i)
        list += QStringLiteral("\n  ") + vsSatName(i);
    return list;
}

void vsResetSatList()
{
    indata->satn = 0;
    indata->prs = 0;
    indata->sgpsat = noSlot;
}

void vsSatSel()
{
    indata->satn = std::min(indata->satn, maxSatellites - 1);
    ShiftElm(indata, indata->satn, workSlot);
    ++indata->satn;
}

void vsReComp(QString& s, int& n, int mode, int more, int low, int rec)
{
    QsToChar(s, indata->cfgname[workSlot], sizeof indata->cfgname[workSlot] - 1);
    indata->srcmd = mode;
    indata->norad[workSlot] = n;
    vsLowRecent(low, rec);
    char report[entryTextRoom] = {};
    n = satfle ? tleread(indata, satfle, report, more) : 0;
    s = textQString(report);
}

void vsFindSat(QString& s, int& n, int mode, int low, int rec)
{
    if (satfle)
        std::rewind(satfle);
    vsReComp(s, n, mode, 0, low, rec);
}

void vsLowRecent(int low, int rec)
{
    indata->lowflg = low;
    indata->recflg = rec;
}

QString vsSatName(int i)
{
    return i < 1 || i > slotCount ? QString() : fieldQString(indata->fsname[i - 1]);
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
    if (name[0] != '*')
        return;
    const std::string_view elementFile = fieldText(indata->tlename);
    const std::size_t slash = elementFile.rfind('/');
    if (slash == std::string_view::npos) {
        name[0] = '/';
        return;
    }
    const std::string rest(name + 1);
    TextWriter(name, fileNameRoom).add(elementFile.substr(0, slash + 1)).add(rest);
}
