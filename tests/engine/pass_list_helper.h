// The lists of tests/data/passes: passes found by another program.
#pragma once

#include <string>
#include <vector>

#include "engine/aos_list.h"
#include "engine/record_helper.h"

struct ReferenceList
{
    std::string what;
    Site site;
    int norad = 0;
    double satel = 0;
    double sunLimit = 0;
    int lit = 0;
    std::vector<Pass> passes;
};

/// The lists of passes of satellites of visual_2018.txt.
std::vector<ReferenceList> referenceLists();

/// The record of a list, with its satellite in slot 0, from 2018-01-20 0h UTC on for 3.1 days.
WinpData recordOf(const ReferenceList& list);
