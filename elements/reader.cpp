#include "elements/reader.h"

#include "astro/calendar.h"
#include "astro/earth.h"
#include "astro/two_body.h"
#include "elements/catalogue_number.h"
#include "elements/exact_entry.h"
#include "engine/epoch_state.h"
#include "orbit/mean_motion.h"
#include "record/keep.h"
#include "record/numbers.h"
#include "record/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <string_view>
#include <tuple>

namespace {
constexpr int lineRoom = 80;                 // longer lines count as several
constexpr std::size_t longestNameLine = 59;  // a longer line with a 1 or 2 in front is an element line
constexpr std::size_t shortestEntryLine = 63;
constexpr std::size_t shortestLineWithRevolution = 68;
constexpr std::size_t nameLength = 20;
constexpr std::string_view noName = "                    ";
constexpr const char* stateMarker = "+++++STATEVCT1+++++";
constexpr int stateMarkerLength = 19;
constexpr int unknownRevolution = -1;
constexpr int keplerType = 9;  // ephemeris type of the simple model
constexpr int firstYearOfLastCentury = 57;

constexpr double gmEarthKm3PerS2 = 398600.4415;
constexpr double lowestMeanMotion = 1e-30;
constexpr double lowOrbitRevPerDay = 16.088;
constexpr double lowOrbitOldestDays = 7.0;
constexpr int recentRevolutions = 100;
constexpr int recentSlowRevolutions = 10;
constexpr double slowRevPerDay = 4.0;
constexpr double iridiumLeastKm = 7150.0, iridiumGreatestKm = 7159.9;

enum SearchMode
{
    byName = 0,
    byNumber = 1,
    byDesignator = 2
};

/// Name line of the next match, found ahead of time for the search that goes on.
char nextsat[nameLength + 1] = {};

bool nextLine(std::FILE* fp, char* line)
{
    return std::fgets(line, lineRoom, fp) != nullptr;
}

/// Columns count from 1; those behind the end of the line are missing.
std::string_view columns(std::string_view line, std::size_t first, std::size_t last)
{
    return line.size() < first ? std::string_view() : line.substr(first - 1, last - first + 1);
}

double decimal(std::string_view line, std::size_t first, std::size_t last)
{
    return Atof(columns(line, first, last));
}

int whole(std::string_view line, std::size_t first, std::size_t last)
{
    return wholeNumber(columns(line, first, last));
}

/// Six columns of mantissa behind an assumed point, two of a power of ten.
double exponentField(std::string_view line, std::size_t first)
{
    return whole(line, first, first + 5) * 1e-5 * std::pow(10.0, whole(line, first + 6, first + 7));
}

/// What a decoded entry has beside the fields of the record.
struct Entry
{
    bool stateVector = false;
    int revolution = unknownRevolution;
    char epoch[40] = {};  // date text
    double e = 0;
    double inc = 0;                      // degrees
    double n = 0;                        // rev/day; perigee distance in km for e >= 1
    double a = 0;                        // km
    double perigee = 1.0, apogee = 1.0;  // heights, km
    std::string refusal;                 // why a message is not taken
};

int numberOf(std::FILE* fp, std::string_view line)
{
    return isExactLine(fp, line) ? exactNumber(line) : catalogueNumber(columns(line, 3, 7));
}

void takeNumberAndDesignator(WinpData* in, std::FILE* fp, std::string_view line)
{
    in->norad[workSlot] = numberOf(fp, line);
    assignField(in->ldraw, columns(line, 10, 17));
    convldsn(in, true);
    assignField(in->ldsn[workSlot], fieldText(in->ldfull));
}

void takeEpoch(WinpData* in, std::string_view line, Entry& entry)
{
    const int year = whole(line, 19, 20);
    cnvepch(in, year < firstYearOfLastCentury ? 2000 + year : 1900 + year, decimal(line, 21, 32), entry.epoch);
}

double eccentricity(std::string_view line)
{
    if (columns(line, 28, 28) == ".")
        return decimal(line, 26, 33);
    char text[16];
    const std::string_view digits = columns(line, 27, 33);
    formatted(text, "0.%.*s", static_cast<int>(digits.size()), digits.data());
    return Atof(text);
}

void takeLineOne(WinpData* in, std::string_view line)
{
    in->numflg[workSlot] = 0;
    in->ndot[workSlot] = decimal(line, 34, 43);
    in->n6dot[workSlot] = exponentField(line, 45);
    in->bstar[workSlot] = exponentField(line, 54);
    in->aflg[workSlot] = columns(line, 63, 63) == "9" ? 0 : 1;
}

bool takeLineTwo(WinpData* in, std::string_view line, Entry& entry)
{
    if (line.substr(0, 1) != "2" || line.size() < shortestEntryLine)
        return false;
    entry.inc = decimal(line, 9, 16);
    in->ra[workSlot] = decimal(line, 18, 25);
    entry.e = eccentricity(line);
    in->aper[workSlot] = decimal(line, 35, 42);
    in->m0[workSlot] = decimal(line, 44, 51);
    in->n0[workSlot] = decimal(line, 53, 63);
    if (line.size() >= shortestLineWithRevolution)
        entry.revolution = whole(line, 64, 68);
    return true;
}

bool takeExact(WinpData* in, std::FILE* fp, Entry& entry)
{
    ExactEntry exact;
    if (!readExact(fp, exact))
        return false;
    entry.refusal = exact.refusal;
    cnvepch(in, exact.year, exact.day, entry.epoch);
    in->numflg[workSlot] = 0;
    in->ndot[workSlot] = exact.ndot;
    in->n6dot[workSlot] = exact.n6dot;
    in->bstar[workSlot] = exact.bstar;
    in->aflg[workSlot] = exact.ephemerisType == keplerType ? 0 : 1;
    in->ra[workSlot] = exact.ra;
    in->aper[workSlot] = exact.aper;
    in->m0[workSlot] = exact.m0;
    in->n0[workSlot] = exact.n0;
    entry.inc = exact.inc;
    entry.e = exact.ecc;
    entry.revolution = exact.revolution;
    return entry.refusal.empty();
}

/// Lines 2 to 4 of a state vector record.
struct StateLines
{
    std::array<double, 4> r{};  // metres, and the mark of the line
    std::array<double, 4> v{};  // metres per second, and the mark
    std::array<double, 6> force{};

    bool read(std::FILE* fp)
    {
        return Fscanf(fp, 4, r.data()) && Fscanf(fp, 4, v.data()) && Fscanf(fp, 6, force.data()) && !std::feof(fp);
    }
};

void takeState(WinpData* in, const StateLines& lines)
{
    constexpr int k = workSlot;
    in->epr0[k] = in->csr0[k] = lines.r[0];
    in->epr1[k] = in->csr1[k] = lines.r[1];
    in->epr2[k] = in->csr2[k] = lines.r[2];
    in->epv0[k] = in->csv0[k] = lines.v[0];
    in->epv1[k] = in->csv1[k] = lines.v[1];
    in->epv2[k] = in->csv2[k] = lines.v[2];
    in->cstm[k] = in->mjdep[k];
    in->F107[k] = lines.force[0];
    in->FB107[k] = lines.force[1];
    in->Kp[k] = lines.force[2];
    in->Cd[k] = lines.force[3];
    in->Cr[k] = lines.force[4];
    in->Am[k] = lines.force[5];
}

void clearModelAndThrust(WinpData* in)
{
    constexpr int k = workSlot;
    in->numflg[k] = 1;
    in->aflg[k] = 0;
    in->ndot[k] = in->n6dot[k] = in->bstar[k] = 0;
    in->deltv[k] = in->yaw[k] = in->pitch[k] = 0;
    in->ionf[k] = false;
    in->suns[k] = true;
    in->epu[k] = false;
}

/// Elements of the epoch state; false if they are no numbers, as those of a satellite at the centre of the Earth.
bool takeOsculating(WinpData* in, Entry& entry)
{
    constexpr int k = workSlot;
    const Vec3 r = Vec3{in->epr0[k], in->epr1[k], in->epr2[k]} * 0.001;
    const Vec3 v = Vec3{in->epv0[k], in->epv1[k], in->epv2[k]} * 0.001;
    double t0 = 0;
    oscelm(gmEarthKm3PerS2, in->mjdep[k], r, v, t0, in->m0[k], entry.a, entry.e, in->ra[k], in->aper[k], entry.inc);
    in->n0[k] = entry.e < 1 ? getn0(entry.a, entry.e, entry.inc) : (1 - entry.e) * entry.a;
    const std::array elements{in->m0[k], entry.a, entry.e, in->ra[k], in->aper[k], entry.inc, in->n0[k]};
    return std::all_of(elements.begin(), elements.end(), [](double x) { return std::isfinite(x); });
}

bool takeStateVector(WinpData* in, std::FILE* fp, std::string_view line, Entry& entry)
{
    entry.stateVector = true;
    const int revolution = whole(line, 34, 38);
    entry.revolution = revolution == 0 ? unknownRevolution : revolution;
    StateLines lines;
    if (!lines.read(fp))
        return false;
    takeState(in, lines);
    clearModelAndThrust(in);
    return takeOsculating(in, entry);
}

/// Semi-major axis, its change and the heights.
void deriveSize(WinpData* in, Entry& entry)
{
    entry.n = std::max(in->n0[workSlot], lowestMeanMotion);
    in->adot[workSlot] = 0;
    if (entry.e < 1) {
        entry.a = getsax(in->aflg[workSlot], entry.n, entry.e, entry.inc);
        const double change = -4.0 / 3.0 * entry.a / entry.n * in->ndot[workSlot];
        if (!entry.stateVector && std::isfinite(change))
            in->adot[workSlot] = change;
        entry.perigee = entry.a * (1 - entry.e) - earthRadiusKm;
        entry.apogee = entry.a * (1 + entry.e) - earthRadiusKm;
    } else {
        entry.a = entry.e > 1 ? entry.n / (1 - entry.e) : 1.0;
    }
}

bool passesFilters(const WinpData& in, const Entry& entry)
{
    if (in.lowflg == 1 && (entry.n < lowOrbitRevPerDay || in.mjd - in.mjdep[workSlot] > lowOrbitOldestDays))
        return false;
    if (in.recflg != 1 || entry.revolution == 0)
        return true;
    const int limit = entry.n < slowRevPerDay ? recentSlowRevolutions : recentRevolutions;
    return entry.revolution < limit;
}

/// The element adjustment: the satellite runs on the simple Keplerian model from here on.
void adjust(WinpData* in, Entry& entry)
{
    constexpr int k = workSlot;
    in->mjdep[k] -= in->adjtim / 86400.0;
    const bool bandOnly = in->iridflg == event::iridium && in->ops;
    const bool inBand = entry.a >= iridiumLeastKm && entry.a <= iridiumGreatestKm;
    if (in->adjn0 != 0 && (!bandOnly || inBand)) {
        in->n0[k] = in->adjn0;
        entry.a = getsax(0, in->adjn0, entry.e, entry.inc);
    }
    in->aflg[k] = 0;
    in->adot[k] = in->ndot[k] = in->n6dot[k] = 0;
    in->ra[k] += in->adjra;
}

void finishName(WinpData* in)
{
    char(&name)[nameLength + 1] = in->fsname[workSlot];
    assignField(name, beforeLineEnd(fieldText(name)));
    if (in->srcmd != byName && (fieldText(name).empty() || fieldText(name) == " "))
        assignField(name, fieldText(in->ldfull));
}

void describeEllipse(TextWriter& text, const WinpData& in, const Entry& entry)
{
    text.addFormatted("\nMean Anomaly\t: %8.4lf", in.m0[workSlot]);
    text.addFormatted("\n\nEccentricity\t: %9.7lf", entry.e);
    text.addFormatted("\nSemi-Major Axis a\t: %10.3lf km", entry.a);
    text.addFormatted("\nChange in a\t: %10.3lf km/day", in.adot[workSlot]);
    text.addFormatted("\nPerigee\t\t: %10.3lf km", entry.perigee);
    text.addFormatted("\nApogee\t\t: %10.3lf km", entry.apogee);
    if (entry.revolution > 0)
        text.addFormatted("\n\nRevolution at Epoch: %i", entry.revolution);
    else
        text.add("\n");
    text.addFormatted("\nRevolutions per day: %12.8lf", entry.n);
    if (std::abs(entry.n) > 0.001)
        text.addFormatted0("\n\nPeriod (min):%10.2lf", 1440.0 / entry.n);
}

void describeOpenOrbit(TextWriter& text, const WinpData& in, const Entry& entry)
{
    text.addFormatted("\n\nEccentricity\t: %8.5lf", entry.e);
    text.addFormatted("\nSemi-Major Axis a\t: %10.3lf km", entry.a);
    text.addFormatted("\nPerigee Distance q\t:%11.3lf km", in.n0[workSlot]);
}

void describe(const WinpData& in, const Entry& entry, char* out)
{
    TextWriter text(out, entryTextRoom);
    text.add(fieldText(in.fsname[workSlot])).add("\n================================");
    text.addFormatted("\nNORAD#\t\t:%6i\nInt.Launch#\t: ", in.norad[workSlot]);
    text.add(fieldText(in.ldsn[workSlot])).add("\n\nEpoch\t: ").add(entry.epoch);
    text.addFormatted("\n\nInclination\t: %8.4lf", entry.inc);
    text.addFormatted("\nRight Ascension\t: %8.4lf", in.ra[workSlot]);
    text.addFormatted("\nArg. of Perigee\t: %8.4lf", in.aper[workSlot]);
    if (entry.e < 1)
        describeEllipse(text, in, entry);
    else
        describeOpenOrbit(text, in, entry);
    if (entry.stateVector)
        text.add("\n+++ Numeric Propagation +++");
}

void describeRefusal(WinpData* in, const Entry& entry, char* out)
{
    TextWriter text(out, entryTextRoom);
    finishName(in);
    text.add(fieldText(in->fsname[workSlot])).add("\n================================");
    text.addFormatted("\nNORAD#\t\t:%6i\nInt.Launch#\t: ", in->norad[workSlot]);
    text.add(fieldText(in->ldsn[workSlot])).add("\n\n+++ Not used: ").add(entry.refusal).add(" +++");
}

/// Moves to line 1 if `line` is the name line.
bool reachLineOne(std::FILE* fp, char* line)
{
    if (line[0] == '1')
        return true;
    return nextLine(fp, line) && line[0] == '1';
}

bool isStateVector(std::string_view line)
{
    char mark[stateMarkerLength + 1];
    assignField(mark, columns(line, 40, 58));
    return Strncmpi(mark, stateMarker, stateMarkerLength) == 0;
}

bool decode(WinpData* in, std::FILE* fp, char* line, Entry& entry)
{
    if (!reachLineOne(fp, line) || std::string_view(line).size() < shortestEntryLine)
        return false;
    takeNumberAndDesignator(in, fp, line);
    if (isExactLine(fp, line))
        return takeExact(in, fp, entry);
    takeEpoch(in, line, entry);
    if (isStateVector(line))
        return takeStateVector(in, fp, line, entry);
    takeLineOne(in, line);
    return nextLine(fp, line) && takeLineTwo(in, line, entry);
}

/// One call of `tleread`.
class Search
{
public:
    Search(WinpData* record, std::FILE* file, char* report) : in(record), fp(file), out(report)
    {
        assignField(wanted, fieldText(in->cfgname[workSlot]));
        length = static_cast<int>(fieldText(wanted).size());
        everything = wanted[0] == '*';
    }

    bool takesEverything() const { return everything; }

    /// The first accepted entry from where the file stands.
    bool find(bool continued)
    {
        char line[lineRoom];
        int eof = 0;
        if (continued && in->srcmd == byName && nextLine(fp, line)) {
            assignField(in->fsname[workSlot], fieldText(nextsat));
            if (accepts(line, eof))
                return true;
        }
        while (nextLine(fp, line))
            if (fits(line) && accepts(line, eof))
                return true;
        return false;
    }

    bool moreFollow() const
    {
        if (everything)
            return anotherLine();
        return in->srcmd == byName && findNextName();
    }

    void reportFailure() const
    {
        TextWriter text(out, entryTextRoom);
        if (in->srcmd == byNumber)
            text.addFormatted("\n+++ No match found for NORAD# %i +++", in->norad[workSlot]);
        else
            text.add("\n+++ No match found for ").add(fieldText(wanted)).add(" +++");
        if (!refusal.empty())
            text.add("\n\n").add(refusal);
    }

private:
    bool accepts(char* line, int& eof)
    {
        if (gettle(in, fp, line, out, eof))
            return true;
        if (refusal.empty())
            refusal = out;
        return false;
    }

    bool fits(const char* line) const
    {
        const std::string_view text(line);
        if (text.size() <= longestNameLine || (line[0] != '1' && line[0] != '2'))
            return fitsName(line);
        if (line[0] == '2' || in->srcmd == byName)
            return false;
        return in->srcmd == byNumber ? everything || numberOf(fp, text) == in->norad[workSlot] : fitsDesignator(text);
    }

    /// A name is kept for the element lines behind it, whichever the mode.
    bool fitsName(const char* line) const
    {
        if (in->srcmd == byName && Strncmpi(wanted, line, length) != 0)
            return false;
        assignField(in->fsname[workSlot], std::string_view(line).substr(0, nameLength));
        return in->srcmd == byName;
    }

    bool fitsDesignator(std::string_view line) const
    {
        assignField(in->ldraw, columns(line, 10, 17));
        convldsn(in, true);
        return Strncmpi(wanted, in->ldfull, length) == 0;
    }

    bool findNextName() const
    {
        char line[lineRoom];
        while (nextLine(fp, line)) {
            if (Strncmpi(wanted, line, length) != 0)
                continue;
            assignField(nextsat, std::string_view(line).substr(0, nameLength));
            return true;
        }
        return false;
    }

    bool anotherLine() const
    {
        const int c = std::getc(fp);
        return c != EOF && std::ungetc(c, fp) != EOF;
    }

    WinpData* in;
    std::FILE* fp;
    char* out;
    char wanted[nameLength + 1] = {};
    int length = 0;
    bool everything = false;
    std::string refusal;  // report of the first one
};
/// What the adjustment dialog shows: `sdp4`, `adjflg`, `adjtim`, `adjn0`, `adjra`, `wgs`.
auto adjustmentFields(auto& in)
{
    return std::tie(in.sdp4, in.adjflg, in.adjtim, in.adjn0, in.adjra, in.wgs);
}

void putAdjustment(const std::tuple<bool, bool, double, double, double, int>& values, WinpData& in)
{
    adjustmentFields(in) = values;
    in.sgpsat = noSlot;
}
}  // namespace

int tleread(WinpData* in, std::FILE* fp, char* out, int more)
{
    Search search(in, fp, out);
    const Keep mode(in->srcmd);
    if (search.takesEverything())
        in->srcmd = byNumber;
    assignField(in->fsname[workSlot], noName);
    in->sgpsat = noSlot;
    if (!search.find(more != 0)) {
        search.reportFailure();
        return 0;
    }
    return search.moreFollow() ? 2 : 1;
}

int gettle(WinpData* in, std::FILE* fp, char* line, char* out, int& eof)
{
    out[0] = '\0';
    Entry entry;
    const bool complete = decode(in, fp, line, entry);
    if (std::feof(fp))
        eof = 1;
    if (!entry.refusal.empty())
        describeRefusal(in, entry, out);
    if (!complete)
        return 0;
    deriveSize(in, entry);
    if (!passesFilters(*in, entry))
        return 0;
    if (in->adjflg && !entry.stateVector)
        adjust(in, entry);
    finishName(in);
    in->a[workSlot] = entry.a;
    in->inc[workSlot] = entry.inc;
    in->ecc[workSlot] = entry.e;
    describe(*in, entry, out);
    if (!entry.stateVector)
        EpochState(in, workSlot, true);
    return 1;
}

void convldsn(WinpData* in, bool tofull)
{
    if (tofull && in->ldraw[0] == ' ') {
        assignField(in->ldfull, "           ");
    } else if (tofull) {
        const bool thisCentury = wholeNumber({in->ldraw, 2}) < firstYearOfLastCentury;
        const std::string_view raw = fieldText(in->ldraw);
        TextWriter full(in->ldfull);
        full.add(thisCentury ? "20" : "19").add(columns(raw, 1, 2)).add("-").add(columns(raw, 3, 8));
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

void vsGetAdj(bool& sdp4, bool& adjflg, double& adjtim, double& adjn0, double& adjra, int& wgs)
{
    std::tie(sdp4, adjflg, adjtim, adjn0, adjra, wgs) = adjustmentFields(*indata);
}

void vsPutAdj(bool sdp4, bool adjflg, double adjtim, double adjn0, double adjra, int wgs)
{
    putAdjustment({sdp4, adjflg, adjtim, adjn0, adjra, wgs}, *indata);
}
