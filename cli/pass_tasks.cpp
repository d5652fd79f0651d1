// Passes, contacts, and what rises next.

#include "cli/bright_passes.h"
#include "cli/entry_walk.h"
#include "cli/tasks.h"
#include "engine/aos_list.h"
#include "engine/pass_search.h"
#include "record/slot_copy.h"
#include "reports/list_rows.h"

#include <array>
#include <functional>
#include <memory>
#include <optional>

namespace {

constexpr int primeSlot = 0, otherSlot = 1;
constexpr double secondsPerDay = 86400.0;
constexpr double leastLeadDays = 0.0018;  // what begins sooner has begun, for one who asks what comes next

bool longEnough(const Pass& pass, const Request& request)
{
    return (pass.tm[2] - pass.tm[0]) * secondsPerDay >= request.minDuration;
}

/// Calls `take` for each pass of the prime slot in the interval until it returns false.
void eachPass(WinpData& in, const Session& session, const std::function<bool(const Pass&)>& take)
{
    PassQuery query{&in, satpos, primeSlot};
    query.thorough = session.request.thorough;
    query.limits.horizon = session.horizon.get();
    double t = session.from;
    while (t <= session.to) {
        Pass pass;
        if (findNextPass(query, t, session.to, pass) == 0)
            return;
        if (longEnough(pass, session.request) && !take(pass))
            return;
        const double next = timeAfterPass(query, pass);
        if (!(next > t))  // a time too far off for steps of a minute
            return;
        t = next;
    }
}

void handOver(const EntryRows& entry, Answer& answer)
{
    if (entry.rows.empty())
        return;
    answer.use({nameOf(entry.in, primeSlot), entry.in.mjdep[primeSlot]});
    for (const auto& [time, row] : entry.rows)
        answer.add(time, row);
}

/// The passes of all wanted satellites that `take` makes rows of.
Problem searchPasses(const Session& session, const Channels& channels, Answer& answer,
                     const std::function<void(EntryRows&)>& search)
{
    EntryWalk walk(session, channels, [&] { return answer.full(); });
    const Problem problem =
        walk.shared(*session.record, search, [&](const EntryRows& entry) { handOver(entry, answer); });
    channels.err(walk.missing());
    return problem;
}

/// The two satellites of a request, in the first two slots.
Problem findPair(const Session& session, const Channels& channels, WinpData& pair)
{
    std::array<bool, 2> found{};
    std::array<Wanted, 2> wanted{Wanted({session.request.satellites[0]}), Wanted({session.request.satellites[1]})};
    EntryWalk walk(session, channels, [&] { return found[0] && found[1]; });
    const Problem problem = walk.oneByOne(*session.record, [&](const WinpData& in) {
        for (int slot : {primeSlot, otherSlot}) {
            if (found[slot] || !wanted[slot].fits(nameOf(in, primeSlot)))
                continue;
            copySlot(&pair, slot, in, primeSlot);
            found[slot] = true;
        }
    });
    if (problem)
        return problem;
    channels.err(walk.missing());
    return {found[0] && found[1] ? status::found : status::nothingFound, {}};
}

}  // namespace

Problem findPasses(const Session& session, const Channels& channels, Answer& answer)
{
    BrightPasses bright(session);
    bright.tellUnread(channels);
    const Problem problem = searchPasses(session, channels, answer, [&](EntryRows& entry) {
        eachPass(entry.in, session, [&](const Pass& pass) {
            if (session.request.wantsBrightness())
                bright.take(entry, pass);
            else
                entry.rows.emplace_back(pass.tm[0], passRowOf(entry.in, primeSlot, pass));
            return true;
        });
    });
    bright.tellLeftOut(channels);
    return problem;
}

Problem findNext(const Session& session, const Channels& channels, Answer& answer)
{
    return searchPasses(session, channels, answer, [&](EntryRows& entry) {
        eachPass(entry.in, session, [&](const Pass& pass) {
            if (pass.tm[0] > session.from + leastLeadDays)
                entry.rows.emplace_back(pass.tm[0], passRowOf(entry.in, primeSlot, pass));
            return entry.rows.empty();
        });
    });
}

Problem findContacts(const Session& session, const Channels& channels, Answer& answer)
{
    const auto in = std::make_unique<WinpData>(*session.record);
    if (const Problem problem = findPair(session, channels, *in))
        return problem;
    in->satn = 2;
    in->prs = primeSlot;
    in->rlm = 1;
    in->sgpsat = noSlot;
    for (const int slot : {primeSlot, otherSlot})
        answer.use({nameOf(*in, slot), in->mjdep[slot]}, true);
    eachPass(*in, session, [&](const Pass& pass) {
        answer.add(pass.tm[0], contactRow(*in, primeSlot, otherSlot, pass));
        return !answer.full();
    });
    return {};
}
