#include "cli/entry_walk.h"

#include "cli/words.h"
#include "elements/element_file.h"
#include "elements/entry_reader.h"
#include "record/progress.h"
#include "record/text.h"
#include "reports/list_rows.h"
#include "scan/entries.h"
#include "scan/workers.h"

#include <QString>
#include <algorithm>
#include <memory>
#include <utility>

namespace {

constexpr int onlySlot = 0;
constexpr std::size_t yearAndNumber = 8;  // of a designator: "1998-067"

bool allDigits(const std::string& text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// "1998-067" or "1998-067A".
bool isDesignator(const std::string& text)
{
    return text.size() >= yearAndNumber && text[4] == '-' && allDigits(text.substr(0, 4)) &&
           allDigits(text.substr(5, 3));
}

bool startsWith(const std::string& name, const std::string& start)
{
    return QString::fromStdString(name).startsWith(QString::fromStdString(start), Qt::CaseInsensitive);
}

bool fitsText(const SatelliteName& satellite, const std::string& text)
{
    if (allDigits(text))
        return std::to_string(satellite.number) ==
               text.substr(std::min(text.find_first_not_of('0'), text.size() - 1));
    if (isDesignator(text))
        return text.size() == yearAndNumber
                   ? startsWith(satellite.designator, text)
                   : QString::fromStdString(satellite.designator)
                             .compare(QString::fromStdString(text), Qt::CaseInsensitive) == 0;
    return startsWith(satellite.name, text);
}

}  // namespace

Wanted::Wanted(const std::vector<std::string>& texts)
{
    for (const std::string& text : texts)
        list.push_back({QString::fromStdString(text).trimmed().toStdString(), false, {}});
}

bool Wanted::fits(const SatelliteName& satellite)
{
    if (list.empty())
        return true;
    bool fitting = false;
    for (Which& which : list) {
        const bool fitsThis = fitsText(satellite, which.text);
        which.seen = which.seen || fitsThis;
        fitting = fitting || fitsThis;
        if (!which.seen && !allDigits(which.text))
            which.nearest =
                which.nearest.empty() ? satellite.name : nearestOf(which.text, {which.nearest, satellite.name});
    }
    return fitting;
}

std::string Wanted::missing() const
{
    std::string lines;
    for (const Which& which : list)
        if (!which.seen)
            lines += "vorlix: no satellite " + inQuotes(which.text) + " in the elements" +
                     (which.nearest.empty() ? std::string() : "; the nearest name is \"" + which.nearest + '"') +
                     '\n';
    return lines;
}

EntryWalk::EntryWalk(const Session& theSession, const Channels& theChannels, std::function<bool()> isFull)
    : session(theSession), full(std::move(isFull)), wanted(theSession.request.satellites), channels(theChannels)
{
    setProgressListener([this](std::string_view name) {
        if (channels.showsProgress && !name.empty()) {
            shows = true;
            channels.err("\r\x1b[K" + std::to_string(entries) + ' ' + textQString(name).trimmed().toStdString());
        }
        return !full();
    });
}

EntryWalk::~EntryWalk()
{
    setProgressListener({});
    if (shows)
        channels.err("\r\x1b[K");
}

Problem EntryWalk::eachFile(const std::function<void(std::FILE*)>& walk)
{
    const LongCalculation calculation;
    for (const ElementFile& file : session.files) {
        const FilePtr elements = openElementFile(file.path.c_str());
        if (!elements)
            return {status::unreadable, "vorlix: the element file " + inQuotes(file.shown) + " cannot be read"};
        const long before = entries;
        walk(elements.get());
        if (entries == before && !full())
            return {status::unreadable, "vorlix: the file " + inQuotes(file.shown) + " holds no element set"};
    }
    return {};
}

Problem EntryWalk::oneByOne(const WinpData& record, const std::function<void(WinpData&)>& take)
{
    const auto in = std::make_unique<WinpData>(record);
    return eachFile([&](std::FILE* elements) {
        for (Entries read(in.get(), elements); !full() && read.next();) {
            ++entries;
            if (!wanted.fits(nameOf(*in, workSlot)))
                continue;
            ShiftElm(in.get(), onlySlot, workSlot);
            take(*in);
        }
    });
}

Problem EntryWalk::asRead(const std::function<void(const Entry&, const SatelliteName&)>& take)
{
    return eachFile([&](std::FILE* elements) {
        EntryReader reader(elements);
        for (Entry entry; !full() && reader.next(entry);) {
            ++entries;
            const SatelliteName satellite = nameOf(entry);
            if (wanted.fits(satellite))
                take(entry, satellite);
        }
    });
}

Problem EntryWalk::shared(const WinpData& record, const std::function<void(EntryRows&)>& search,
                          const std::function<void(const EntryRows&)>& finish)
{
    const auto in = std::make_unique<WinpData>(record);
    return eachFile([&](std::FILE* elements) {
        std::vector<EntryRows> places(EntryRing::placesNeeded());
        const auto searchAt = [&](int place) {
            searchEntry(places[place], [&](WinpData*) { search(places[place]); });
        };
        EntryRing ring(static_cast<int>(places.size()), searchAt, [&](int place) { finish(places[place]); });
        for (Entries read(in.get(), elements); read.next();) {
            ++entries;
            if (!wanted.fits(nameOf(*in, workSlot)))
                continue;
            const int place = ring.freePlace();
            if (place < 0)
                break;
            beginEntry(places[place], *in, onlySlot);
            places[place].rows.clear();
            ring.filled();
        }
        ring.complete();
    });
}
