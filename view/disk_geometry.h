// Pixels of the plot of the Sun's or the Moon's disk.
#pragma once

#include <QPoint>
#include <vector>

#include "view/sky_geometry.h"

/// A disk plot as it is set up for one drawing.
struct DiskFrame
{
    QPoint centre;
    double xscale = 0;  // pixels per degree
    double yscale = 0;
};

/// Apparent radius of the Sun, degrees; that of the Moon changes.
constexpr double sunRadiusDegrees = 0.265;

/// The pixel of a satellite; far from the body one above the plot.
///
/// @param az, el  of the satellite, degrees
QPoint pixelOf(const DiskFrame& disk, const Horizontal& body, double az, double el);

/// The point at an angle of the limb in radians, clockwise from the top.
///
/// @param radius  pixels
QPoint limbPoint(const DiskFrame& disk, double radius, double angle);

/// The limb in steps of 5 degrees, from `start` in radians all the way round.
std::vector<QPoint> limbPoints(const DiskFrame& disk, double radius, double start);

/// The angle of the limb at which the lit half of the Moon begins, radians.
double litStart(const Horizontal& sun, const Horizontal& moon);

/// The half ellipse between the lit and the dark part, from one horn to the other.
///
/// @param phase  cosine of the angle at the Moon between Sun and Earth, 1 at full Moon
std::vector<QPoint> terminatorPoints(const DiskFrame& disk, double radius, double start, double phase);

/// The angle at a body from the zenith to the celestial pole, clockwise on the plot, radians; 0 where it is not
/// defined.
///
/// @param lat  of the observer, degrees
double northAngle(const Horizontal& body, double lat);
