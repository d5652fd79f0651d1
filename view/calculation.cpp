#include "view/calculation.h"

#include "engine/position.h"
#include "record/progress.h"
#include "record/slot_copy.h"
#include "record/wout_data.h"
#include "scan/records_before.h"
#include "view/message_boxes.h"

#include <cmath>
#include <memory>

namespace {

constexpr double farDays = 1.0;

bool anyFarFrom(double t)
{
    for (int slot = 0; slot < indata->satn; ++slot)
        if (indata->numflg[slot] && !(std::abs(t - indata->cstm[slot]) <= farDays))
            return true;
    return false;
}

/// Flies on a copy, without events and a second satellite.
bool flown(WinpData* copy, double t)
{
    const LongCalculation calculation;
    const auto positions = std::make_unique<SatPosData>();
    copy->iridflg = event::plain;
    copy->rlm = copy->occflg = copy->flarflg = 0;
    for (int slot = 0; slot < copy->satn; ++slot)
        if (copy->numflg[slot])
            GetSatPos(t, copy, positions.get(), slot, 0);
    return !calculationEnded();
}

}  // namespace

bool calculated(const std::function<void()>& work)
{
    const WaitCursor wait;
    const LongCalculation calculation;
    const auto before = std::make_unique<RecordsBefore>(*indata);
    const auto shown = std::make_unique<SatPosData>(*satps);
    const auto text = std::make_unique<WoutData>(*outdata);
    work();
    if (!calculationEnded())
        return true;
    before->putBack(indata);
    *satps = *shown;
    *outdata = *text;
    return false;
}

bool flownAhead(double t)
{
    if (!anyFarFrom(t))
        return true;
    const WaitCursor wait;
    const auto copy = std::make_unique<WinpData>(*indata);
    if (!flown(copy.get(), t))
        return false;
    for (int slot = 0; slot < indata->satn; ++slot)
        if (indata->numflg[slot])
            copySlot(indata, slot, *copy, slot);
    indata->moondst = copy->moondst;
    return true;
}
