#include "view/legend_text.h"

#include <algorithm>
#include <cmath>
#include <cstdarg>

#include "astro/calendar.h"
#include "engine/pass_search.h"
#include "engine/position.h"
#include "record/numbers.h"
#include "record/text.h"
#include "view/vorlix_view.h"

namespace {

enum Column
{
    timeColumn,
    positionColumn,
    skyColumn,
    topocentricColumn,
    nameColumn
};

constexpr double aboutOneSecondDays = 1.157407407e-5;
constexpr int longestName = 15;

[[gnu::format(printf, 1, 2)]] QString composed(const char* format, ...)
{
    char buffer[64];
    std::va_list values;
    va_start(values, format);
    const std::string_view text = formattedInto(buffer, sizeof buffer, format, values);
    va_end(values);
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

/// A full minute moves on; the last one of the day ends in 24:00, for the date does not move.
void carryMinute(int& hour, int& minute)
{
    ++minute;
    if (minute <= 59)
        return;
    minute = 0;
    if (hour < 24)
        ++hour;
}

/// The change of a frequency by the range rate in km/s, Hz, after the relativistic formula; rates near the speed of
/// light count as receding at 0.99 of it.
double dopplerShift(double frequency, double rangeRate)
{
    constexpr double lightKmPerS = 299792.458;
    double b = rangeRate / lightKmPerS;
    if (std::abs(b) > 0.99)
        b = 0.99;
    return frequency * std::sqrt((1.0 - b) / (1.0 + b)) - frequency;
}

/// Writes the columns one after the other; some take over the pen of an earlier one.
class Legend
{
public:
    Legend(WinpData* record, SatPosData* positions, const PlotScene& plot)
        : in(*record),
          sp(*positions),
          scene(plot),
          colours(plot.colours),
          prime(std::clamp(record->prs, 0, maxSatellites - 1)),
          ground(positions->occlat[prime] < noGroundPoint),
          decayed(record->satn > 0 && positions->hgt[prime] < 0)
    {}

    std::vector<LegendText> compose();

private:
    void put(Column column, int row, const QColor& colour, const QString& text, bool label = false)
    {
        texts.push_back({column, row, text, colour, label});
    }

    /// The sky is that of the prime satellite, which has no direction and distance there.
    bool seenFromItself() const { return in.skymap != 0 && in.satsky; }
    bool events() const { return in.occflg != 0 || in.flarflg != 0; }
    bool knownSurface() const { return in.flarflg >= 1 && in.flarmod >= 1; }
    bool magnitudeWanted() const;
    QColor inDarkness(const QColor& otherwise) const;

    void putTime();
    void putPosition();
    void putSunAndRate();
    QString magnitudeText() const;
    QString rateText() const;
    void putSky();
    void putSecondSatellite(const QColor& pen);
    void putEvent(const QColor& pen);
    void putGroundPoint(const QColor& pen);
    QString eventName() const;
    void putEclipse(const QColor& pen);
    void putRightAscension(const QColor& pen);
    void putTopocentric();
    void putNames();
    void putName(int row, int slot);

    WinpData& in;
    SatPosData& sp;
    const PlotScene& scene;
    const MapColours& colours;
    const int prime;
    const bool ground;   // the event of the prime satellite has a point on the ground
    const bool decayed;  // the prime satellite is below the ground
    std::vector<LegendText> texts;
};

std::vector<LegendText> Legend::compose()
{
    putTime();
    if (in.satn > 0) {
        putPosition();
        putSunAndRate();
        putSky();
        if (!seenFromItself())
            putTopocentric();
    }
    putNames();
    return std::move(texts);
}

void Legend::putTime()
{
    const QColor pen = decayed ? colours.dark : colours.text;
    put(timeColumn, 0, colours.text, timeText(scene, in.tmstep));
    put(timeColumn, 1, pen, composed("TimeZone: %g", in.tzone));
    put(timeColumn, 2, pen, in.rtflg ? composed("R/T") : composed("Year:%5i", scene.year));
}

void Legend::putPosition()
{
    const QColor pen = decayed ? colours.dark : colours.text;
    put(positionColumn, 0, pen, withAngle("Lat  :", in.ra4d, in.ddmm, sp.lat[prime]));
    put(positionColumn, 1, pen, withAngle("Lng :", in.ra4d, in.ddmm, sp.lng[prime]));
    put(positionColumn, 2, pen, composed("Height:%8.1lf km", sp.hgt[prime]));
}

void Legend::putSunAndRate()
{
    const QColor pen = decayed ? colours.dark : colours.text;
    if (!scene.relative)
        put(nameColumn, 1, pen, composed("ObsSun:%7.1lf", sp.osunel));
    if (magnitudeWanted())
        put(nameColumn, 2, inDarkness(pen), magnitudeText());
    else
        put(nameColumn, 2, pen, rateText());
}

bool Legend::magnitudeWanted() const
{
    return (!scene.relative && in.chlen > 0) || (ground && (in.occflg > 0 || knownSurface()));
}

/// The pen of a text that speaks of sunlight: dark in the shadow, moonlit if the Moon shines on the satellite there.
QColor Legend::inDarkness(const QColor& otherwise) const
{
    if (!(sp.sunel[prime] < 0))
        return otherwise;
    return in.moonflg && sp.moonel[prime] > 0 ? colours.moonlit : colours.dark;
}

QString Legend::magnitudeText() const
{
    const bool plain = in.occflg < 1 && !knownSurface();
    const bool flareMagnitude = in.occflg < 1 && in.flrmgf && in.iridflg < event::iridium && in.chlen > 0;
    if (plain || !ground || flareMagnitude)
        return composed("Mag:%4.1lf", sp.mag);
    if (in.occflg >= 1)
        return composed("dst:%8.1lf km", sp.mag);  // the distance of the ground point then
    return composed("FlrAng:%7.2lf", in.flrang);
}

QString Legend::rateText() const
{
    if (in.iridflg == event::iridium && ground)
        return composed("FlrAng:%7.2lf", in.flrang);
    if (in.frequ != 0)
        return composed("Hz: %g", dopplerShift(in.frequ, sp.rrate[prime]));
    if (in.cylflg && ground && in.flarflg > 0)
        return composed("CylAng:%7.2lf", in.flrang);
    return composed("Rate:%7.3lf km/s", sp.rrate[prime]);
}

void Legend::putSky()
{
    QColor pen = scene.relative ? colours.text : inDarkness(colours.text);
    if (decayed)
        pen = colours.dark;
    if (scene.relative)
        putSecondSatellite(pen);
    else if (events())
        putEvent(pen);
    else if (in.eclflg)
        putEclipse(pen);
    else
        putRightAscension(pen);
}

/// Relative mode: the engine leaves the place of the second satellite in these fields.
void Legend::putSecondSatellite(const QColor& pen)
{
    put(skyColumn, 0, pen, withAngle("Lat :", in.ra4d, in.ddmm, sp.ra[prime]));
    put(skyColumn, 1, pen, withAngle("Lng :", in.ra4d, in.ddmm, sp.dec[prime]));
    put(skyColumn, 2, pen, composed("Hgt:%8.1lf km", sp.sunel[prime]));
}

void Legend::putEvent(const QColor& pen)
{
    if (ground)
        putGroundPoint(pen);
    else
        put(skyColumn, 0, pen, composed("No Intersection"));
    put(skyColumn, 2, colours.alert, eventName());
}

void Legend::putGroundPoint(const QColor& pen)
{
    if (in.occflg != 0 || in.flarmod >= 1) {
        put(skyColumn, 0, pen, withAngle("Lat :", in.ra4d, in.ddmm, sp.occlat[prime]));
        put(skyColumn, 1, pen, withAngle("Lng :", in.ra4d, in.ddmm, sp.occlng[prime]));
    } else if (in.flarmod == -1) {
        put(skyColumn, 0, pen, composed("Y:%7.1lf", in.occra));
        put(skyColumn, 1, pen, composed("P:%7.1lf", in.occdec));
    } else {
        put(skyColumn, 0, pen,
            in.solflar ? composed("Solar Panel") : withAngle("R.A.:", in.ra4d, packedHours, in.occra));
        put(skyColumn, 1, pen, withAngle(in.solflar ? "Ang.:" : "Dec.:", in.ra4d, packedDegrees, in.occdec));
    }
}

QString Legend::eventName() const
{
    if (in.flarflg)
        return composed(in.flarmod < 1 ? "Flare Angle" : "Flare Location");
    switch (in.occflg) {
    case 1:
        return composed("Sun Transit");
    case 2:
        return composed("Moon Transit");
    default:
        return composed("Occultation");
    }
}

void Legend::putEclipse(const QColor& pen)
{
    put(skyColumn, 0, pen, composed("S/M Ang.:%7.2lf", in.smang));
    if (in.ecltyp < 1) {
        put(skyColumn, 2, colours.alert, composed("No Eclipse"));
        return;
    }
    put(skyColumn, 1, pen,
        in.chlen > 0 ? composed("Ecl.Pow:%6.2lf%%", 100.0 * in.eclpow) : composed("Ecl.Mag.:%7.3lf", in.eclmag));
    const char* const kind = in.ecltyp == 2 ? "Total Ecl." : in.ecltyp == 3 ? "Annular Ecl." : "Partial Ecl.";
    put(skyColumn, 2, colours.alert, QString::fromLatin1(kind));
}

void Legend::putRightAscension(const QColor& pen)
{
    put(skyColumn, 0, pen, withAngle("R.A.:", in.ra4d, packedHours, sp.ra[prime]));
    put(skyColumn, 1, pen, withAngle("Dec.:", in.ra4d, packedDegrees, sp.dec[prime]));
    put(skyColumn, 2, pen, composed("SatSun:%7.1lf", sp.sunel[prime]));
}

void Legend::putTopocentric()
{
    const double elevation = ElvRefr(&in, sp.el[prime]);
    const bool unseen = scene.relative ? cksatok(&in, &sp, prime) == 0 : elevation < 0;
    const QColor pen = unseen ? colours.dark : colours.text;
    put(topocentricColumn, 0, pen, composed("Azim.:%7.2lf", sp.az[prime]));
    put(topocentricColumn, 1, pen, composed("Elev.:%7.2lf", elevation));
    put(topocentricColumn, 2, pen, composed("Range:%8.1lf km", sp.dst[prime]));
}

void Legend::putNames()
{
    if (in.satn == 0) {
        put(nameColumn, 0, colours.alert, composed("*** No Satellite ***"));
        return;
    }
    putName(0, prime);
    if (scene.relative)
        putName(1, prime + 1 < in.satn ? prime + 1 : 0);
}

/// A name that is cut ends in a blank of the background.
void Legend::putName(int row, int slot)
{
    QString name = shownName(in, slot);
    if (name.size() == longestName)
        name += ' ';
    put(nameColumn, row, colours.satellites[static_cast<std::size_t>(slot)], name, true);
}

}  // namespace

std::vector<LegendText> legendTexts(WinpData* in, SatPosData* sp, const PlotScene& scene)
{
    return Legend(in, sp, scene).compose();
}

QFont legendFont(const WinpData& in)
{
    constexpr int smallest = 1, largest = 72;  // a damaged configuration may hold any number
    return QFont("Helvetica", std::clamp(in.mfsz, smallest, largest), in.bf ? QFont::Bold : QFont::Normal);
}

QString timeText(const PlotScene& scene, double step)
{
    char month[4];
    GetMonth(scene.month, month);
    int hour = 0, minute = 0;
    double seconds = 0;
    dms(scene.hours, hour, minute, seconds);
    const bool whole = step >= aboutOneSecondDays;
    if (whole)
        seconds = std::trunc(seconds + 0.4999);
    if (seconds >= (whole ? 60.0 : 59.95)) {
        seconds = 0;
        carryMinute(hour, minute);
    }
    if (whole)
        return composed("%s %2i  %2i:%02i:%02i", month, scene.day, hour, minute, truncToInt(seconds));
    return composed("%s %2i  %2i:%02i:%4.1lf", month, scene.day, hour, minute, seconds);
}

QString withAngle(const char* label, int ra4d, int mode, double value)
{
    char angle[32];
    prpang(angle, ra4d, mode, value);
    return QString::fromLatin1(label) + QString::fromLatin1(angle);
}

QString shownName(const WinpData& in, int slot)
{
    return fieldQString(in.fsname[slot]).left(longestName);
}
