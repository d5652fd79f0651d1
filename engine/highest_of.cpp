#include "engine/highest_of.h"

#include <algorithm>

namespace {

constexpr std::size_t mostCandidates = 256;

}  // namespace

void HighestOf::add(double t, double least, double most, const Find& find)
{
    if (most < greatestLeast)
        return;
    greatestLeast = std::max(greatestLeast, least);
    candidates.push_back({t, least, most});
    if (candidates.size() < mostCandidates)
        return;
    dropLower();
    if (2 * candidates.size() > mostCandidates)
        instant(find);
}

void HighestOf::dropLower()
{
    std::erase_if(candidates, [&](const Candidate& c) { return c.most < greatestLeast; });
}

double HighestOf::instant(const Find& find)
{
    dropLower();
    if (candidates.size() == 1)
        return candidates.front().t;
    for (Candidate& c : candidates) {
        if (c.most < greatestLeast || c.least == c.most)
            continue;
        c.least = c.most = find(c.t);
        greatestLeast = std::max(greatestLeast, c.least);
    }
    const auto highest = std::max_element(candidates.begin(), candidates.end(),
                                          [](const Candidate& a, const Candidate& b) { return a.least < b.least; });
    candidates = {*highest};
    return candidates.front().t;
}
