#include "reports/pass_details.h"

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/frames.h"
#include "elements/selection.h"
#include "engine/aos_list.h"
#include "engine/clamped_values.h"
#include "engine/pass_search.h"
#include "engine/position.h"
#include "record/files.h"
#include "record/numbers.h"
#include "record/progress.h"
#include "record/text.h"
#include "record/winp_data.h"
#include "reports/save_forms.h"
#include "reports/step_lines.h"
#include "scan/records_before.h"

#include <QString>
#include <memory>
#include <string>
#include <utility>

namespace {

constexpr double oneSecondDays = 1.1574074074074073e-5;
constexpr double shortestWholeSecondDays = 1.157407407e-5;  // a step of one second, its last digits left open

// of a time stamp
constexpr std::size_t dateOnly = 7;
constexpr std::size_t dateAndMinutes = 13;
constexpr std::size_t dateAndSeconds = 16;

constexpr double noneYetDeg = -100.0;

int civilYear(const WinpData& in, double t)
{
    int day = 0, month = 0, year = 0;
    double hours = 0;
    caldat(t + in.tzone / 24.0, day, month, year, hours);
    return year;
}

void addNames(TextWriter& text, const WinpData& in, int mode)
{
    if (mode != passform::display)
        text.add("\n\n\n");
    text.add(fieldText(in.fsname[in.prs]));
    if (relativeMode(in))
        text.add("\n").add(fieldText(in.fsname[secondSatellite(in)]));
    text.add("\n").add(std::string(54, '_')).add("\n");
}

void addColumnHeading(TextWriter& text, const WinpData& in)
{
    text.add("\n").add(std::string(29, ' '));
    if (groundPointWanted(in))
        text.add(" Ctr.Line  long.    lat.");
    else if (relativeMode(in))
        text.add("       Azim.  Elev.              lat.   long");
    else
        text.add("         Azim.  Elev.                 R.A.   Decl");
    text.add("\n");
}

void addHeading(TextWriter& text, const WinpData& in, double t, int mode)
{
    addNames(text, in, mode);
    text.addFormatted("Year: %4i  +++> Timezone %g <+++", civilYear(in, t), in.tzone);
    if (in.visflg)
        text.add(in.moonflg ? "  Moonshine" : "  visible");
    text.add("\n");
    if (mode != passform::groundTrack)
        addColumnHeading(text, in);
}

/// Hours, minutes and seconds with one decimal; the seconds never read 60.
void addTenths(TextWriter& text, double civil)
{
    int day = 0, month = 0, year = 0, h = 0, m = 0;
    double hours = 0, s = 0;
    caldat(civil, day, month, year, hours);
    dms(hours, h, m, s);
    if (s >= 59.95) {
        s = 0.0;
        h = m < 59 ? h : h + 1;
        m = m < 59 ? m + 1 : 0;
    }
    text.addFormatted(" %2i:%02i:%4.1lf", h, m, s);
}

void addTime(TextWriter& text, const WinpData& in, double t)
{
    if (in.tmstep == oneMinuteDays) {
        addStepTime(text, in, t, dateAndMinutes);
    } else if (in.tmstep >= shortestWholeSecondDays) {
        addStepTime(text, in, t, dateAndSeconds);
    } else {
        addStepTime(text, in, t, dateOnly);
        addTenths(text, t + in.tzone / 24.0);
    }
}

/// Packed right ascension and declination to the minute.
void addMinutes(TextWriter& text, double ra, double dec)
{
    text.addFormatted("    %7.2lf  %7.2lf", carriedMinutes(ra, 24.0), carriedMinutes(dec, 360.0));
}

/// Azimuth and elevation, right ascension and declination; in relative mode the place of the second satellite.
void addDirection(TextWriter& text, WinpData* in, int mode)
{
    const double az = satpos->az[in->prs];
    const double el = ElvRefr(in, satpos->el[in->prs]);
    const bool fourDigits = in->ra4d == 1 && !relativeMode(*in);
    if (mode == passform::save || fourDigits)
        text.addFormatted("    %8.3lf  %8.3lf", az, el);
    else
        text.addFormatted("     %7.2lf  %7.2lf", az, el);
    if (fourDigits)
        text.addFormatted("     %9.4lf  %9.4lf", satpos->ra[in->prs], satpos->dec[in->prs]);
    else if (relativeMode(*in))
        text.addFormatted("        %7.2lf  %7.2lf", satpos->ra[in->prs], satpos->dec[in->prs]);
    else
        addMinutes(text.add("    "), satpos->ra[in->prs], satpos->dec[in->prs]);
}

void addCentralLine(TextWriter& text, const WinpData& in, int mode)
{
    constexpr std::size_t angleRoom = 32;
    if (satpos->occlat[in.prs] >= noGroundPoint) {
        text.add("   No Intersection");
    } else if (mode == passform::save) {
        addGroundPoint(text, in.prs);
    } else {
        char angle[angleRoom];
        prpang(angle, in.ra4d, in.ddmm, satpos->occlng[in.prs]);
        text.add("      ").add(fieldText(angle));
        prpang(angle, in.ra4d, in.ddmm, satpos->occlat[in.prs]);
        text.add("  ").add(fieldText(angle));
    }
}

void addColumns(TextWriter& text, WinpData* in, int mode)
{
    if (mode == passform::groundTrack)
        addSubPoint(text, in->prs);
    else if (groundPointWanted(*in))
        addCentralLine(text, *in, mode);
    else
        addDirection(text, in, mode);
}

/// The steps of the pass `aossel` of the table, one after the other.
class PassListing
{
public:
    /// From the first step on, which has the heading.
    PassListing(WinpData* record, int form, const HorizonLine* horizon)
        : in(record), line(horizon), mode(form), t(alignedStart(in->aostm[in->aossel], in->tmstep)), first(true)
    {
        in->tmaxel = 0.0;
    }

    /// Goes on with the step at `time`.
    PassListing(WinpData* record, int form, const HorizonLine* horizon, double time, double greatest)
        : in(record), line(horizon), mode(form), t(time), greatestElevation(greatest)
    {}

    /// Composes a step in a text of `passDetailsRoom`; false if the satellite does not fulfil the conditions any more.
    bool next(char* text);

    double time() const { return t; }                      // of the step to come, MJD UTC
    double greatest() const { return greatestElevation; }  // elevation so far, degrees, without refraction

private:
    bool addStep(TextWriter& text);

    WinpData* in;
    const HorizonLine* line;
    int mode;
    double t;
    double greatestElevation = noneYetDeg;
    bool first = false;
};

bool PassListing::next(char* text)
{
    TextWriter step(text, passDetailsRoom);
    if (std::exchange(first, false))
        addHeading(step, *in, t, mode);
    else
        step.add("\n");
    const bool listed = addStep(step);
    t += in->tmstep;
    return listed;
}

bool PassListing::addStep(TextWriter& text)
{
    if (!tellProgress(fieldText(in->fsname[in->prs]), t))
        return false;
    GetSatPos(t, in, satpos, in->prs, 0);
    PassQuery query{in, satpos, in->prs, sunAtAnyHeight(*in)};
    query.limits.horizon = line;
    if (!conditionsHold(query))
        return false;
    addTime(text, *in, t);
    addColumns(text, in, mode);
    if (satpos->el[in->prs] > greatestElevation) {
        greatestElevation = satpos->el[in->prs];
        in->tmaxel = t;
    }
    return true;
}

/// Unit vector to the apparent place of the prime satellite, in the frame of `yrepoch`.
Vec3 apparentDirection(WinpData* in, double t)
{
    GetSatPos(t, in, satpos, in->prs, 0);
    const double ra = DmsDegF(satpos->ra[in->prs]) * 15.0 * radPerDeg;
    const double dec = DmsDegF(satpos->dec[in->prs]) * radPerDeg;
    return polcar(Vec3(1.0, ra, dec));
}

/// Azimuth and elevation of a direction for the observer, radians.
void horizontal(const WinpData& in, double t, const Vec3& direction, double& az, double& el)
{
    double distance = 0;
    AppPos(clampedUt1(t, in), 0.0, in.lat * radPerDeg, in.lng * radPerDeg, in.height, 0, direction, az, el, distance);
}

void addPole(TextWriter& text, const WinpData& in, double az, double el, const Vec3& pole)
{
    const Vec3 polar = carpol(pole);
    const double azDeg = az < 0.0 ? az * degPerRad + 360.0 : az * degPerRad;
    text.add("Apparent Pole of orbit (Azim   Elev   R.A.  Decl)\n");
    text.addFormatted("           %7.2lf %7.2lf", azDeg, el * degPerRad);
    const double ra = DegFDms(polar[1] / radPerHour);
    const double dec = DegFDms(polar[2] * degPerRad);
    if (in.ra4d == 1)
        text.addFormatted("    %9.4lf  %9.4lf", ra, dec);
    else
        addMinutes(text, ra, dec);
}

/// The result of `GetPassDTxt`, or 0 with the lines of the pole.
int stepOrPole(WinpData* in, double& t, char* lines, bool pole, const HorizonLine* horizon)
{
    if (!pole)
        return GetPassDTxt(in, t, lines, passform::display, horizon);
    GetPoleTxt(in, lines);
    return 0;
}

/// The whole listing, with the pole of a saved one; empty if there is no first step.
std::string wholeListing(WinpData* in, int mode, const HorizonLine* horizon)
{
    char text[passDetailsRoom];
    std::string steps;
    PassListing listing(in, mode, horizon);
    int listed = 0;
    while (listed < mostSavedSteps && listing.next(text)) {
        steps += text;
        ++listed;
    }
    if (mode == passform::save && listed > 1) {
        GetPoleTxt(in, text);
        steps += text;
    }
    return steps;
}

/// The steps in the form that the ending of the save file asks for.
bool saveInForm(WinpData* in, ListForm form, bool groundTrack, const HorizonLine* horizon, std::string& why)
{
    const LongCalculation calculation;
    const auto before = std::make_unique<RecordsBefore>(*in);
    const std::string text = passStepsText(in, form, groundTrack, horizon);
    if (calculationEnded()) {
        before->putBack(in);
        return false;
    }
    why = writeInForm(in, form, text);
    return why.empty();
}

}  // namespace

double alignedStart(double t, double step)
{
    int day = 0, month = 0, year = 0, h = 0, m = 0;
    double hours = 0, s = 0;
    caldat(t, day, month, year, hours);
    dms(hours, h, m, s);
    if (step == oneMinuteDays)
        return mjd(day, month, year, ddd(h, s > 0.0 ? m + 1 : m, 0.0));
    if (step >= oneSecondDays)
        return mjd(day, month, year, ddd(h, m, truncToInt(s) + 1));
    return t;
}

int GetPassDTxt(WinpData* in, double& t, char* text, int mode, const HorizonLine* horizon)
{
    static double greatest = noneYetDeg;  // of the listing under way, whose calls have `t` in common
    PassListing listing = t == 0.0 ? PassListing(in, mode, horizon) : PassListing(in, mode, horizon, t, greatest);
    const bool listed = listing.next(text);
    greatest = listing.greatest();
    t = listing.time() == 0.0 ? 1.0 : listing.time();  // not to be taken for a first step
    return listed ? 1 : 0;
}

void GetPoleTxt(WinpData* in, char* text)
{
    constexpr double quarterMinuteDays = 0.00017361111111111112;
    TextWriter lines(text, passDetailsRoom);
    lines.add("\n\n");
    if (relativeMode(*in) || in->tmaxel == 0.0)  // no step has been listed
        return;
    const double t = in->tmaxel;
    const Vec3 before = apparentDirection(in, t - quarterMinuteDays);
    const Vec3 after = apparentDirection(in, t + quarterMinuteDays);
    Vec3 pole = before * after;
    if (abs(pole) == 0.0)
        return;
    double az = 0, el = 0;
    horizontal(*in, t, pole, az, el);
    if (el < 0.0) {
        pole *= -1.0;
        horizontal(*in, t, pole, az, el);
    }
    addPole(lines, *in, az, el, pole);
}

bool savePassDetails(WinpData* in, int mode, std::string& reason, const HorizonLine* horizon)
{
    if (const auto form = formOfName(fieldText(in->savename)))
        return saveInForm(in, *form, mode == passform::groundTrack, horizon, reason);
    const LongCalculation calculation;
    const auto before = std::make_unique<RecordsBefore>(*in);
    const std::string text = wholeListing(in, mode, horizon);
    const bool listed = !text.empty();
    if (calculationEnded()) {
        before->putBack(in);
        return false;
    }
    if (in->newsave)
        vsFileName(in->savename);
    // an old file is given up only for something new
    const ReportFile file(in->savename, in->newsave && listed ? "w" : "a");
    std::fputs(text.c_str(), outptr);
    reason = file.save();
    if (!reason.empty())
        return false;
    if (listed)
        in->newsave = 0;
    return true;
}

int vsGetPassDTxt(double& t, QString& text, bool pole, const HorizonLine* horizon)
{
    char lines[passDetailsRoom];
    const int result = stepOrPole(indata, t, lines, pole, horizon);
    text = textQString(fieldText(lines));
    return result;
}

bool vsSavePassDt(int mode, std::string* why, const HorizonLine* horizon)
{
    std::string ignored;
    return savePassDetails(indata, mode, why ? *why : ignored, horizon);
}
