#include <algorithm>

#include "orbit/sgp4.h"
#include "orbit/sgp4_lanes.h"

namespace {

bool processorHasAvx2()
{
#if defined(__x86_64__)
    return __builtin_cpu_supports("avx2");
#else
    return false;
#endif
}

}  // namespace

void sgp4Series(gravconsttype whichconst, elsetrec& sat, std::span<const double> tsince, std::span<Sgp4State> states,
                ModelForm form)
{
    const std::size_t count = std::min(tsince.size(), states.size());
    const auto propagateMost = processorHasAvx2() ? propagateSeriesAvx2 : propagateSeries;
    for (std::size_t i = propagateMost(whichconst, sat, tsince.first(count), states.first(count), form); i < count;
         ++i)
        states[i].error = sgp4(whichconst, sat, tsince[i], states[i].r, states[i].v, form);
}
