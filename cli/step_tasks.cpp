// Lists of instants: places in the sky, sub-satellite points, states; and what is up at one instant.

#include "cli/entry_walk.h"
#include "cli/tasks.h"
#include "engine/pass_search.h"
#include "engine/position.h"
#include "exports/ephemeris_form.h"
#include "exports/geo_form.h"
#include "orbit/conversions.h"
#include "reports/list_rows.h"

#include <array>
#include <cmath>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int primeSlot = 0;
constexpr double secondsPerDay = 86400.0;
constexpr double stepRounding = 1e-9;  // of a step: the last one may miss the end by so much

/// The number of instants from the start of the interval to its end.
long long stepsOf(const Session& session)
{
    const double steps = (session.to - session.from) * secondsPerDay / session.request.step;
    return static_cast<long long>(std::floor(steps + stepRounding)) + 1;
}

double instantAt(const Session& session, long long step)
{
    return session.from + static_cast<double>(step) * session.request.step / secondsPerDay;
}

void eachInstant(const Session& session, const Answer& answer, const std::function<void(double)>& take)
{
    const long long steps = stepsOf(session);
    for (long long i = 0; i < steps && !answer.full(); ++i)
        take(instantAt(session, i));
}

struct FrameWords
{
    const char* word;
    frame::Code code;
    const char* registered;  // in the register of frames of the ephemeris standard
};
constexpr std::array frames{FrameWords{"true-of-date", frame::trueOfDate, "TOD_EARTH"},
                            FrameWords{"mean-of-date", frame::meanOfDate, "MOD_EARTH"},
                            FrameWords{"j2000", frame::j2000, "EME2000"},
                            FrameWords{"earth-fixed", frame::earthFixed, "GTOD"}};

const FrameWords& frameOf(const Session& session)
{
    std::size_t i = 0;
    while (i + 1 < frames.size() && session.request.frame != frames[i].word)
        ++i;
    return frames[i];
}

/// km and km/s.
EphemerisState stateAt(WinpData& in, const FrameWords& words, double t)
{
    GetSatPos(t, &in, satpos, primeSlot, 0);
    Vec3 r = satpos->rsat * 1000.0;
    Vec3 v = satpos->vsat * 1000.0;
    changeFrame(frame::trueOfDate, words.code, t, {}, r, v);
    r = r / 1000.0;
    v = v / 1000.0;
    return {t, {r[0], r[1], r[2]}, {v[0], v[1], v[2]}};
}

ListRow stateRow(const WinpData& in, const FrameWords& words, const EphemerisState& state)
{
    ListRow row = stepRow(in, primeSlot, state.mjd);
    row.emplace_back(std::string(words.word));
    for (const double x : state.r)
        row.emplace_back(x);
    for (const double x : state.v)
        row.emplace_back(x);
    return row;
}

/// The states of one satellite; from its state at epoch if they are found by numerical flight.
void tellStatesOf(WinpData& in, const Session& session, Answer& answer)
{
    const FrameWords& words = frameOf(session);
    const bool oem = session.request.form == ListForm::oem;
    if (session.request.numeric)
        in.numflg[primeSlot] = 1;
    if (oem) {
        const SatelliteName name = nameOf(in, primeSlot);
        answer.put(ephemerisHead({name.name, name.designator, words.registered, session.now, session.from,
                                  instantAt(session, stepsOf(session) - 1)}));
    }
    eachInstant(session, answer, [&](double t) {
        const EphemerisState state = stateAt(in, words, t);
        if (oem)
            answer.addText(t, ephemerisLine(state));
        else
            answer.add(t, stateRow(in, words, state));
    });
}

/// A track in one piece, for maps.
void addTrackLine(WinpData& in, const Session& session, Answer& answer)
{
    std::vector<GeoPoint> points;
    eachInstant(session, answer, [&](double t) {
        GetSatPos(t, &in, satpos, primeSlot, 0);
        points.push_back({satpos->lat[primeSlot], satpos->lng[primeSlot], satpos->hgt[primeSlot]});
    });
    const std::array columns{trackColumns()[0], trackColumns()[1], trackColumns()[2], ListColumn{"start", nullptr},
                             ListColumn{"end", nullptr}};
    ListRow row = stepRow(in, primeSlot, session.from);
    row.emplace_back(ListTime{instantAt(session, stepsOf(session) - 1)});
    answer.addText(session.from, geoLine(points, jsonObject(columns, row)));
}

/// Calls `take` for each wanted satellite, one after the other.
Problem eachSatellite(const Session& session, const Channels& channels, Answer& answer,
                      const std::function<void(WinpData&)>& take)
{
    EntryWalk walk(session, channels, [&] { return answer.full(); });
    const Problem problem = walk.oneByOne(*session.record, [&](WinpData& in) {
        answer.use({nameOf(in, primeSlot), in.mjdep[primeSlot]});
        take(in);
    });
    channels.err(walk.missing());
    return problem;
}

/// Whether only one satellite is wanted and there; an ephemeris file holds no more.
Problem checkSingle(const Session& session, const Channels& channels)
{
    int count = 0;
    EntryWalk walk(session, channels, [&] { return count > 1; });
    if (const Problem problem = walk.oneByOne(*session.record, [&](const WinpData&) { ++count; }))
        return problem;
    if (count > 1)
        return {status::wrongWords,
                "vorlix state: --format oem holds one satellite; expected --satellite that fits one"};
    return {};
}

}  // namespace

Problem lookAt(const Session& session, const Channels& channels, Answer& answer)
{
    return eachSatellite(session, channels, answer, [&](WinpData& in) {
        eachInstant(session, answer, [&](double t) {
            GetSatPos(t, &in, satpos, primeSlot, 0);
            answer.add(t, lookRow(in, primeSlot, t, session.request.frequency.value_or(0.0)));
        });
    });
}

Problem followTracks(const Session& session, const Channels& channels, Answer& answer)
{
    const bool lines = session.request.form == ListForm::geojson;
    return eachSatellite(session, channels, answer, [&](WinpData& in) {
        if (lines)
            return addTrackLine(in, session, answer);
        eachInstant(session, answer, [&](double t) {
            GetSatPos(t, &in, satpos, primeSlot, 0);
            answer.add(t, trackRow(in, primeSlot, t));
        });
    });
}

Problem tellStates(const Session& session, const Channels& channels, Answer& answer)
{
    if (session.request.form == ListForm::oem)
        if (const Problem problem = checkSingle(session, channels))
            return problem;
    return eachSatellite(session, channels, answer, [&](WinpData& in) { tellStatesOf(in, session, answer); });
}

Problem whatIsUp(const Session& session, const Channels& channels, Answer& answer)
{
    return eachSatellite(session, channels, answer, [&](WinpData& in) {
        GetSatPos(session.from, &in, satpos, primeSlot, 0);
        if (cksatok(&in, satpos, primeSlot))
            answer.add(session.from, lookRow(in, primeSlot, session.from, 0.0));
    });
}
