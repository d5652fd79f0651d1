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

bool addHeldSpan(TextWriter& heading, const WinpData& in)
{
    const double held = heldSpan(in.dur);
    if (held == in.dur)
        return false;
    heading.addFormatted(" *** Time span held to %g days ***", held);
    return true;
}
