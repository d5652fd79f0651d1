// Transits, occultations and flares.

#include "astro/angles.h"
#include "cli/entry_walk.h"
#include "cli/tasks.h"
#include "engine/aos_list.h"
#include "engine/flares.h"
#include "engine/pass_search.h"
#include "engine/position.h"
#include "engine/sun_moon_transit.h"
#include "record/numbers.h"
#include "record/text.h"
#include "scan/entry_lines.h"
#include "scan/iridium_scan.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

constexpr int primeSlot = 0;
constexpr int hit = 1;  // of nextpass
constexpr double defaultDistanceKm = 50.0;
constexpr int transitTextRoom = 64;

/// Width, duration and direction of a transit of the Sun or Moon.
struct Crossing
{
    std::optional<double> halfWidthKm, seconds, angleDeg;
    bool reached = true;  // by the transit zone
};

/// Packs degrees into the hours or degrees that the record holds.
void setPlace(WinpData& in, const Angles& place)
{
    in.occra = DegFDms(place.first / 15.0);
    in.occdec = DegFDms(place.second);
}

/// The record for one kind of event, as its command in the window sets it.
void setKind(WinpData& in, const std::string& kind, const Request& request)
{
    in.maxdst = request.maxDistance.value_or(defaultDistanceKm);
    if (kind == "sun" || kind == "moon") {
        in.occflg = kind == "sun" ? 1 : 2;
        in.maxdst = request.maxDistance.value_or(0.0);
    } else if (kind == "place") {
        in.occflg = 3;
        in.yrepoch = 2000.0;
        setPlace(in, *request.place);
    } else if (request.normal) {
        in.flarflg = 1;
        in.flarmod = 2;
        in.yrepoch = 2000.0;
        setPlace(in, *request.normal);
    } else {
        in.flarflg = 1;
        in.flarmod = 1;
        in.occra = request.mirror->first;
        in.occdec = request.mirror->second;
    }
    chooseEventKind(&in);
}

Crossing crossingOf(WinpData& in, const Pass& event, bool automatic)
{
    Crossing crossing;
    int result = hit;
    char text[transitTextRoom] = {};
    SunMoonTr(&in, event.tm[1], primeSlot, event.b[2], automatic, result, text);
    crossing.reached = result == hit;
    std::string figures(fieldText(text));
    for (char& c : figures)
        if ((c < '0' || c > '9') && c != '.' && c != '-')
            c = ' ';
    double numbers[3] = {};
    if (numbersOf(QString::fromStdString(figures).simplified().toStdString(), 3, numbers) == 3) {
        crossing.halfWidthKm = numbers[0];
        crossing.seconds = numbers[1];
        crossing.angleDeg = numbers[2];
    }
    return crossing;
}

Value orNone(const std::optional<double>& x)
{
    return x ? Value(*x) : Value();
}

const char* surfaceOf(const WinpData& in)
{
    if (in.irsolp)
        return "solar panel";
    return in.occra < 0.0 ? "left mirror" : in.occra > 0.0 ? "right mirror" : "front mirror";
}

/// One event, with its ground point at the same instant.
Row eventRow(WinpData& in, const std::string& kind, const Pass& event, const Crossing& crossing)
{
    const bool iridium = in.iridflg == event::iridium;
    const std::string surface = iridium ? surfaceOf(in) : "";
    GetSatPos(event.tm[1], &in, satpos, primeSlot, 0);
    const bool onGround = satpos->occlat[primeSlot] < anglesOnly;
    const SatelliteName name = nameOf(in, primeSlot);
    return {name.name,
            name.number,
            name.designator.empty() ? Value() : Value(name.designator),
            kind,
            Instant{event.tm[1]},
            event.b[1],
            event.a[1],
            iridium ? Value() : Value(event.b[2]),
            orNone(crossing.halfWidthKm),
            orNone(crossing.seconds),
            orNone(crossing.angleDeg),
            iridium ? Value(event.b[2]) : Value(),
            iridium ? Value(surface) : Value(),
            onGround ? Value(satpos->occlat[primeSlot]) : Value(),
            onGround ? Value(satpos->occlng[primeSlot]) : Value()};
}

const char* kindName(const std::string& kind)
{
    constexpr std::array names{std::pair{"sun", "Sun transit"}, std::pair{"moon", "Moon transit"},
                               std::pair{"place", "occultation"}, std::pair{"flare", "flare"}};
    for (const auto& [word, name] : names)
        if (kind == word)
            return name;
    return "mirror flare";
}

/// The events of the satellite in the prime slot.
std::vector<std::pair<double, Row>> eventsOf(WinpData& in, const Session& session, const std::string& kind,
                                             bool automatic)
{
    std::vector<std::pair<double, Row>> rows;
    double t = session.from;
    Pass pass;
    while (t <= session.to) {
        const int result = nextpass(&in, primeSlot, t, session.to, pass.tm, pass.a, pass.b);
        if (result == 0)
            break;
        if (result == hit) {
            const Crossing crossing = transitsOfDisk(in) ? crossingOf(in, pass, automatic) : Crossing();
            if (crossing.reached)
                rows.emplace_back(pass.tm[1], eventRow(in, kindName(kind), pass, crossing));
        }
        const double next = timeAfterPass(in, primeSlot, pass);
        if (!(next > t))  // a time too far off for steps of a minute
            break;
        t = next;
    }
    return rows;
}

void handOver(const WinpData& in, const std::vector<std::pair<double, Row>>& rows, Answer& answer)
{
    if (!rows.empty())
        answer.use({nameOf(in, primeSlot), in.mjdep[primeSlot]});
    for (const auto& [time, row] : rows)
        answer.add(time, row);
}

/// One kind over all wanted satellites; entries are shared among the threads where they do not depend on each other.
Problem findKind(const WinpData& record, const std::string& kind, const Session& session, EntryWalk& walk,
                 Answer& answer)
{
    const auto in = std::make_unique<WinpData>(record);
    const bool automatic = automaticWidth(*in);
    if (automatic)
        in->maxdst = automaticWidthKm;
    if (in->occflg == 1 && in->iridflg == event::transit)
        in->sunel = anySunElevationDeg;
    if (!EntrySearch::entriesIndependent(*in))
        return walk.oneByOne(*in,
                             [&](WinpData& one) { handOver(one, eventsOf(one, session, kind, automatic), answer); });
    const auto search = [&](EntryRows& entry) { entry.rows = eventsOf(entry.in, session, kind, automatic); };
    return walk.shared(*in, search, [&](const EntryRows& entry) { handOver(entry.in, entry.rows, answer); });
}

/// The flares of three mirrors, and then those of the solar panels.
Problem findMirrorFlares(const Session& session, EntryWalk& walk, Answer& answer)
{
    const auto in = std::make_unique<WinpData>(*session.record);
    IridiumSearch search(in.get());
    for (const bool panels : {false, true}) {
        search.accept(session.request.maxMagnitude.value_or(in->irmag), false, panels);
        in->irsolp = panels;
        if (const Problem problem = findKind(*in, "iridium", session, walk, answer))
            return problem;
    }
    return {};
}

}  // namespace

Problem findEvents(const Session& session, const Channels& channels, Answer& answer)
{
    std::vector<std::string> kinds = session.request.kinds;
    if (kinds.empty())
        kinds = {"sun", "moon"};
    EntryWalk walk(session, channels, [&] { return answer.full(); });
    Problem problem;
    for (const std::string& kind : kinds) {
        const auto in = std::make_unique<WinpData>(*session.record);
        if (kind == "iridium") {
            problem = findMirrorFlares(session, walk, answer);
        } else {
            setKind(*in, kind, session.request);
            problem = findKind(*in, kind, session, walk, answer);
        }
        if (problem)
            return problem;
    }
    channels.err(walk.missing());
    return {};
}
