#include "scan/matching.h"

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/earth.h"
#include "astro/frames.h"
#include "astro/mat3.h"
#include "elements/element_file.h"
#include "engine/clamped_values.h"
#include "engine/event_geometry.h"
#include "engine/lazy_position.h"
#include "engine/pass_bounds.h"
#include "engine/pass_search.h"
#include "engine/position.h"
#include "engine/report_lines.h"
#include "engine/sky_bounds.h"
#include "record/files.h"
#include "record/numbers.h"
#include "record/progress.h"
#include "record/text.h"
#include "record/winp_data.h"
#include "record/wout_data.h"
#include "scan/entries.h"
#include "scan/records_before.h"
#include "scan/workers.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <memory>
#include <numbers>
#include <optional>
#include <string>
#include <string_view>

namespace {

constexpr int mostMatches = 50;
constexpr double cosDirectionLimit = 0.7071067811865476;  // 45 degrees
constexpr double brighterRevPerDay = 2.5;
constexpr std::string_view brighterPieces = "ABDE";  // not C
constexpr double movingTargetMinutes = 2.0;          // beyond this the sky turns away under an R.A.
constexpr int stepsPerRenewal = 60;
constexpr unsigned stepsPerTelling = 64;  // the listener is asked so rarely
constexpr double secondStepDays = 1.1574074074074073e-5;
constexpr double longStepDays = 1.5e-5;  // beyond this a moving target is renewed at each step
constexpr double slowRevPerDay = 2.0;
constexpr double roundOrbitEcc = 0.1;
constexpr double minutesPerDay = 1440.0;

/// The slot in which each entry is tried. It follows the selected satellites; with ten of these the last one is
/// parked for the time of the search, and so is the match that fills the list.
class TrialSlot
{
public:
    explicit TrialSlot(WinpData* record) : in(record), kept(record->satn), full(record->satn >= maxSatellites)
    {
        if (full)
            ShiftElm(in, parkedSlot, maxSatellites - 1);
        else
            ++in->satn;
        slot = in->satn - 1;
    }
    ~TrialSlot()
    {
        if (full)
            ShiftElm(in, slot, parkedSlot);
        in->satn = kept;
    }
    TrialSlot(const TrialSlot&) = delete;
    TrialSlot& operator=(const TrialSlot&) = delete;

    int index() const { return slot; }

    /// The satellite in the slot joins the selection.
    void keep()
    {
        if (full)
            return;
        ShiftElm(in, parkedSlot, slot);
        kept = in->satn;
        full = in->satn >= maxSatellites;
        if (!full)
            slot = in->satn++;
    }

private:
    WinpData* in;
    int kept;  // number of satellites to keep
    int slot = 0;
    bool full;
};

/// The first of two sightings.
SkyEntry firstEntry(const WinpData& in)
{
    return {in.az1, in.el1, in.az1flg == 1};
}

/// A direction of the sky, radians.
struct SkyPoint
{
    double azimuth, elevation;
};

/// The place of a sighting in the sky, and how a satellite may miss it.
class Sought
{
public:
    explicit Sought(WinpData* record);

    /// A satellite comes to a slot.
    void begin(int satelliteSlot);
    /// Whether it fulfils at `t` what is left of the sighting, or of the two.
    bool met(double t, double step);
    /// Leaves the records as after the instant of the last `met`.
    void finish();
    double from() const { return in->mjd - halfWidth; }
    double until() const { return in->mjd + halfWidth; }
    bool spanWasCut() const { return spanCut; }

private:
    void firstSighting();
    void secondSighting(double t);
    void place(double t) { toHorizontal(entry, *in, t, eqeq, azimuth, elevation); }
    void renew(double t, double step);
    bool settledFar(double t);
    bool near(double t, double step);
    SkyPoint look(double t);
    bool belowZenithLimit() const { return directionCounts(elevation, in->mxa); }

    WinpData* in;
    SkyEntry entry;  // the sighting under way
    std::unique_ptr<SatPosData> found = std::make_unique<SatPosData>();
    int slot = workSlot;
    std::optional<LazyPosition> position;  // of the satellite; none where the whole position leaves more than itself
    std::optional<PassBounds> bounds;
    SkyBounds sky;
    double farFrom = 1.0, farUntil = 0.0;  // MJD: in between the satellite is not near
    double left = 0.0, leftStep = 0.0;     // an instant that was settled, or NaN
    double halfWidth = 0.0;                // of the search, days
    bool spanCut = false;
    double eqeq = 0.0;
    double azimuth = 0.0, elevation = 0.0;  // radians
    double cosLimit = 1.0;
    double direction = 0.0;  // radians, up to pi
    bool useDirection = false;
    bool moving = false;
    int stepsSinceRenewal = 0;
    bool firstMet = false;
};

Sought::Sought(WinpData* record) : in(record), entry(record->odm ? firstEntry(*record) : matchCentre(*record))
{
    const double minutes = in->odm ? std::max(in->tm, in->deltm / 60.0) : in->tm;
    const double wanted = 2.0 * minutes / minutesPerDay;
    halfWidth = clampedSpan(wanted) / 2.0;
    spanCut = clampedSpan(wanted) != wanted;
    nutmat(julcent(clamped(in->mjd, limitDays)), eqeq, false);
    place(in->mjd);
    moving = (in->odm ? in->az1flg : in->rdf) && minutes > movingTargetMinutes;
    useDirection = in->drf && !in->odm && belowZenithLimit();
    cosLimit = std::cos(radPerDeg * in->mxa);
    direction = radPerDeg * in->dra;
    if (direction > std::numbers::pi)
        direction -= twoPi;
}

/// Whether azimuth and elevation are all that a look at the satellite gives, and the orbit does not go on from it.
bool directionsSuffice(const WinpData& in, int slot)
{
    return in.occflg == 0 && in.flarflg == 0 && in.iridflg == event::plain && !in.eclflg && !in.numflg[slot];
}

void Sought::begin(int satelliteSlot)
{
    slot = satelliteSlot;
    position.reset();
    bounds.reset();
    farUntil = farFrom - 1.0;
    left = std::numeric_limits<double>::quiet_NaN();
    if (directionsSuffice(*in, slot)) {
        position.emplace(in, found.get(), slot);
        bounds.emplace(*in, slot, 1.0, 0.0);
    }
    if (in->odm)
        firstSighting();
}

/// Before each satellite of a search with two sightings.
void Sought::firstSighting()
{
    entry = firstEntry(*in);
    place(in->mjd);
    firstMet = false;
}

void Sought::secondSighting(double t)
{
    entry = {in->az2, in->el2, in->az2flg == 1};
    place(t);
    firstMet = true;
    farUntil = farFrom - 1.0;
}

/// Brings a moving target to its place in the sky at `t`: it counts as right ascension and declination,
/// whatever the present one of two sightings is.
void Sought::renew(double t, double step)
{
    const bool due = stepsSinceRenewal == 0 || step > longStepDays;
    stepsSinceRenewal = (stepsSinceRenewal + 1) % stepsPerRenewal;
    if (!moving || !due)
        return;
    toHorizontal({entry.first, entry.second, true}, *in, t, eqeq, azimuth, elevation);
    farUntil = farFrom - 1.0;
    if (in->drf)
        useDirection = belowZenithLimit();
}

SkyPoint Sought::look(double t)
{
    if (position)
        position->look(t);
    else
        absolutePosition(t, in, found.get(), slot);
    return {radPerDeg * found->az[slot], radPerDeg * found->el[slot]};
}

/// Whether bounds tell that the satellite is not near.
bool Sought::settledFar(double t)
{
    if (!position || (t >= farFrom && t <= farUntil))
        return position.has_value();
    const double days = sky.staysOutside(azimuth, elevation, std::acos(cosLimit), t, *bounds);
    farFrom = t - days;
    farUntil = t + days;
    return days > 0.0;
}

bool Sought::near(double t, double step)
{
    leftStep = step;
    left = t;
    if (settledFar(t))
        return false;
    left = std::numeric_limits<double>::quiet_NaN();
    const SkyPoint now = look(t);
    if (position && !(bounds->reachesTo() >= t)) {
        bounds->anchor(position->scene());
        sky = SkyBounds(position->scene());
    }
    const SkyPoint then = in->drf ? look(t + step) : now;
    return mtchok(cosLimit, azimuth, elevation, now.azimuth, now.elevation, direction, useDirection, then.azimuth,
                  then.elevation) != 0;
}

void Sought::finish()
{
    if (std::isnan(left))
        return;
    absolutePosition(left, in, found.get(), slot);
    if (in->drf)
        absolutePosition(left + leftStep, in, found.get(), slot);
}

bool Sought::met(double t, double step)
{
    renew(t, step);
    if (!near(t, step))
        return false;
    if (!in->odm || firstMet)
        return true;
    secondSighting(t);
    return false;
}

double searchStep(const WinpData& in, int slot)
{
    return in.n0[slot] < slowRevPerDay && in.ecc[slot] < roundOrbitEcc ? oneMinuteDays : secondStepDays;
}

bool matches(WinpData* in, Sought& sought, int slot)
{
    sought.begin(slot);
    Pass pass;
    if (findNextPass({in, satpos, slot, limitsOf(*in), in->iridflg, true}, sought.from(), sought.until(), pass) == 0)
        return false;
    if (in->vis && !isBrighter(*in, slot))
        return false;
    const double step = searchStep(*in, slot);
    unsigned steps = 0;
    const auto told = [&](double t) {
        return steps++ % stepsPerTelling != 0 || tellProgress(fieldText(in->fsname[slot]), t);
    };
    for (double t = pass.tm[0]; t <= pass.tm[2] && told(t); t += step) {
        if (sought.met(t, step))
            return true;
        if (!(t + step > t))
            break;
    }
    sought.finish();
    return false;
}

void putMatch(WoutData* out, const WinpData& in, int slot)
{
    char text[128];
    PutSpace(out);
    TextWriter name(text);
    name.addFormatted(" NORAD#:%6i  Int.Launch#: ", in.norad[slot]);
    name.add(fieldText(in.ldraw)).add("  ").add(fieldText(in.fsname[slot]));
    PutNxtLnT(out, std::string(name.text()).c_str());
    const double perigee = in.a[slot] * (1.0 - in.ecc[slot]) - earthRadiusKm;
    const double apogee = in.a[slot] * (1.0 + in.ecc[slot]) - earthRadiusKm;
    formatted(text, " Incl.: %8.4lf   Perigee: %10.3lf km  Apogee: %10.3lf km", in.inc[slot], perigee, apogee);
    PutNxtLnT(out, text);
}

/// What a search counts.
struct Tally
{
    long checked = 0;
    int matches = 0;
};

Tally searchFile(WinpData* in, WoutData* out, std::FILE* elements, Sought& sought)
{
    Tally tally;
    TrialSlot trial(in);
    for (Entries entries(in, elements); tally.matches < mostMatches && entries.next();) {
        ShiftElm(in, trial.index(), workSlot);
        ++tally.checked;
        if (!matches(in, sought, trial.index()))
            continue;
        ++tally.matches;
        putMatch(out, *in, trial.index());
        trial.keep();
    }
    return tally;
}

void putTally(WoutData* out, const WinpData& in, const Tally& tally)
{
    if (tally.matches > 0) {
        putLines(out, {"", ""});
    } else {
        out->nlines = 0;
        putLines(out, {"", " *** No matches found on TLE file ***", in.tlename, "", "", ""});
    }
    char text[128];
    formatted(text, " Number of satellites checked: %ld", tally.checked);
    PutNxtLn(out, text);
    formatted(text, " Number of possible matches  : %i", tally.matches);
    PutNxtLn(out, text);
    if (tally.matches >= mostMatches)
        PutNxtLn(out, " *** Output buffer full. More matches possible ***");
}

}  // namespace

bool isBrighter(const WinpData& in, int slot)
{
    return in.n0[slot] >= brighterRevPerDay && in.ldsn[slot][9] == ' ' &&
           brighterPieces.find(in.ldsn[slot][8]) != std::string_view::npos;
}

int SatMatch(WinpData* in, WoutData* out)
{
    out->nlines = 0;
    const FilePtr elements = openElementFile(in->tlename);
    if (!elements) {
        putLines(out,
                 {"", " *** Unable to open TLE file ***", in->tlename, "", " Select a valid TLE file first.", ""});
        return 1;
    }
    putLines(out, {"", (" Possible matches on TLE-file: " + std::string(fieldText(in->tlename))).c_str(), ""});
    const LongCalculation calculation;
    const auto before = std::make_unique<RecordsBefore>(*in);
    Sought sought(in);
    const Tally tally = searchFile(in, out, elements.get(), sought);
    if (calculationEnded()) {
        before->putBack(in);
        out->nlines = 0;
        return calculationCancelled;
    }
    putTally(out, *in, tally);
    if (sought.spanWasCut())
        putLines(out, {" *** Time interval held to 100000 days ***"});
    return 0;
}

bool directionCounts(double elevation, double radiusDeg)
{
    constexpr double zenithLimitDeg = 89.1;
    return degPerRad * elevation + radiusDeg <= zenithLimitDeg;
}

int mtchok(double cosmax, double ta, double te, double a1, double e1, double dir, int useDir, double a2, double e2)
{
    const double cosDistance = std::sin(te) * std::sin(e1) + std::cos(te) * std::cos(e1) * std::cos(ta - a1);
    if (!(cosDistance > cosmax))
        return 0;
    if (!useDir)
        return 1;
    const double c = std::sin(e1) * std::sin(e2) + std::cos(e1) * std::cos(e2) * std::cos(a2 - a1);
    const double s = 1.0 - c * c > 0.0 ? std::sqrt(1.0 - c * c) : 0.0;
    const double w = std::cos(e1) * s;
    if (!(std::abs(w) > 1e-50))
        return 1;
    const double x = (std::sin(e2) - c * std::sin(e1)) / w;
    if (std::abs(x) > 1.0)
        return 1;
    const double bearing = std::sin(a2 - a1) < 0.0 ? -std::acos(x) : std::acos(x);
    const Vec3 up(0, 0, 1);
    return dot(mxvct(xrot(bearing), up), mxvct(xrot(dir), up)) >= cosDirectionLimit;
}
