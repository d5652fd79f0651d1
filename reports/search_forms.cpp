// Whole-file searches of the window as documents of other forms.

#include "reports/save_forms.h"

#include "elements/element_file.h"
#include "engine/aos_list.h"
#include "engine/event.h"
#include "engine/pass_search.h"
#include "engine/satpos_data.h"
#include "record/clock.h"
#include "record/text.h"
#include "reports/growing_list.h"
#include "reports/list_rows.h"
#include "reports/match_rows.h"
#include "scan/entries.h"
#include "scan/entry_lines.h"
#include "scan/entry_task.h"
#include "scan/matching.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace {

/// Rows with what they are sorted by.
using SortedRows = std::vector<std::pair<double, ListRow>>;

constexpr int onlySlot = 0;
constexpr double secondsPerDay = 86400.0;

/// The record of a search in which each entry stands in slot 0, alone.
std::unique_ptr<WinpData> aloneIn(const WinpData& in)
{
    auto record = std::make_unique<WinpData>(in);
    record->rlm = 0;
    record->prs = onlySlot;
    record->satn = 1;
    record->sgpsat = noSlot;
    return record;
}

/// What each entry gives, in order, and the elements it came from.
std::optional<std::string> searchedText(const WinpData& in, GrowingList list,
                                        const std::function<SortedRows(WinpData*)>& search,
                                        const std::function<bool(double before, double now)>& sameAs)
{
    const FilePtr elements = openElementFile(in.tlename);
    if (!elements)
        return std::nullopt;
    const auto record = std::make_unique<WinpData>(in);
    SortedRows all;
    Entries entries(record.get(), elements.get());
    shareEntries<SortedRows>(entries, record.get(), onlySlot, search,
                             [&](const SortedRows& found, const WinpData& own) {
                                 if (!found.empty())
                                     list.use(own, onlySlot);
                                 all.insert(all.end(), found.begin(), found.end());
                             });
    std::stable_sort(all.begin(), all.end(),
                     [](const auto& one, const auto& other) { return one.first < other.first; });
    for (std::size_t i = 0; i < all.size(); ++i)
        if (i == 0 || !sameAs(all[i - 1].first, all[i].first))
            list.add(all[i].second);
    return list.whole();
}

/// The flares of the mirrors, or of the panels.
void addFlares(WinpData* in, double from, double to, SortedRows& rows)
{
    eachEvent({in, satpos, onlySlot, listLimits(*in), in->iridflg, true}, from, to,
              [&](const Event& event) { rows.emplace_back(event.mjd, eventRow(*in, onlySlot, event)); });
}

SightingQuery sightingOf(const WinpData& in)
{
    constexpr double minutesPerDay = 1440.0;
    const double half = clampedSpan(2.0 * in.tm / minutesPerDay) / 2.0;
    SightingQuery query{{{in.rdf != 0, in.az, in.el, in.mjd}}, in.mxa, {}, half, true};
    if (in.drf)
        query.direction = in.dra;
    return query;
}

ListRequest requestOfFile(const WinpData& in, const char* task, double from, double to)
{
    ListRequest request = listRequest(in, task, from, to);
    request.satellites.clear();
    return request;
}

}  // namespace

std::optional<std::string> mirrorFlaresText(WinpData* in, ListForm form)
{
    const auto record = aloneIn(*in);
    const double from = startMjd(in);
    const double to = from + clampedSpan(in->dur);
    const GrowingList list(form, {"events", eventColumns(), "event"}, requestOfFile(*record, "events", from, to),
                           *record);
    const auto search = [&](WinpData* own) {
        SortedRows rows;
        if (own->ops && !operationalOrbit(*own, onlySlot))
            return rows;
        for (const bool panels : {false, true}) {
            own->irsolp = panels;
            if (!panels || own->irsol)
                addFlares(own, from, to, rows);
        }
        own->irsolp = false;
        return rows;
    };
    return searchedText(*record, list, search, [](double before, double now) {
        return std::floor(before * secondsPerDay + 0.5) == std::floor(now * secondsPerDay + 0.5);
    });
}

std::optional<std::string> matchesText(WinpData* in, ListForm form)
{
    if (in->odm || form == ListForm::ics || form == ListForm::geojson)
        return std::nullopt;
    const auto record = aloneIn(*in);
    const SightingQuery query = sightingOf(*record);
    const GrowingList list(form, {"matches", matchColumns(), ""},
                           requestOfFile(*record, "match", in->mjd - query.halfWidth, in->mjd + query.halfWidth),
                           *record);
    const auto search = [&](WinpData* own) {
        SortedRows rows;
        if (own->vis && !isBrighter(*own, onlySlot))
            return rows;
        if (const auto match = matchOf(*own, query))
            rows.emplace_back(match->separation, match->row);
        return rows;
    };
    return searchedText(*record, list, search, [](double, double) { return false; });
}
