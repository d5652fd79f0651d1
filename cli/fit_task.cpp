// Elements fitted to observations.

#include "cli/entry_walk.h"
#include "cli/report_files.h"
#include "cli/tasks.h"
#include "elements/writer.h"
#include "exports/rows.h"
#include "observing/fit_words.h"
#include "observing/initial_orbit.h"
#include "observing/observation_list.h"
#include "observing/station.h"
#include "record/text.h"
#include "reports/list_rows.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>

namespace {

constexpr int primeSlot = 0;

/// The observations of the satellite that have a position, each with its place.
std::vector<SitedObservation> sited(const Session& session, const Channels& channels, const WinpData& in,
                                    const std::vector<Observation>& observations)
{
    const Site own = siteOf(in);
    std::vector<SitedObservation> wanted;
    for (const Observation& o : observations) {
        const bool same = o.number == 0 || o.number == in.norad[primeSlot];
        if (o.angles == SkyAngles::none || !same)
            continue;
        const bool given = session.request.site || !session.request.siteName.empty();
        const auto known = given ? std::optional(own) : siteOfStation(o.station);
        if (!known)
            channels.err("vorlix: the place of station " + std::to_string(o.station) +
                         " is not known; the observer's place is taken\n");
        wanted.push_back({o, known.value_or(own)});
    }
    return wanted;
}

FitRequest requestOf(const Session& session, const WinpData& in)
{
    FitRequest request;
    request.start = orbitOf(in, primeSlot);
    request.earth = earthOrientationOf(in);
    request.againstStars = !session.request.geometric;
    for (std::size_t k = 0; k < elementWords.size(); ++k)
        request.free[k] =
            std::count(session.request.hold.begin(), session.request.hold.end(), elementWords[k].name) == 0;
    return request;
}

std::string twoLines(WinpData in, const Orbit& orbit)
{
    putElements(orbit.elements, in, primeSlot);
    char* buffer = nullptr;
    std::size_t size = 0;
    FilePtr file(::open_memstream(&buffer, &size));
    if (file)
        writeTwoLines(file.get(), &in, primeSlot);
    file.reset();
    std::string text(buffer ? buffer : "", size);
    std::free(buffer);
    return text;
}

Problem fitAndAnswer(const Session& session, const Channels& channels, const WinpData& in, const FitRequest& request,
                     const std::vector<SitedObservation>& wanted, Answer& answer)
{
    const FitResult fit = fitElements(request, wanted);
    if (!fit.complaint.empty())
        return {status::nothingFound, "vorlix: no fit: " + fit.complaint};
    if (!fit.converged)
        return {status::nothingFound, "vorlix: no fit: the corrections come to no end"};
    channels.err(fitSummary(request, fit));
    answer.use({nameOf(in, primeSlot), fit.orbit.elements.epoch}, true);
    if (session.request.form == ListForm::tle)
        answer.addText(0.0, twoLines(in, fit.orbit));
    else
        for (std::size_t i = 0; i < wanted.size(); ++i)
            answer.add(wanted[i].observation.mjd, residualRow(wanted[i].observation, fit.residuals[i]));
    return {};
}

Problem fitOne(const Session& session, const Channels& channels, const WinpData& in,
               const std::vector<Observation>& observations, Answer& answer)
{
    const std::vector<SitedObservation> wanted = sited(session, channels, in, observations);
    if (!in.aflg[primeSlot])
        return {status::unreadable, "vorlix: only elements of SGP4 can be fitted"};
    return fitAndAnswer(session, channels, in, requestOf(session, in), wanted, answer);
}

/// The satellite of the first observation, without elements.
void nameAfter(const Observation& o, WinpData& in)
{
    in.norad[primeSlot] = o.number;
    assignField(in.fsname[primeSlot], "New");
    assignField(in.ldsn[primeSlot], o.designator);
}

Problem fitFromNothing(const Session& session, const Channels& channels, const std::vector<Observation>& observations,
                       Answer& answer)
{
    WinpData& in = *session.record;
    if (!observations.empty())
        nameAfter(observations.front(), in);
    const std::vector<SitedObservation> wanted = sited(session, channels, in, observations);
    FitRequest request = requestOf(session, in);
    const InitialOrbit first = initialOrbit(request, wanted);
    if (!first.complaint.empty())
        return {status::nothingFound, "vorlix: no first orbit: " + first.complaint};
    request.start = first.orbit;
    return fitAndAnswer(session, channels, in, request, wanted, answer);
}

}  // namespace

Problem fitOrbits(const Session& session, const Channels& channels, Answer& answer)
{
    std::vector<Observation> observations;
    if (const Problem problem = readReportFiles(session, channels, observations))
        return problem;
    if (session.request.initial)
        return fitFromNothing(session, channels, observations, answer);
    bool done = false;
    Problem fitting;
    EntryWalk walk(session, channels, [&] { return done; });
    const Problem problem = walk.oneByOne(*session.record, [&](WinpData& in) {
        if (!done)
            fitting = fitOne(session, channels, in, observations, answer);
        done = true;
    });
    channels.err(walk.missing());
    return problem ? problem : fitting;
}
