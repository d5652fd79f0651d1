// A pass of a satellite over an observer.
#pragma once

/// Start, highest point and end of a pass; or an event at index 1, with its distance in km or its magnitude in `b[2]`.
struct Pass
{
    double tm[3] = {};  // MJD UTC
    double a[3] = {};   // elevation, degrees
    double b[3] = {};   // azimuth, degrees
};
