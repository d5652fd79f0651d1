// Satellites that cross a field of the sky.

#include "cli/brightness.h"
#include "cli/entry_walk.h"
#include "cli/tasks.h"
#include "observing/field_list.h"
#include "reports/list_rows.h"

#include <vector>

namespace {

constexpr int slot = 0;
constexpr double longestDays = 1.0;

FieldQuery queryOf(const Session& session)
{
    const Request& request = session.request;
    FieldQuery query;
    const bool fixed = request.azel.has_value();
    const Angles centre = fixed ? *request.azel : request.radec.value_or(Angles());
    query.field.angles = fixed ? SkyAngles::horizontal : SkyAngles::equatorial;
    query.field.first = centre.first;
    query.field.second = centre.second;
    query.field.radius = request.radius;
    if (request.size) {
        query.field.width = request.size->first;
        query.field.height = request.size->second;
    }
    query.field.angle = request.angle;
    query.from = session.from;
    query.to = session.to;
    query.site = siteOf(*session.record);
    query.earth = earthOrientationOf(*session.record);
    query.sunlitOnly = request.light == Light::sunlit;
    return query;
}

}  // namespace

Problem findCrossings(const Session& session, const Channels& channels, Answer& answer)
{
    const FieldQuery query = queryOf(session);
    if (query.to - query.from > longestDays)
        return {status::wrongWords, "vorlix field: the interval is longer than a day; expected a shorter --exposure"};
    const BrightnessBook book = brightnessOf(session, channels);
    std::vector<FieldCrossing> all;
    EntryWalk walk(session, channels, [&] { return !session.request.free && answer.full(); });
    const auto search = [&](EntryRows& entry) {
        for (const FieldCrossing& c : crossingsOf(&entry.in, slot, query, book))
            entry.rows.emplace_back(c.entry, crossingRow(c));
    };
    const Problem problem = walk.shared(*session.record, search, [&](const EntryRows& entry) {
        for (const auto& [time, row] : entry.rows) {
            FieldCrossing c;
            c.entry = numberAt(crossingColumns(), row, "entry");
            c.exit = numberAt(crossingColumns(), row, "exit");
            c.sunlit = textAt(crossingColumns(), row, "light") == "sunlit";
            all.push_back(c);
            if (session.request.free)
                continue;
            answer.use({nameOf(entry.in, slot), entry.in.mjdep[slot]});
            answer.add(time, row);
        }
    });
    if (session.request.free)
        for (const FreeInterval& interval : freeIntervals(query, all))
            answer.add(interval.from, freeRow(interval));
    channels.err(walk.missing());
    return problem;
}
