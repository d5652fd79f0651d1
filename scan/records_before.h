// What a cancelled scan leaves behind: the records as they were before it.
#pragma once

#include "engine/satpos_data.h"
#include "record/winp_data.h"

/// Holds the records while a scan works on them.
class RecordsBefore
{
public:
    explicit RecordsBefore(const WinpData& in) : record(in), positions(*satpos) {}

    /// Undoes all that the scan did to `in` and `satpos`. The model of SGP4 is loaded anew when it is needed next.
    void putBack(WinpData* in) const
    {
        *in = record;
        in->sgpsat = noSlot;
        *satpos = positions;
    }

private:
    WinpData record;
    SatPosData positions;
};
