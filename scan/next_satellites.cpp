#include "scan/next_satellites.h"

#include "elements/element_file.h"
#include "engine/pass_search.h"
#include "record/clock.h"
#include "record/files.h"
#include "record/progress.h"
#include "record/slot_copy.h"
#include "record/text.h"
#include "record/winp_data.h"
#include "scan/entries.h"
#include "scan/entry_task.h"
#include "scan/records_before.h"
#include "scan/workers.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <utility>

namespace {

constexpr double windowDays = 0.1;
constexpr double leastLeadDays = 0.0018;

/// Whether the search for a pass depends on the elements and the time alone, and not on the slot: events are measured
/// for the prime satellite only.
bool anySlotServes(const WinpData& in)
{
    return in.iridflg == event::plain && in.occflg == 0 && in.flarflg == 0 && !in.eclflg;
}

/// The start of the pass of slot `isat` that begins soon after `t`; nothing if there is none.
std::optional<double> soonStart(WinpData* in, int isat, double t, const HorizonLine* horizon)
{
    PassQuery query{in, satpos, isat};
    query.limits.horizon = horizon;
    Pass pass;
    if (findNextPass(query, t, t + windowDays, pass) == 0 || !(pass.tm[0] > t + leastLeadDays))
        return std::nullopt;
    return pass.tm[0];
}

/// The satellites kept so far: start times of their passes, parallel to the slots.
class Candidates
{
public:
    Candidates(WinpData* record, const HorizonLine* horizon) : in(record), line(horizon) {}

    void tryEntry(double t);
    void sortSlots();
    int count() const { return kept; }

    /// The slot where an entry stands that is tried now.
    int trialSlot() const { return slot; }

    /// The entry in the trial slot has this pass; the parked slot holds what was there before, and the work slot of
    /// `read` the entry as it was read.
    void decide(std::optional<double> passStart, const WinpData& read);

private:
    void takeOver(double passStart, const WinpData& read);

    WinpData* in;
    const HorizonLine* line;
    std::array<double, maxSatellites> start{};
    int kept = 0;
    int slot = 0;  // where the next entry is tried
};

/// The entry in the work slot, for a pass that starts soon after `t`.
void Candidates::tryEntry(double t)
{
    ShiftElm(in, parkedSlot, slot);
    ShiftElm(in, slot, workSlot);
    decide(soonStart(in, slot, t, line), *in);
}

void Candidates::decide(std::optional<double> passStart, const WinpData& read)
{
    if (!passStart) {
        ShiftElm(in, slot, parkedSlot);
    } else if (kept < maxSatellites) {
        start[kept++] = *passStart;
        slot = std::min(kept, maxSatellites - 1);
    } else {
        takeOver(*passStart, read);
    }
}

/// With a full table the latest one gives way to an earlier one; its slot may be that of the trial itself.
void Candidates::takeOver(double passStart, const WinpData& read)
{
    const int latest = static_cast<int>(std::max_element(start.begin(), start.end()) - start.begin());
    if (!(start[latest] > passStart)) {
        ShiftElm(in, slot, parkedSlot);
        return;
    }
    start[latest] = passStart;
    if (latest == slot)
        return;
    copySlot(in, latest, read, workSlot);
    ShiftElm(in, slot, parkedSlot);
}

void Candidates::sortSlots()
{
    for (int first = 0; first + 1 < kept; ++first) {
        const auto begin = start.begin();
        const int earliest = static_cast<int>(std::min_element(begin + first, begin + kept) - begin);
        if (earliest == first)
            continue;
        std::swap(start[first], start[earliest]);
        ShiftElm(in, workSlot, first);
        ShiftElm(in, first, earliest);
        ShiftElm(in, earliest, workSlot);
    }
}

void tryOneByOne(Entries& entries, Candidates& candidates, double t)
{
    while (entries.next())
        candidates.tryEntry(t);
}

/// The searches run in the parked slot of records of their own, the choice in the order of the file.
void tryShared(WinpData* in, Entries& entries, Candidates& candidates, double t, const HorizonLine* horizon)
{
    using PassStart = std::optional<double>;
    const auto search = [&](WinpData* own) { return soonStart(own, parkedSlot, t, horizon); };
    const auto choose = [&](const PassStart& passStart, const WinpData& searched) {
        const int slot = candidates.trialSlot();
        ShiftElm(in, parkedSlot, slot);
        copySlot(in, slot, searched, parkedSlot);
        candidates.decide(passStart, searched);
    };
    shareEntries<PassStart>(entries, in, parkedSlot, search, choose);
}

}  // namespace

int nextSatellites(WinpData* in, double t, const HorizonLine* horizon)
{
    const FilePtr elements = openElementFile(in->tlename);
    if (!elements)
        return -1;
    const LongCalculation calculation;
    const auto before = std::make_unique<RecordsBefore>(*in);
    const int selectedBefore = in->satn;
    in->rlm = 0;
    in->satn = 1;
    Candidates candidates(in, horizon);
    Entries entries(in, elements.get());
    if (anySlotServes(*in))
        tryShared(in, entries, candidates, t, horizon);
    else
        tryOneByOne(entries, candidates, t);
    if (calculationEnded()) {
        before->putBack(in);
        return calculationCancelled;
    }
    candidates.sortSlots();
    in->satn = candidates.count() > 0 ? candidates.count() : selectedBefore;
    in->prs = 0;
    return candidates.count();
}

int Nxt4Pass(WinpData* in, const HorizonLine* horizon)
{
    return nextSatellites(in, RT_MJD(in), horizon);
}
