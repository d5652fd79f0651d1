// The record of the searches to be timed: Vienna on 2018-01-20 at 0h UTC, with the catalogue of those days.
#pragma once

#include <memory>

#include "record/text.h"
#include "record_fields.h"

inline std::unique_ptr<WinpData> viennaRecord()
{
    auto in = std::make_unique<WinpData>();
    setDefaults(in.get());
    setFields(*in, "lat=48.2 lng=16.37 height=180 year=2018 month=1 day=20 mjd=58138");
    assignField(in->tlename, TEST_DATA "/elements/catalogue_2018.txt");
    return in;
}
