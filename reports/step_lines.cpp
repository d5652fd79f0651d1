#include "reports/step_lines.h"

#include "engine/satpos_data.h"
#include "record/numbers.h"
#include "record/text.h"
#include "record/wout_data.h"

bool groundPointWanted(const WinpData& in)
{
    return in.occflg >= 1 || (in.flarflg >= 1 && in.flarmod >= 1);
}

void addStepTime(TextWriter& line, const WinpData& in, double t, std::size_t characters)
{
    char stamp[reportLineBytes] = {};
    aosstr(t + in.tzone / 24.0, 0.0, 0.0, stamp, 0);
    line.add(fieldText(stamp).substr(0, characters));
}

void addSubPoint(TextWriter& line, int slot)
{
    line.addFormatted("    %10.5lf  %10.5lf  %12.3lf", satpos->lng[slot], satpos->lat[slot], satpos->hgt[slot]);
}

void addGroundPoint(TextWriter& line, int slot)
{
    line.addFormatted("   %10.5lf  %10.5lf ", satpos->occlng[slot], satpos->occlat[slot]);
}
