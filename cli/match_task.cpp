// The satellites that fit a sighting.

#include "astro/angles.h"
#include "cli/entry_walk.h"
#include "cli/tasks.h"
#include "reports/list_rows.h"
#include "reports/match_rows.h"

namespace {

constexpr int primeSlot = 0;

SightingQuery queryOf(const Session& session)
{
    const Request& request = session.request;
    SightingQuery query;
    query.amongStars = !request.azel;
    const Angles& place = query.amongStars ? *request.radec : *request.azel;
    query.first = query.amongStars ? DegFDms(place.first / 15.0) : place.first;
    query.second = query.amongStars ? DegFDms(place.second) : place.second;
    query.radius = request.radius;
    query.direction = request.direction;
    query.time = session.now;
    query.from = session.from;
    query.until = session.to;
    return query;
}

}  // namespace

Problem findMatches(const Session& session, const Channels& channels, Answer& answer)
{
    EntryWalk walk(session, channels, [&] { return answer.full(); });
    WinpData record = *session.record;
    record.mjd = session.now;
    const SightingQuery query = queryOf(session);
    const auto search = [&](EntryRows& entry) {
        if (const auto match = matchOf(entry.in, query))
            entry.rows.emplace_back(match->separation, match->row);
    };
    const Problem problem = walk.shared(record, search, [&](const EntryRows& entry) {
        for (const auto& [separation, row] : entry.rows) {
            answer.use({nameOf(entry.in, primeSlot), entry.in.mjdep[primeSlot]});
            answer.add(separation, row);
        }
    });
    channels.err(walk.missing());
    return problem;
}
