#include "engine/report_lines.h"

#include "engine/pass_search.h"
#include "record/numbers.h"
#include "record/winp_data.h"
#include "record/wout_data.h"

void putLines(WoutData* out, std::initializer_list<const char*> lines)
{
    for (const char* line : lines) {
        if (*line)
            PutNxtLn(out, line);
        else
            PutSpace(out);
    }
}

bool addSpanNote(TextWriter& heading, const WinpData& in)
{
    const double days = clampedSpan(in.dur);
    if (days == in.dur)
        return false;
    heading.addFormatted(" *** Time span held to %g days ***", days);
    return true;
}
