// The report that a search leaves, as lines.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "record/wout_data.h"

inline std::vector<std::string> reportLines(const WoutData& out)
{
    std::vector<std::string> lines;
    lines.reserve(static_cast<std::size_t>(out.nlines));
    for (int k = 0; k < out.nlines; ++k)
        lines.emplace_back(lineText(out, k));
    return lines;
}
