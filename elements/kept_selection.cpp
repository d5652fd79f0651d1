#include "elements/kept_selection.h"

#include "elements/element_file.h"
#include "elements/reader.h"
#include "record/further_settings.h"
#include "record/keep.h"
#include "record/text.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace {
constexpr const char* numbersKey = "selection/numbers";
constexpr const char* namesKey = "selection/names";  // tell whether the numbers belong to the configuration
constexpr int byName = 0, byNumber = 1;
constexpr int moreFollow = 2;  // of tleread

bool isBlank(std::string_view text)
{
    return text.find_first_not_of(' ') == std::string_view::npos;
}

/// A satellite of the selection, as the two files together know it.
struct Kept
{
    QString name;  // blank for one without a name, which the configuration leaves out
    int number = 0;
};

/// What vorlix.ini says; nothing if it is damaged.
std::vector<Kept> keptInSettings()
{
    const QSettings settings = openFurtherSettings();
    const QStringList names = settings.value(QLatin1String(namesKey)).toStringList();
    const QStringList numbers = settings.value(QLatin1String(numbersKey)).toStringList();
    if (names.size() != numbers.size() || names.size() > maxSatellites)
        return {};
    std::vector<Kept> kept;
    for (qsizetype i = 0; i < names.size(); ++i)
        kept.push_back({names[i].trimmed(), numbers[i].toInt()});
    return kept;
}

/// Whether the names are those of the configuration, which cuts them.
bool agrees(const std::vector<Kept>& kept, const QStringList& configured)
{
    qsizetype i = 0;
    for (const Kept& one : kept)
        if (!one.name.isEmpty() && (i >= configured.size() || !one.name.startsWith(configured[i++])))
            return false;
    return i == configured.size();
}

bool isSelected(const WinpData& in)
{
    return std::find(in.norad, in.norad + in.satn, in.norad[workSlot]) != in.norad + in.satn;
}

/// One search from the start of the file; the result of `tleread`.
int search(WinpData* in, std::FILE* file, int mode)
{
    const Keep before(in->srcmd, mode);
    char report[entryTextRoom];
    std::rewind(file);
    return tleread(in, file, report, 0);
}

/// Goes to the first entry of the name that `wanted` accepts.
template <class Wanted>
bool findNamed(WinpData* in, std::FILE* file, Wanted wanted)
{
    const Keep mode(in->srcmd, byName);
    char report[entryTextRoom];
    int result = search(in, file, byName);
    while (result != 0 && !wanted())
        result = result == moreFollow ? tleread(in, file, report, 1) : 0;
    return result != 0;
}

bool findKept(WinpData* in, std::FILE* file, const Kept& wanted)
{
    if (wanted.name.isEmpty()) {
        in->norad[workSlot] = wanted.number;
        return search(in, file, byNumber) != 0;
    }
    QsToChar(wanted.name, in->cfgname[workSlot], sizeof in->cfgname[workSlot] - 1);
    const int found = search(in, file, byName);
    if (found != moreFollow)
        return found != 0;
    return findNamed(in, file, [&] { return in->norad[workSlot] == wanted.number; }) ||
           findNamed(in, file, [&] { return !isSelected(*in); });
}

bool findConfigured(WinpData* in, std::FILE* file, int i)
{
    assignField(in->cfgname[workSlot], fieldText(in->cfgname[i]));
    return findNamed(in, file, [&] { return !isSelected(*in); }) || search(in, file, byName) != 0;
}

void selectWorkSlot(WinpData* in)
{
    ShiftElm(in, std::min(in->satn, maxSatellites - 1), workSlot);
    in->satn = std::min(in->satn + 1, maxSatellites);
}
}  // namespace

void keepSelectedNumbers(const WinpData& in)
{
    QStringList names, numbers;
    for (int i = 0; i < std::clamp(in.satn, 0, maxSatellites); ++i) {
        names.append(fieldQString(in.fsname[i]).trimmed());
        numbers.append(QString::number(in.norad[i]));
    }
    QSettings settings = openFurtherSettings();
    settings.setValue(QLatin1String(namesKey), names);
    settings.setValue(QLatin1String(numbersKey), numbers);
}

void selectConfigured(WinpData* in, int names)
{
    const FilePtr file = openElementFile(in->tlename);
    if (!file)
        return;
    QStringList configured;
    for (int i = 0; i < names; ++i)
        configured.append(fieldQString(in->cfgname[i]).trimmed());
    const std::vector<Kept> kept = keptInSettings();
    if (agrees(kept, configured)) {
        for (const Kept& one : kept)
            if (findKept(in, file.get(), one))
                selectWorkSlot(in);
        return;
    }
    for (int i = 0; i < names; ++i)
        if (findConfigured(in, file.get(), i))
            selectWorkSlot(in);
}

QStringList missingAfterStart(const WinpData& in)
{
    QStringList missing;
    int slot = 0;
    for (int i = 0; i < maxSatellites; ++i) {
        const std::string_view name = fieldText(in.cfgname[i]);
        while (slot < in.satn && isBlank(fieldText(in.fsname[slot])))
            ++slot;
        if (isBlank(name))
            continue;
        if (slot < in.satn && Strncmpi(in.cfgname[i], in.fsname[slot], static_cast<int>(name.size())) == 0)
            ++slot;
        else
            missing.append(fieldQString(in.cfgname[i]).trimmed());
    }
    return missing;
}
