// The record of the searches to be timed: Vienna on 2018-01-20 at 0h UTC, with the catalogue of those days.
#pragma once

#include <memory>

#include "app/record/text.h"
#include "app/record/winp_data.h"

inline std::unique_ptr<WinpData> viennaRecord()
{
    auto in = std::make_unique<WinpData>();
    setDefaults(in.get());
    in->lat = 48.2;
    in->lng = 16.37;
    in->height = 180.0;
    in->year = 2018;
    in->month = 1;
    in->day = 20;
    in->mjd = 58138.0;
    assignField(in->tlename, TEST_DATA "/elements/catalogue_2018.txt");
    return in;
}
