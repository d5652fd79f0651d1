// Compiled for processors with AVX2, in which a register holds four numbers; see CMakeLists.txt. An optimising compiler
// makes nothing here that other files share and that a processor without it might meet.
#include "orbit/sgp4_lanes.h"

std::size_t propagateSeriesAvx2(gravconsttype whichconst, elsetrec& sat, std::span<const double> tsince,
                                std::span<Sgp4State> states, ModelForm form)
{
    return propagateSeries(whichconst, sat, tsince, states, form);
}
