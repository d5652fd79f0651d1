// What is assumed about Earth, air and light.
#pragma once

#include "orbit/orbit.h"

/// How the Earth stands, and what a `Position` shall tell beyond place and light.
struct Models
{
    EarthOrientation earth;      // holds for the forces of a numeric orbit too, in place of `Orbit::forces.earth`
    double equinox = 0;          // year of the equinox of right ascension and declination; 0: true equator of date
    bool refraction = true;      // in `Position::apparentElevation`
    double sphereDiameter = 0;   // metres, of the bright sphere for `magnitude`; 0: none is worked out
    bool extinction = true;      // in `magnitude`
    bool moonlight = false;      // the Moon lights: `moonElevation`, and `magnitude` where the Sun does not shine
    bool solarEclipses = false;  // `eclipse`, and its effect on `magnitude`
    Corrections corrections{};  // hold for the forces of a numeric orbit too, in place of `Orbit::forces.corrections`
};

/// The models of a record.
Models modelsOf(const WinpData& in);
