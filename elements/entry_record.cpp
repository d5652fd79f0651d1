#include "elements/entry_record.h"

#include "astro/calendar.h"
#include "astro/earth.h"
#include "astro/two_body.h"
#include "elements/characters.h"
#include "engine/epoch_state.h"
#include "orbit/mean_motion.h"
#include "record/numbers.h"
#include "record/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <string_view>

namespace {
constexpr int byName = 0;  // `srcmd`
constexpr int keplerType = 9;
constexpr double gmEarthKm3PerS2 = 398600.4415;
constexpr double lowestMeanMotion = 1e-30;
constexpr double lowOrbitRevPerDay = 16.088;
constexpr double lowOrbitOldestDays = 7.0;
constexpr int recentRevolutions = 100;
constexpr int recentSlowRevolutions = 10;
constexpr double slowRevPerDay = 4.0;
constexpr double iridiumLeastKm = 7150.0, iridiumGreatestKm = 7159.9;

int modelOf(const Entry& entry)
{
    return entry.stateVector || entry.ephemerisType == keplerType ? 0 : 1;
}

Vec3 vectorOf(const double (&x)[3])
{
    return {x[0], x[1], x[2]};
}

double epochOf(const Entry& entry)
{
    return mjd(truncToInt(entry.day), 1, entry.year, 24.0 * frac(entry.day));
}

Elements writtenElements(const Entry& entry)
{
    Elements e;
    e.epoch = epochOf(entry);
    e.ra = entry.ra;
    e.aper = entry.aper;
    e.inc = entry.inc;
    e.ecc = entry.ecc;
    e.m0 = entry.m0;
    e.n0 = entry.n0;
    e.ndot = entry.ndot;
    e.n6dot = entry.n6dot;
    e.bstar = entry.bstar;
    return e;
}

Elements osculatingElements(const Entry& entry)
{
    Elements e;
    e.epoch = epochOf(entry);
    double t0 = 0;
    oscelm(gmEarthKm3PerS2, e.epoch, vectorOf(entry.r) * 0.001, vectorOf(entry.v) * 0.001, t0, e.m0, e.a, e.ecc, e.ra,
           e.aper, e.inc);
    e.n0 = e.ecc < 1 ? getn0(e.a, e.ecc, e.inc) : (1 - e.ecc) * e.a;
    return e;
}

bool areFinite(const Elements& e)
{
    const std::array elements{e.m0, e.a, e.ecc, e.ra, e.aper, e.inc, e.n0};
    return std::all_of(elements.begin(), elements.end(), [](double x) { return std::isfinite(x); });
}

/// Semi-major axis, its change and the heights.
void deriveSize(EntryOrbit& orbit, const Entry& entry)
{
    Elements& e = orbit.elements;
    const double n = orbit.n = std::max(e.n0, lowestMeanMotion);
    if (e.ecc < 1) {
        e.a = getsax(modelOf(entry), n, e.ecc, e.inc);
        const double change = -4.0 / 3.0 * e.a / n * e.ndot;
        e.adot = !entry.stateVector && std::isfinite(change) ? change : 0.0;
        orbit.perigee = e.a * (1 - e.ecc) - earthRadiusKm;
        orbit.apogee = e.a * (1 + e.ecc) - earthRadiusKm;
    } else {
        e.a = e.ecc > 1 ? n / (1 - e.ecc) : 1.0;
    }
}

void storeHeading(WinpData* in, const Entry& entry, char (&epoch)[40])
{
    in->norad[workSlot] = entry.number;
    assignField(in->ldraw, fieldText(entry.designator));
    convldsn(in, true);
    assignField(in->ldsn[workSlot], fieldText(in->ldfull));
    cnvepch(in, entry.year, entry.day, epoch);
}

void storeDrag(WinpData* in, const Entry& entry)
{
    constexpr int k = workSlot;
    in->numflg[k] = entry.stateVector ? 1 : 0;
    in->aflg[k] = modelOf(entry);
    in->ndot[k] = entry.ndot;
    in->n6dot[k] = entry.n6dot;
    in->bstar[k] = entry.bstar;
}

void storeState(WinpData* in, const Entry& entry)
{
    constexpr int k = workSlot;
    const StateVector state{in->mjdep[k], vectorOf(entry.r), vectorOf(entry.v)};
    putEpochState(state, *in, k);
    putCurrentState(state, *in, k);
    in->F107[k] = entry.F107;
    in->FB107[k] = entry.FB107;
    in->Kp[k] = entry.Kp;
    in->Cd[k] = entry.Cd;
    in->Cr[k] = entry.Cr;
    in->Am[k] = entry.Am;
    in->deltv[k] = in->yaw[k] = in->pitch[k] = 0;
    in->ionf[k] = false;
    in->suns[k] = true;
    in->epu[k] = false;
}

void storeAngles(WinpData* in, const Elements& e)
{
    constexpr int k = workSlot;
    in->ra[k] = e.ra;
    in->aper[k] = e.aper;
    in->m0[k] = e.m0;
    in->n0[k] = e.n0;
}

/// What of an entry was read goes into the work slot, also of one that is not taken in the end.
void storeParts(WinpData* in, const Entry& entry, const EntryOrbit& orbit, char (&epoch)[40])
{
    storeHeading(in, entry, epoch);
    if (entry.readTo >= EntryPart::drag)
        storeDrag(in, entry);
    if (entry.readTo < EntryPart::whole)
        return;
    if (entry.stateVector)
        storeState(in, entry);
    storeAngles(in, orbit.elements);
}

bool passesFilters(const WinpData& in, const Entry& entry, double n)
{
    if (in.lowflg == 1 && (n < lowOrbitRevPerDay || in.mjd - in.mjdep[workSlot] > lowOrbitOldestDays))
        return false;
    if (in.recflg != 1 || entry.revolution == 0)
        return true;
    return entry.revolution < (n < slowRevPerDay ? recentSlowRevolutions : recentRevolutions);
}

/// The element adjustment: the satellite runs on the simple Keplerian model from here on.
void adjust(WinpData* in, Elements& e)
{
    constexpr int k = workSlot;
    in->mjdep[k] -= in->adjtim / 86400.0;
    const bool bandOnly = in->iridflg == event::iridium && in->ops;
    const bool inBand = e.a >= iridiumLeastKm && e.a <= iridiumGreatestKm;
    if (in->adjn0 != 0 && (!bandOnly || inBand)) {
        in->n0[k] = in->adjn0;
        e.a = getsax(0, in->adjn0, e.ecc, e.inc);
    }
    in->aflg[k] = 0;
    in->adot[k] = in->ndot[k] = in->n6dot[k] = 0;
    in->ra[k] += in->adjra;
}

void finishName(WinpData* in)
{
    auto& name = in->fsname[workSlot];
    assignField(name, beforeLineEnd(fieldText(name)));
    if (in->srcmd != byName && (fieldText(name).empty() || fieldText(name) == " "))
        assignField(name, fieldText(in->ldfull));
}

void describeEllipse(TextWriter& text, const WinpData& in, const Entry& entry, const EntryOrbit& orbit)
{
    text.addFormatted("\nMean Anomaly\t: %8.4lf", in.m0[workSlot]);
    text.addFormatted("\n\nEccentricity\t: %9.7lf", orbit.elements.ecc);
    text.addFormatted("\nSemi-Major Axis a\t: %10.3lf km", orbit.elements.a);
    text.addFormatted("\nChange in a\t: %10.3lf km/day", in.adot[workSlot]);
    text.addFormatted("\nPerigee\t\t: %10.3lf km", orbit.perigee);
    text.addFormatted("\nApogee\t\t: %10.3lf km", orbit.apogee);
    if (entry.revolution > 0)
        text.addFormatted("\n\nRevolution at Epoch: %i", entry.revolution);
    else
        text.add("\n");
    text.addFormatted("\nRevolutions per day: %12.8lf", orbit.n);
    if (std::abs(orbit.n) > 0.001)
        text.addFormatted0("\n\nPeriod (min):%10.2lf", 1440.0 / orbit.n);
}

void describeOpenOrbit(TextWriter& text, const WinpData& in, const EntryOrbit& orbit)
{
    text.addFormatted("\n\nEccentricity\t: %8.5lf", orbit.elements.ecc);
    text.addFormatted("\nSemi-Major Axis a\t: %10.3lf km", orbit.elements.a);
    text.addFormatted("\nPerigee Distance q\t:%11.3lf km", in.n0[workSlot]);
}

void describe(const WinpData& in, const Entry& entry, const EntryOrbit& orbit, std::string_view epoch, char* out)
{
    TextWriter text(out, entryTextRoom);
    text.add(fieldText(in.fsname[workSlot])).add("\n================================");
    text.addFormatted("\nNORAD#\t\t:%6i\nInt.Launch#\t: ", in.norad[workSlot]);
    text.add(fieldText(in.ldsn[workSlot])).add("\n\nEpoch\t: ").add(epoch);
    text.addFormatted("\n\nInclination\t: %8.4lf", orbit.elements.inc);
    text.addFormatted("\nRight Ascension\t: %8.4lf", in.ra[workSlot]);
    text.addFormatted("\nArg. of Perigee\t: %8.4lf", in.aper[workSlot]);
    if (orbit.elements.ecc < 1)
        describeEllipse(text, in, entry, orbit);
    else
        describeOpenOrbit(text, in, orbit);
    if (entry.stateVector)
        text.add("\n+++ Numeric Propagation +++");
}

void describeRefusal(WinpData* in, const Entry& entry, char* out)
{
    TextWriter text(out, entryTextRoom);
    finishName(in);
    text.add(fieldText(in->fsname[workSlot])).add("\n================================");
    text.addFormatted("\nNORAD#\t\t:%6i\nInt.Launch#\t: ", in->norad[workSlot]);
    text.add(fieldText(in->ldsn[workSlot])).add("\n\n+++ Not used: ").add(fieldText(entry.refusal)).add(" +++");
}
}  // namespace

EntryOrbit entryOrbit(const Entry& entry)
{
    EntryOrbit orbit;
    orbit.elements = entry.stateVector ? osculatingElements(entry) : writtenElements(entry);
    orbit.finite = !entry.stateVector || areFinite(orbit.elements);
    if (orbit.finite)
        deriveSize(orbit, entry);
    return orbit;
}

Orbit orbitOf(const Entry& entry)
{
    const auto in = std::make_unique<WinpData>();
    setDefaults(in.get());
    takeName(in.get(), entry);
    const EntryOrbit orbit = entryOrbit(entry);
    char epoch[40];
    storeParts(in.get(), entry, orbit, epoch);
    finishName(in.get());
    putElements(orbit.elements, *in, workSlot);
    return orbitOf(*in, workSlot);
}

bool takeEntry(WinpData* in, const Entry& entry, char* out)
{
    out[0] = '\0';
    if (entry.readTo == EntryPart::none)
        return false;
    char epoch[40] = {};
    EntryOrbit orbit = entry.readTo == EntryPart::whole ? entryOrbit(entry) : EntryOrbit();
    storeParts(in, entry, orbit, epoch);
    if (entry.refusal[0] != '\0')
        describeRefusal(in, entry, out);
    if (entry.readTo != EntryPart::whole || entry.refusal[0] != '\0' || !orbit.finite)
        return false;
    in->adot[workSlot] = orbit.elements.adot;
    if (!passesFilters(*in, entry, orbit.n))
        return false;
    if (in->adjflg && !entry.stateVector)
        adjust(in, orbit.elements);
    finishName(in);
    in->a[workSlot] = orbit.elements.a;
    in->inc[workSlot] = orbit.elements.inc;
    in->ecc[workSlot] = orbit.elements.ecc;
    describe(*in, entry, orbit, epoch, out);
    if (!entry.stateVector)
        EpochState(in, workSlot, true);
    return true;
}

void takeName(WinpData* in, const Entry& entry)
{
    auto& name = in->fsname[workSlot];
    constexpr std::size_t columns = sizeof name - 1;
    const std::string_view whole = fieldText(entry.name);
    std::string shown(wholeCharacters(whole, columns));
    if (whole.size() > columns)
        shown.resize(columns, ' ');  // in place of half a character
    assignField(name, shown);
}

void convldsn(WinpData* in, bool tofull)
{
    if (tofull && in->ldraw[0] == ' ') {
        assignField(in->ldfull, "           ");
    } else if (tofull) {
        assignField(in->ldfull, fullDesignator(fieldText(in->ldraw)));
    } else {
        char raw[9] = {};
        std::copy_n(in->ldfull + 2, 2, raw);
        std::copy_n(in->ldfull + 5, 6, raw + 2);
        std::replace(raw, raw + 8, '\0', ' ');
        assignField(in->ldraw, raw);
    }
}

void cnvepch(WinpData* in, int year, double day, char* out)
{
    in->mjdep[workSlot] = mjd(truncToInt(day), 1, year, 24.0 * frac(day));
    int dayOfMonth = 0, month = 0, hour = 0, minute = 0;
    double hours = 0, seconds = 0;
    caldat(in->mjdep[workSlot], dayOfMonth, month, year, hours);
    dms(hours, hour, minute, seconds);
    char name[4];
    GetMonth(month, name);
    TextWriter(out, 40).addFormatted("%2i-%s-%4i   %2i:%2i:%2i", dayOfMonth, name, year, hour, minute,
                                     truncToInt(seconds + 0.5));
}
