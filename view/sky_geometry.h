// Between elevation and azimuth and the pixels of a sky map.
//
// A point that cannot be shown has an x beyond the width of the display, also for values that are no numbers.
#pragma once

#include <QLine>
#include <QPoint>
#include <vector>

class HorizonLine;

/// A sky map as it is set up for one drawing.
struct SkyFrame
{
    int skyprj = 0;       // as in the record: 0 stereographic about the zenith, otherwise Mollweide about `skaz`
    double skaz = 0;      // central azimuth, degrees
    bool satsky = false;  // seen from a satellite
    double altitude = 0;  // of the observer, metres
    QPoint centre;
    double xscale = 0;  // pixels per radius of the sphere
    double yscale = 0;
    int width = 0;  // of the display
    int height = 0;

    bool zenith() const { return skyprj == 0; }
};

/// Degrees; the azimuth from 0 to 360.
struct SkyPlace
{
    double az, el;
};

/// A direction at an observer, radians.
struct Horizontal
{
    double az, el;
};

/// Elevation of a pixel outside the sky.
constexpr double outsideSky = -100.0;

/// The lowest elevation on show, radians: from a satellite that of the Earth's horizon, otherwise 0.
double skyLimit(const SkyFrame& sky);

/// Degrees to pixels.
///
/// The Mollweide equation is solved by a fixed number of Newton steps, so that very near the zenith x is not that of
/// the limit.
QPoint pixelOf(const SkyFrame& sky, double el, double az);

/// The direction under a pixel; elevation `outsideSky` outside the sky.
SkyPlace placeAt(const SkyFrame& sky, const QPoint& p);

/// The line of the place in the sky, where it is above the horizon.
std::vector<QLine> skyline(const SkyFrame& sky, const HorizonLine& line);

/// The horizon of a map about the zenith.
std::vector<QLine> horizonLines(const SkyFrame& sky);
