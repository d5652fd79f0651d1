// The sky behind the satellites.

#include "view/vorlix_view.h"

#include <array>
#include <cstdlib>
#include <optional>

#include <QPainter>

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/frames.h"
#include "astro/planets.h"
#include "astro/sun_moon.h"
#include "engine/clamped_values.h"
#include "orbit/orbit.h"
#include "record/clock.h"
#include "view/constellation_data.h"
#include "view/map_labels.h"
#include "view/marks.h"
#include "view/painting.h"
#include "view/sky_geometry.h"
#include "view/sky_lights.h"
#include "view/star_data.h"

namespace {

constexpr double starEpoch = -0.015;  // of the star table, Julian centuries from J2000
constexpr int lastColumn = 721;       // of the map

/// Where and when the sky is seen; a sky that is drawn does without nutation.
struct SkyView
{
    explicit SkyView(double time)
        : mjd(clamped(time, limitDays)),
          lat(clamped(indata->lat, limitDegrees) * radPerDeg),
          lng(clamped(indata->lng, limitDegrees) * radPerDeg),
          height(clamped(indata->height, limitHeightMetres))
    {}

    /// Elevation and azimuth in radians of a direction.
    Horizontal direction(const Vec3& r) const { return seen(r, 0); }
    /// The same of a geocentric position in Earth radii.
    Horizontal body(const Vec3& r) const { return seen(r, 1); }

    double mjd, lat, lng, height;

private:
    Horizontal seen(const Vec3& r, int mode) const
    {
        double az = 0, el = 0, distance = 0;
        AppPos(mjd, 0.0, lat, lng, height, mode, r, az, el, distance);
        return {az, el};
    }
};

QPoint pixelTowards(const SkyFrame& sky, const Horizontal& place)
{
    return pixelOf(sky, place.el * degPerRad, place.az * degPerRad);
}

using StarVectors = std::array<Vec3, brightStars.size()>;

StarVectors unitVectorsOfStars()
{
    StarVectors vectors;
    for (std::size_t i = 0; i < vectors.size(); ++i) {
        const double ra = DmsDegF(brightStars[i].ra / 1e5) * radPerHour;
        const double dec = DmsDegF(brightStars[i].dec / 1e4) * radPerDeg;
        vectors[i] = polcar({1.0, ra, dec});
    }
    return vectors;
}

/// The colour of a star that is drawn as a point.
const QColor& starColour(int mag100, const MapColours& colours)
{
    return colours.stars[mag100 > 400 ? 3 : mag100 > 300 ? 2 : mag100 > 200 ? 1 : 0];
}

void drawStar(QPainter& painter, const QPoint& p, int mag100, const MapColours& colours)
{
    if (mag100 > 100) {
        painter.setPen(starColour(mag100, colours));
        painter.drawPoint(p);
        return;
    }
    const QPoint corner = p - QPoint(1, 1);
    painter.setPen(colours.contrast);
    painter.drawEllipse(QRect(corner, mag100 <= 10 ? p : corner));
}

void drawStars(QPainter& painter, const SkyFrame& sky, const SkyView& view, const MapColours& colours)
{
    static const StarVectors vectors = unitVectorsOfStars();
    const Mat3 precession = pmatequ(starEpoch, julcent(view.mjd));
    const double limit = skyLimit(sky);
    painter.setBrush(colours.contrast);
    for (std::size_t i = 0; i < vectors.size(); ++i) {
        const Horizontal place = view.direction(mxvct(precession, vectors[i]));
        if (!(place.el > limit))
            continue;
        const QPoint p = pixelTowards(sky, place);
        if (p.x() <= lastColumn)
            drawStar(painter, p, brightStars[i].mag, colours);
    }
}

/// The lines of the constellations between points that are both on the map.
void drawFigures(QPainter& painter, const SkyFrame& sky, const SkyView& view)
{
    constexpr int edgeJumpPixels = 200;  // a longer line crosses the edge of the sky
    const Mat3 precession = pmatequ(0.0, julcent(view.mjd));
    const double limit = skyLimit(sky);
    std::optional<QPoint> pen;
    for (const FigurePoint& point : figurePoints) {
        if (point.ra == figurePenUp.ra) {
            pen.reset();
            continue;
        }
        const Vec3 r = polcar({1.0, point.ra / 100.0 * radPerDeg, point.dec / 100.0 * radPerDeg});
        const Horizontal place = view.direction(mxvct(precession, r));
        const QPoint p = pixelTowards(sky, place);
        const bool shown = place.el > limit && p.x() <= lastColumn && p.y() < legendTop;
        if (pen && shown && std::abs(p.x() - pen->x()) < edgeJumpPixels)
            painter.drawLine(*pen, p);
        pen = shown ? std::optional(p) : std::nullopt;
    }
}

void drawReadableLines(QPainter& painter, const SkyFrame& sky, const SkyView& view, const MapColours& colours)
{
    painter.setPen(colours.grid);
    drawAll(painter, altitudeRings(sky));
    painter.setPen(colours.figures);
    drawFigures(painter, sky, view);
}

void drawCompass(QPainter& painter, const SkyFrame& sky)
{
    struct Letter
    {
        const char* text;
        double azimuth, zenithElevation;
        QPoint zenithShift;
    };
    const Letter letters[] = {
        {"N", 0, 10, {0, 10}}, {"S", 180, 13, {0, 0}}, {"E", 90, 0, {-8, 0}}, {"W", 270, 0, {0, 0}}};
    for (const Letter& letter : letters) {
        const double el = sky.zenith() ? letter.zenithElevation : 0.5;
        const QPoint shift = sky.zenith() ? letter.zenithShift : QPoint(0, 0);
        painter.drawText(pixelOf(sky, el, letter.azimuth) + shift, VorlixView::tr(letter.text));
    }
}

/// Sun, Moon or planet as it is drawn.
struct SkyBody
{
    const char* name;
    Vec3 position;  // geocentric, equator of date, Earth radii
    QColor colour;
    int reach;   // of the disk, pixels
    int keyTop;  // of its line in the key
};

/// In the order of drawing and of the key.
std::array<SkyBody, 7> bodiesAt(const SkyView& view, const BodyColours& colours)
{
    constexpr double earthRadiiPerAu = 23454.77992;
    const double T = julcent(view.mjd + ttMinusUt(earthOrientationOf(*indata), view.mjd) / 86400.0);

    Sun200 sunSeries;
    Moon200 moonSeries;
    Plan200 planets;
    const Vec3 sun = sunSeries.position(T);
    const auto geocentric = [&](const Vec3& planet) { return eclequ(T, planet + sun) * earthRadiiPerAu; };
    return {{
        {"Sun", eclequ(T, sun) * earthRadiiPerAu, colours.sun, 3, 10},
        {"Moon", eclequ(T, moonSeries.position(T)), colours.moon, 3, 25},
        {"Mercury", geocentric(planets.Mercury(T)), colours.mercury, 2, 40},
        {"Venus", geocentric(planets.Venus(T)), colours.venus, 2, 55},
        {"Mars", geocentric(planets.Mars(T)), colours.mars, 2, 70},
        {"Jupiter", geocentric(planets.Jupiter(T)), colours.jupiter, 2, 85},
        {"Saturn", geocentric(planets.Saturn(T)), colours.saturn, 2, 100},
    }};
}

void drawKey(QPainter& painter, const SkyBody& body)
{
    const int left = 13 - body.reach;
    painter.drawEllipse(left, body.keyTop, 2 * body.reach, 2 * body.reach);
    painter.drawText(20, body.keyTop + 6, VorlixView::tr(body.name));
}

/// The spot that tells the Sun from Saturn, on the map and in the key.
void drawSunCore(QPainter& painter, const QPoint& p, const QColor& colour, bool key)
{
    fillWith(painter, colour);
    painter.drawEllipse(boxAbout(p, 1));
    if (key)
        painter.drawEllipse(boxAbout({13, 13}, 1));
}

void drawBodies(QPainter& painter, const SkyFrame& sky, const SkyView& view, const MapColours& colours)
{
    const std::array<SkyBody, 7> bodies = bodiesAt(view, colours.bodies);
    for (const SkyBody& body : bodies) {
        const QPoint p = pixelTowards(sky, view.body(body.position));
        if (p.x() > lastColumn)
            continue;
        fillWith(painter, body.colour);
        painter.drawEllipse(boxAbout(p, body.reach));
        if (sky.zenith())
            drawKey(painter, body);
        if (&body == &bodies.front())
            drawSunCore(painter, p, colours.bodies.sunCore, sky.zenith());
    }
    painter.setBrush(Qt::NoBrush);
}

}  // namespace

std::vector<ChartLight> skyLights(double mjd)
{
    static const StarVectors vectors = unitVectorsOfStars();
    const SkyView view(mjd);
    const Mat3 precession = pmatequ(starEpoch, julcent(view.mjd));
    std::vector<ChartLight> lights;
    const auto add = [&](const QString& name, const Horizontal& place, double magnitude) {
        if (place.el > 0.0)
            lights.push_back({name, place.az * degPerRad, place.el * degPerRad, magnitude});
    };
    for (std::size_t i = 0; i < vectors.size(); ++i)
        add(QString(), view.direction(mxvct(precession, vectors[i])), brightStars[i].mag / 100.0);
    for (const SkyBody& body : bodiesAt(view, {}))
        add(VorlixView::tr(body.name), view.body(body.position), 0.0);
    return lights;
}

SkyFrame VorlixView::skyFrame() const
{
    SkyFrame sky;
    sky.skyprj = indata->skyprj;
    sky.skaz = clamped(indata->skaz, limitDegrees);
    sky.satsky = indata->satsky;
    sky.altitude = clamped(indata->height, limitHeightMetres);
    sky.centre = {cenx, ceny};
    sky.xscale = xscale;
    sky.yscale = yscale;
    sky.width = indata->mapw;
    sky.height = indata->maph;
    return sky;
}

QPoint VorlixView::PxSky(double el, double az) const
{
    return pixelOf(skyFrame(), el, az);
}

void VorlixView::PltSky(QPainter& painter)
{
    const SkyFrame sky = skyFrame();
    const SkyView view(indata->mjd);
    const MapColours c = colours();
    painter.setFont(nameFont());
    if (c.readable) {
        drawReadableLines(painter, sky, view, c);
        writeLabels(painter, skyLabels(sky), c.labels, c.plate);
    }
    drawStars(painter, sky, view, c);
    if (sky.zenith()) {
        painter.setPen(c.horizon);
        drawAll(painter, horizonLines(sky));
    }
    if (horizon && !indata->satsky) {
        painter.setPen(c.strongLine);
        drawAll(painter, skyline(sky, *horizon));
    }
    painter.setPen(c.contrast);
    drawCompass(painter, sky);
    drawBodies(painter, sky, view, c);
    painter.setPen(c.grid);
    painter.drawLine(rightBorder);
}

void VorlixView::SkyPx(const QPoint& p)
{
    const SkyPlace place = placeAt(skyFrame(), p);
    indata->el1 = place.el;
    if (place.el == outsideSky)
        return;
    indata->az1 = place.az;

    const SkyView view(indata->mjdlast);
    double ra = 0, dec = 0;
    AppRADec(view.mjd, 0.0, view.lat, view.lng, place.az * radPerDeg, place.el * radPerDeg, ra, dec);
    if (indata->yrepoch != 0) {
        const double from = julcent(clamped(indata->mjd, limitDays));
        const double to = (clamped(indata->yrepoch, limitYears) - 2000.0) / 100.0;
        const Vec3 polar = carpol(mxvct(pmatequ(from, to), polcar({1.0, ra, dec})));
        ra = polar[1];
        dec = polar[2];
    }
    indata->az2 = DegFDms(ra / radPerHour);
    indata->el2 = DegFDms(dec * degPerRad);
}
