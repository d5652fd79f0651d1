// Transits, occultations and flares.

#include "astro/angles.h"
#include "cli/entry_walk.h"
#include "cli/tasks.h"
#include "engine/aos_list.h"
#include "engine/event.h"
#include "engine/satpos_data.h"
#include "reports/list_rows.h"
#include "scan/entry_lines.h"
#include "scan/iridium_scan.h"

#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int primeSlot = 0;
constexpr double defaultDistanceKm = 50.0;

/// Packs degrees into the hours or degrees that the record holds.
void setPlace(WinpData& in, const Angles& place)
{
    in.occra = DegFDms(place.first / 15.0);
    in.occdec = DegFDms(place.second);
}

/// The record for one kind of event, as its command in the window sets it.
void setKind(WinpData& in, const std::string& kind, const Request& request)
{
    in.maxdst = request.maxDistance.value_or(defaultDistanceKm);
    if (kind == "sun" || kind == "moon") {
        in.occflg = kind == "sun" ? 1 : 2;
        in.maxdst = request.maxDistance.value_or(0.0);
    } else if (kind == "place") {
        in.occflg = 3;
        in.yrepoch = 2000.0;
        setPlace(in, *request.place);
    } else if (request.normal) {
        in.flarflg = 1;
        in.flarmod = 2;
        in.yrepoch = 2000.0;
        setPlace(in, *request.normal);
    } else {
        in.flarflg = 1;
        in.flarmod = 1;
        in.occra = request.mirror->first;
        in.occdec = request.mirror->second;
    }
    chooseEventKind(&in);
}

/// The events of the satellite in the prime slot.
std::vector<std::pair<double, ListRow>> eventsOf(WinpData& in, const Session& session)
{
    std::vector<std::pair<double, ListRow>> rows;
    PassQuery query{&in, satpos, primeSlot, listLimits(in)};
    query.recordsRead = false;
    query.limits.horizon = session.horizon.get();
    eachEvent(query, session.from, session.to,
              [&](const Event& event) { rows.emplace_back(event.mjd, eventRow(in, primeSlot, event)); });
    return rows;
}

void handOver(const WinpData& in, const std::vector<std::pair<double, ListRow>>& rows, Answer& answer)
{
    if (!rows.empty())
        answer.use({nameOf(in, primeSlot), in.mjdep[primeSlot]});
    for (const auto& [time, row] : rows)
        answer.add(time, row);
}

/// One kind over all wanted satellites; entries are shared among the threads where they do not depend on each other.
Problem findKind(const WinpData& record, const Session& session, EntryWalk& walk, Answer& answer)
{
    const auto in = std::make_unique<WinpData>(record);
    if (!EntrySearch::entriesIndependent(*in))
        return walk.oneByOne(*in, [&](WinpData& one) { handOver(one, eventsOf(one, session), answer); });
    const auto search = [&](EntryRows& entry) { entry.rows = eventsOf(entry.in, session); };
    return walk.shared(*in, search, [&](const EntryRows& entry) { handOver(entry.in, entry.rows, answer); });
}

/// The flares of three mirrors, and then those of the solar panels.
Problem findMirrorFlares(const Session& session, EntryWalk& walk, Answer& answer)
{
    const auto in = std::make_unique<WinpData>(*session.record);
    IridiumSearch search(in.get());
    for (const bool panels : {false, true}) {
        search.accept(session.request.maxMagnitude.value_or(in->irmag), false, panels);
        in->irsolp = panels;
        if (const Problem problem = findKind(*in, session, walk, answer))
            return problem;
    }
    return {};
}

}  // namespace

Problem findEvents(const Session& session, const Channels& channels, Answer& answer)
{
    std::vector<std::string> kinds = session.request.kinds;
    if (kinds.empty())
        kinds = {"sun", "moon"};
    EntryWalk walk(session, channels, [&] { return answer.full(); });
    Problem problem;
    for (const std::string& kind : kinds) {
        const auto in = std::make_unique<WinpData>(*session.record);
        if (kind == "iridium") {
            problem = findMirrorFlares(session, walk, answer);
        } else {
            setKind(*in, kind, session.request);
            problem = findKind(*in, session, walk, answer);
        }
        if (problem)
            return problem;
    }
    channels.err(walk.missing());
    return {};
}
