// Where a mount shall point.
#pragma once

#include <QElapsedTimer>

/// A direction on the sky that moves, at an instant.
struct Aim
{
    double mjd = 0;        // UTC
    double azimuth = 0;    // degrees, from north through east
    double elevation = 0;  // degrees, raised by refraction
    double ra = 0;         // hours, apparent, true equator of date, without refraction
    double dec = 0;        // degrees
    double ra2000 = 0;     // hours, of the equator and equinox of 2000
    double dec2000 = 0;    // degrees
    double raRate = 0;     // of the apparent right ascension, arc seconds in a second; not shortened towards the pole
    double decRate = 0;    // arc seconds in a second
};

/// The same direction some seconds later, by its rates: right ascensions and declinations only.
Aim ahead(Aim aim, double seconds);

/// How long a telescope takes to get anywhere. It is sent to where the satellite will be by then.
class SlewTime
{
public:
    void start() { timer.start(); }
    /// Noted once for each start.
    void arrived();
    /// Of the last slew, seconds; a guess before the first one.
    double seconds() const { return last; }

private:
    QElapsedTimer timer;
    double last = 2.0;
};
