#include "reports/orbit_track.h"

#include "engine/pass_search.h"
#include "engine/position.h"
#include "engine/report_lines.h"
#include "record/clock.h"
#include "record/files.h"
#include "record/numbers.h"
#include "reports/step_lines.h"

#include <string>

namespace {

constexpr int lineRoom = 512;  // holds a field of any double
constexpr std::size_t dateAndSeconds = 16;

void writeHeading(const WinpData& in)
{
    char text[lineRoom];
    TextWriter heading(text);
    heading.addFormatted("\n Year: %4i  +++> Timezone %g <+++\n", in.year, in.tzone);
    if (addHeldSpan(heading, in))
        heading.add("\n");
    heading.add(std::string(21, ' '));
    heading.add(groundPointWanted(in) ? " Ctr.Line  long.    lat.\n" : "\n").add("\n");
    std::fputs(text, outptr);
}

void writeStep(WinpData* in, double t)
{
    GetSatPos(t, in, satpos, in->prs, 0);
    char text[lineRoom];
    TextWriter line(text);
    addStepTime(line, *in, t, dateAndSeconds);
    if (groundPointWanted(*in)) {
        addGroundPoint(line, in->prs);
        if (satpos->occlat[in->prs] >= noGroundPoint)
            line.add("  No Intersection");
    } else {
        addSubPoint(line, in->prs);
    }
    line.add("\n");
    std::fputs(text, outptr);
}

}  // namespace

int saveOrbitTrack(WinpData* in)
{
    const ReportFile file(in->savename, "w");
    if (!file)
        return 1;
    writeHeading(*in);
    double t = startMjd(in);
    const double end = t + heldSpan(in->dur);
    while (t < end) {
        writeStep(in, t);
        const double next = t + in->tmstep;
        if (!(next > t))
            break;
        t = next;
    }
    return 0;
}
