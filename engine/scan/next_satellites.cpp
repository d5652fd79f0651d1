#include "engine/scan/next_satellites.h"

#include "app/record/clock.h"
#include "app/record/files.h"
#include "app/record/winp_data.h"
#include "elements/element_file.h"
#include "engine/pass_search.h"
#include "engine/scan/entries.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr double windowDays = 0.1;
constexpr double leastLeadDays = 0.0018;

/// The satellites kept so far: start times of their passes, parallel to the slots.
class Candidates
{
public:
    explicit Candidates(WinpData* record) : in(record) {}

    void tryEntry(double t);
    void sortSlots();
    int count() const { return kept; }

private:
    void takeOver(double passStart);

    WinpData* in;
    std::array<double, maxSatellites> start{};
    int kept = 0;
    int slot = 0;  // where the next entry is tried
};

/// The entry in the work slot, for a pass that starts soon after `t`.
void Candidates::tryEntry(double t)
{
    ShiftElm(in, parkedSlot, slot);
    ShiftElm(in, slot, workSlot);
    double tm[3] = {};
    double a[3] = {};
    double b[3] = {};
    if (nextpass(in, slot, t, t + windowDays, tm, a, b) == 0 || !(tm[0] > t + leastLeadDays)) {
        ShiftElm(in, slot, parkedSlot);
    } else if (kept < maxSatellites) {
        start[kept++] = tm[0];
        slot = std::min(kept, maxSatellites - 1);
    } else {
        takeOver(tm[0]);
    }
}

/// With a full table the latest one gives way to an earlier one; its slot may be that of the trial itself.
void Candidates::takeOver(double passStart)
{
    const int latest = static_cast<int>(std::max_element(start.begin(), start.end()) - start.begin());
    if (!(start[latest] > passStart)) {
        ShiftElm(in, slot, parkedSlot);
        return;
    }
    start[latest] = passStart;
    if (latest == slot)
        return;
    ShiftElm(in, latest, workSlot);
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

}  // namespace

int nextSatellites(WinpData* in, double t)
{
    const FilePtr elements = openElementFile(in->tlename);
    if (!elements)
        return -1;
    const int selectedBefore = in->satn;
    in->rlm = 0;
    in->satn = 1;
    Candidates candidates(in);
    for (Entries entries(in, elements.get()); entries.next();)
        candidates.tryEntry(t);
    candidates.sortSlots();
    in->satn = candidates.count() > 0 ? candidates.count() : selectedBefore;
    in->prs = 0;
    return candidates.count();
}

int Nxt4Pass(WinpData* in)
{
    return nextSatellites(in, RT_MJD(in));
}
