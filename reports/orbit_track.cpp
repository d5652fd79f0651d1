#include "reports/orbit_track.h"

#include "engine/pass_search.h"
#include "engine/position.h"
#include "engine/report_lines.h"
#include "record/clock.h"
#include "record/files.h"
#include "record/numbers.h"
#include "record/progress.h"
#include "record/text.h"
#include "reports/save_forms.h"
#include "reports/step_lines.h"
#include "scan/records_before.h"

#include <cmath>
#include <memory>
#include <string>

namespace {

constexpr int lineRoom = 512;  // holds a field of any double
constexpr std::size_t dateAndSeconds = 16;

std::string headingOf(const WinpData& in)
{
    char text[lineRoom];
    TextWriter heading(text);
    heading.addFormatted("\n Year: %4i  +++> Timezone %g <+++\n", in.year, in.tzone);
    if (addSpanNote(heading, in))
        heading.add("\n");
    heading.add(std::string(21, ' '));
    heading.add(groundPointWanted(in) ? " Ctr.Line  long.    lat.\n" : "\n").add("\n");
    return text;
}

std::string stepAt(double t, WinpData* in)
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
    return text;
}

/// Heading and lines; cut short where the listener ends it.
std::string trackOf(WinpData* in)
{
    std::string track = headingOf(*in);
    double t = startMjd(in);
    const double end = t + clampedSpan(in->dur);
    while (t < end && tellProgress(fieldText(in->fsname[in->prs]), t)) {
        track += stepAt(t, in);
        const double next = t + in->tmstep;
        if (!(next > t))
            break;
        t = next;
    }
    return track;
}

}  // namespace

double trackLines(const WinpData& in)
{
    const double span = clampedSpan(in.dur);
    const double t = startMjd(&in);
    if (!(t < t + span))
        return 0;
    return t + in.tmstep > t ? std::ceil(span / in.tmstep) : 1;
}

int saveOrbitTrack(WinpData* in, std::string* why)
{
    if (!mayBeWritten(in->savename, why) || trackLines(*in) > mostTrackLines)
        return 1;
    const LongCalculation calculation;
    const auto before = std::make_unique<RecordsBefore>(*in);
    const auto form = formOfName(fieldText(in->savename));
    const std::string track = form ? trackText(in, *form) : trackOf(in);
    if (calculationEnded()) {
        before->putBack(in);
        return calculationCancelled;
    }
    if (form && track.empty()) {
        if (why)
            *why = "The list does not fit into a file of this form";
        return 1;
    }
    const std::string reason = replaceFile(in->savename, track);
    if (why)
        *why = reason;
    return reason.empty() ? 0 : 1;
}
