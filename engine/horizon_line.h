// The line over which the sky of a place begins: houses, trees, hills.
#pragma once

#include <vector>

/// Azimuths and elevations in degrees, joined by straight lines in these two; two points of one azimuth are a wall.
class HorizonLine
{
public:
    /// Azimuth from north through east.
    struct Point
    {
        double azimuth, elevation;
    };

    /// @param points  at least one, finite, in any order of azimuth; those beyond 0 to 360 degrees are turned into it,
    ///                elevations are clamped to -90 and 90. Points of one azimuth stand as they were, from west to
    ///                east.
    explicit HorizonLine(std::vector<Point> points);

    /// The elevation of the line at an azimuth, any number of degrees; at a wall its upper end.
    double at(double azimuth) const;

    /// The least and the greatest elevation of the line.
    double lowest() const { return least; }
    double highest() const { return greatest; }

    /// Where a direction is.
    struct Stand
    {
        bool above;      // the line, or on it
        double awayDeg;  // of the great circle; the line is not nearer than that
    };

    /// Of an azimuth and an elevation, degrees. The distance is coarse, a power of two and not above 32; 0 close by.
    Stand stand(double azimuth, double elevation) const;

    /// In the order of azimuth, from 0 to 360, both included.
    const std::vector<Point>& points() const { return corners; }

private:
    struct Range
    {
        double low, high;
    };
    /// The range of the line within so many degrees of an azimuth.
    Range around(double azimuth, double halfWidth) const;
    /// The range between two azimuths of 0 to 360, the second not the smaller one.
    Range between(double from, double to) const;

    std::vector<Point> corners;
    double least = 0, greatest = 0;
};
