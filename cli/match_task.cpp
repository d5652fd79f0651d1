// The satellites that fit a sighting, or several.

#include "astro/angles.h"
#include "cli/entry_walk.h"
#include "cli/tasks.h"
#include "reports/list_rows.h"
#include "reports/match_rows.h"

namespace {

constexpr int primeSlot = 0;
constexpr double minutesPerDay = 1440.0;

SightingQuery queryOf(const Session& session)
{
    SightingQuery query;
    for (std::size_t i = 0; i < session.seenAt.size(); ++i) {
        const auto& [at, place, equatorial] = session.request.sightings[i];
        query.places.push_back({equatorial, equatorial ? DegFDms(place.first / 15.0) : place.first,
                                equatorial ? DegFDms(place.second) : place.second, session.seenAt[i]});
    }
    query.radius = session.request.radius;
    query.direction = session.request.direction;
    query.halfWidth = session.request.window / minutesPerDay;
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
