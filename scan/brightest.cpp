#include "scan/brightest.h"

#include "astro/angles.h"
#include "elements/element_file.h"
#include "engine/aos_list.h"
#include "engine/night.h"
#include "engine/pass_search.h"
#include "engine/sky_light.h"
#include "record/progress.h"
#include "record/slot_copy.h"
#include "record/text.h"
#include "scan/entries.h"
#include "scan/entry_task.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <numeric>

namespace {

constexpr double eyeLimit = 6.5;
constexpr double togetherDays = 10.0 / 1440.0;
constexpr std::size_t launchLength = 8;  // of a designator: "1998-067"
constexpr int onlySlot = 0;

std::string trimmed(std::string_view text)
{
    return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

/// What one entry gives.
struct Found
{
    std::vector<BrightPass> passes;
    long fainter = 0, hidden = 0, unknown = 0;
};

class EntryNight
{
public:
    EntryNight(WinpData* record, const BrightnessBook& book, const BrightRequest& wanted)
        : in(record),
          request(wanted),
          name(trimmed(fieldText(in->fsname[onlySlot]))),
          designator(trimmed(fieldText(in->ldsn[onlySlot]))),
          standard(book.of(in->norad[onlySlot], name, designator))
    {}

    Found search()
    {
        PassQuery query{in, satpos, onlySlot};
        query.limits.horizon = request.horizon;
        double t = request.from;
        Pass pass;
        while (t <= request.to && findNextPass(query, t, request.to, pass) != 0) {
            take(pass);
            const double next = timeAfterPass(query, pass);
            if (!(next > t) || !tellProgress(name, next))
                break;
            t = next;
        }
        return std::move(found);
    }

private:
    void take(const Pass& pass)
    {
        if (!standard) {
            ++found.unknown;
            return;
        }
        const auto best = brightestMoment(in, satpos, onlySlot, pass, *standard, request.faintest);
        if (!best)
            ++found.fainter;
        else if (request.sky && lostInSky(*best, *in, request.faintest))
            ++found.hidden;
        else
            found.passes.push_back({name, designator, in->norad[onlySlot], 0, in->mjdep[onlySlot], pass, *best,
                                    standard->spread, standard->source, standard->family,
                                    elementAge(*in, onlySlot, pass.tm[1], request.decayUncertainty)});
    }

    WinpData* in;
    const BrightRequest& request;
    std::string name, designator;
    std::optional<StandardMagnitude> standard;
    Found found;
};

/// The record of a search for passes in sunlight over the observer.
std::unique_ptr<WinpData> searchRecord(const WinpData& in)
{
    auto record = std::make_unique<WinpData>(in);
    record->satn = 1;
    record->prs = onlySlot;
    record->rlm = record->occflg = record->flarflg = record->moonflg = 0;
    record->iridflg = event::plain;
    record->visflg = 1;
    return record;
}

double separation(const SkyPlace& one, double azimuth, double elevation)
{
    const double a = one.elevation * radPerDeg, b = elevation * radPerDeg;
    const double cosine =
        std::sin(a) * std::sin(b) + std::cos(a) * std::cos(b) * std::cos((one.azimuth - azimuth) * radPerDeg);
    return std::acos(std::clamp(cosine, -1.0, 1.0)) * degPerRad;
}

/// Numbers that fall into groups: each has the number of the first of its group.
std::vector<std::size_t> firstOfGroups(const std::vector<BrightPass>& passes)
{
    std::vector<std::size_t> byTime(passes.size()), first(passes.size());
    std::iota(byTime.begin(), byTime.end(), std::size_t{0});
    std::iota(first.begin(), first.end(), std::size_t{0});
    std::sort(byTime.begin(), byTime.end(),
              [&](std::size_t a, std::size_t b) { return passes[a].pass.tm[1] < passes[b].pass.tm[1]; });
    std::map<std::string, std::size_t> last;  // of each launch, by time
    for (const std::size_t i : byTime) {
        const std::string launch = passes[i].designator.substr(0, launchLength);
        if (launch.empty())
            continue;
        const auto before = last.find(launch);
        if (before != last.end() && passes[i].pass.tm[1] - passes[before->second].pass.tm[1] <= togetherDays)
            first[i] = first[before->second];
        last[launch] = i;
    }
    return first;
}

}  // namespace

bool lostInSky(const BrightMoment& moment, const WinpData& in, double faintest)
{
    const MoonPlace moon = moonPlace(moment.mjd, siteOf(in));
    const SkyLight sky{moment.elevation, moment.sunElevation, moon.elevation, moon.phaseDeg,
                       separation(moon, moment.azimuth, moment.elevation)};
    return moment.magnitude > std::max(eyeLimit, faintest) - lostToSky(sky);
}

std::optional<BrightList> brightestPasses(WinpData* in, const BrightnessBook& book, const BrightRequest& request)
{
    const FilePtr elements = openElementFile(in->tlename);
    if (!elements)
        return std::nullopt;
    const auto record = searchRecord(*in);
    in->sgpsat = noSlot;
    BrightList list;
    long entry = 0;
    const auto search = [&](WinpData* own) { return EntryNight(own, book, request).search(); };
    const auto takeOver = [&](const Found& found, const WinpData&) {
        for (const BrightPass& pass : found.passes)
            list.passes.emplace_back(pass).entry = entry;
        list.fainter += found.fainter;
        list.hidden += found.hidden;
        list.unknown += found.unknown;
        ++entry;
    };
    Entries entries(record.get(), elements.get());
    shareEntries<Found>(entries, record.get(), onlySlot, search, takeOver);
    std::stable_sort(list.passes.begin(), list.passes.end(),
                     [](const BrightPass& a, const BrightPass& b) { return a.pass.tm[0] < b.pass.tm[0]; });
    return list;
}

void sortByMagnitude(std::vector<BrightPass>& passes)
{
    std::stable_sort(passes.begin(), passes.end(),
                     [](const BrightPass& a, const BrightPass& b) { return a.best.magnitude < b.best.magnitude; });
}

std::vector<std::vector<std::size_t>> launchGroups(const std::vector<BrightPass>& passes)
{
    const std::vector<std::size_t> first = firstOfGroups(passes);
    std::map<std::size_t, std::size_t> placeOf;
    std::vector<std::vector<std::size_t>> groups;
    for (std::size_t i = 0; i < passes.size(); ++i) {
        const auto [place, isNew] = placeOf.emplace(first[i], groups.size());
        if (isNew)
            groups.emplace_back();
        groups[place->second].push_back(i);
    }
    return groups;
}

bool readEntry(WinpData* in, long entry)
{
    const FilePtr elements = openElementFile(in->tlename);
    const auto record = std::make_unique<WinpData>(*in);
    in->sgpsat = noSlot;
    if (!elements)
        return false;
    Entries entries(record.get(), elements.get());
    for (long k = 0; k <= entry; ++k)
        if (!entries.next())
            return false;
    copySlot(in, workSlot, *record, workSlot);
    return true;
}
