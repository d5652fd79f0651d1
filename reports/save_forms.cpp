#include "reports/save_forms.h"

#include "elements/element_file.h"
#include "engine/aos_list.h"
#include "engine/event.h"
#include "engine/pass_search.h"
#include "engine/position.h"
#include "exports/geo_form.h"
#include "record/clock.h"
#include "record/progress.h"
#include "record/text.h"
#include "reports/growing_list.h"
#include "reports/list_rows.h"
#include "reports/pass_details.h"
#include "scan/entries.h"
#include "scan/entry_task.h"
#include "scan/save_lines.h"

#include <QString>
#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace {

constexpr int hit = 1;  // of nextpass
constexpr double lineStepDays = 0.5 / 1440.0;

struct FormName
{
    const char* ending;
    ListForm form;
};
constexpr std::array formNames{FormName{".csv", ListForm::csv}, FormName{".json", ListForm::json},
                               FormName{".ics", ListForm::ics}, FormName{".geojson", ListForm::geojson}};

/// What the passes of a record are called, and their task.
struct Listing
{
    ListKind kind;
    const char* task;
};

Listing listingOf(const WinpData& in, int events)
{
    if (relativeMode(in))
        return {{"contacts", contactColumns(), "contact"}, "contacts"};
    if (events > event::plain)
        return {{"events", eventColumns(), "event"}, "events"};
    return {{"passes", passColumns(), "pass"}, "passes"};
}

/// Calls `take` for each pass or event of the list of the prime satellite.
void eachListed(WinpData* in, const SearchStyle& style, double from, double to,
                const std::function<void(const Pass&, const std::optional<Event>&)>& take)
{
    const bool automatic = automaticWidth(*in);
    const bool events = in->iridflg > event::plain && !relativeMode(*in);
    PassQuery query{in, satpos, in->prs, listLimits(*in), in->iridflg, false, style.thorough};
    query.limits.horizon = style.horizon;
    double t = from;
    while (t <= to && tellProgress(fieldText(in->fsname[in->prs]))) {
        Pass pass;
        const int result = findNextPass(query, t, to, pass);
        if (result == 0)
            return;
        if (result == hit) {
            const std::optional<Event> event = events ? eventOf(query, pass, automatic) : std::nullopt;
            if (event || !events)
                take(pass, event);
        }
        const double next = timeAfterPass(query, pass);
        if (!(next > t))
            return;
        t = next;
    }
}

/// The line below the satellite between two instants, both included.
std::string lineBelow(WinpData* in, double from, double to, double step, const std::string& properties)
{
    std::vector<GeoPoint> points;
    const int slot = in->prs;
    for (double t = from; tellProgress(); t = std::min(t + step, to)) {
        GetSatPos(t, in, satpos, slot, 0);
        points.push_back({satpos->lat[slot], satpos->lng[slot], satpos->hgt[slot]});
        if (!(t < to) || !(t + step > t))
            break;
    }
    return geoLine(points, properties);
}

/// An interval, MJD UTC.
struct PassSpan
{
    double from, to;
};

/// From the first step of the pass details to the first one that is not listed.
PassSpan spanOfPass(WinpData* in, const HorizonLine* horizon)
{
    PassLimits limits = sunAtAnyHeight(*in);
    limits.horizon = horizon;
    const double from = alignedStart(in->aostm[in->aossel], in->tmstep);
    double t = from;
    for (int step = 0; step < mostSavedSteps && tellProgress(fieldText(in->fsname[in->prs]), t); ++step) {
        GetSatPos(t, in, satpos, in->prs, 0);
        if (!conditionsHold({in, satpos, in->prs, limits}) || !(t + in->tmstep > t))
            break;
        t += in->tmstep;
    }
    return {from, t};
}

/// The pass of the details, as a list of one.
std::string singlePass(WinpData* in, ListForm form, const PassSpan& span, const HorizonLine* horizon)
{
    GrowingList list(form, listingOf(*in, event::plain).kind, listRequest(*in, "passes", span.from, span.to), *in);
    Pass pass;
    PassQuery query{in, satpos, in->prs, limitsOf(*in), event::plain};
    query.limits.horizon = horizon;
    if (findNextPass(query, in->aostm[in->aossel], span.to, pass) != 0)
        list.add(relativeMode(*in) ? contactRow(*in, in->prs, secondSatellite(*in), pass)
                                   : passRowOf(*in, in->prs, pass));
    return list.whole();
}

/// Steps from one instant up to, not including, another.
std::string steps(WinpData* in, ListForm form, const PassSpan& span, bool track)
{
    const ListKind kind = track ? ListKind{"points", trackColumns(), ""} : ListKind{"positions", lookColumns(), ""};
    GrowingList list(form, kind, listRequest(*in, track ? "track" : "look", span.from, span.to), *in);
    for (double t = span.from; t < span.to && tellProgress(fieldText(in->fsname[in->prs]), t); t += in->tmstep) {
        GetSatPos(t, in, satpos, in->prs, 0);
        list.add(track ? trackRow(*in, in->prs, t) : lookRow(*in, in->prs, t, in->frequ));
        if (!(t + in->tmstep > t))
            break;
    }
    return list.whole();
}

/// One line below the satellite.
std::string line(WinpData* in, const PassSpan& span)
{
    static constexpr std::array columns{ListColumn{"name", nullptr}, ListColumn{"catalogue_number", nullptr},
                                        ListColumn{"designator", nullptr}, ListColumn{"start", nullptr},
                                        ListColumn{"end", nullptr}};
    ListRow row = stepRow(*in, in->prs, span.from);
    row.emplace_back(ListTime{span.to});
    GrowingList list(ListForm::geojson, {"points", columns, ""}, listRequest(*in, "track", span.from, span.to), *in);
    list.addItem(lineBelow(in, span.from, span.to, in->tmstep, jsonObject(columns, row)));
    return list.whole();
}

/// A pass or an event of the list of the prime satellite, in its form.
std::string listedItem(WinpData* in, ListForm form, const GrowingList& list, const Pass& pass,
                       const std::optional<Event>& event)
{
    if (relativeMode(*in))
        return list.itemOf(contactRow(*in, in->prs, secondSatellite(*in), pass));
    if (event)
        return list.itemOf(eventRow(*in, in->prs, *event));
    const ListRow row = passRowOf(*in, in->prs, pass);
    if (form != ListForm::geojson)
        return list.itemOf(row);
    return lineBelow(in, pass.tm[0], pass.tm[2], lineStepDays, jsonObject(passColumns(), row));
}

}  // namespace

std::optional<ListForm> formOfName(std::string_view name)
{
    const QString whole = QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
    for (const FormName& row : formNames)
        if (whole.endsWith(QLatin1String(row.ending), Qt::CaseInsensitive))
            return row.form;
    return std::nullopt;
}

std::string passListText(WinpData* in, ListForm form, const SearchStyle& style)
{
    const Listing listing = listingOf(*in, in->iridflg);
    const double from = startMjd(in);
    const double to = from + clampedSpan(in->dur);
    GrowingList list(form, listing.kind, listRequest(*in, listing.task, from, to), *in);
    eachListed(in, style, from, to, [&](const Pass& pass, const std::optional<Event>& event) {
        list.addItem(listedItem(in, form, list, pass, event));
    });
    return list.whole();
}

std::optional<std::string> allPassesText(WinpData* in, ListForm form, const SearchStyle& style)
{
    struct Found
    {
        std::vector<std::pair<double, std::string>> items;  // with their times
    };
    const FilePtr elements = openElementFile(in->tlename);
    if (!elements)
        return std::nullopt;
    const auto record = std::make_unique<WinpData>(*in);
    record->rlm = 0;
    record->satn = std::max(1, record->satn);
    const double from = startMjd(in);
    const double to = from + clampedSpan(in->dur);
    const Listing listing = listingOf(*record, record->iridflg);
    ListRequest request = listRequest(*record, listing.task, from, to);
    request.satellites.clear();
    GrowingList list(form, listing.kind, request, *record);
    Found all;
    const auto search = [&](WinpData* own) {
        Found found;
        eachListed(own, style, from, to, [&](const Pass& pass, const std::optional<Event>& event) {
            const double time = pass.tm[own->iridflg > ::event::plain ? 1 : 0];
            found.items.emplace_back(time, listedItem(own, form, list, pass, event));
        });
        return found;
    };
    const auto takeOver = [&](const Found& found, const WinpData& own) {
        if (!found.items.empty())
            list.use(own, own.prs);
        all.items.insert(all.items.end(), found.items.begin(), found.items.end());
    };
    Entries entries(record.get(), elements.get());
    shareEntries<Found>(entries, record.get(), record->prs, search, takeOver);
    std::stable_sort(all.items.begin(), all.items.end(),
                     [](const auto& one, const auto& other) { return one.first < other.first; });
    for (const auto& [time, item] : all.items)
        list.addItem(item);
    return list.whole();
}

std::string passStepsText(WinpData* in, ListForm form, bool groundTrack, const HorizonLine* horizon)
{
    const PassSpan span = spanOfPass(in, horizon);
    if (form == ListForm::ics)
        return singlePass(in, form, span, horizon);
    return form == ListForm::geojson ? line(in, span) : steps(in, form, span, groundTrack);
}

std::string trackText(WinpData* in, ListForm form)
{
    const double from = startMjd(in);
    const PassSpan span{from, from + clampedSpan(in->dur)};
    if (form == ListForm::ics)
        return {};
    return form == ListForm::geojson ? line(in, span) : steps(in, form, span, true);
}

std::string writeInForm(WinpData* in, ListForm form, const std::string& text)
{
    std::string content = text;
    if (form == ListForm::csv && in->newsave == 0) {
        const std::string before = contentOfFile(in->savename).value_or(std::string());
        const std::size_t heading = text.find('\n') + 1;
        if (before.compare(0, heading, text, 0, heading) == 0)
            content = before + text.substr(heading);
    }
    std::string why =
        text.empty() ? "The list does not fit into a file of this form" : replaceFile(in->savename, content);
    if (why.empty())
        in->newsave = 0;
    return why;
}
