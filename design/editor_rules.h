// The rules of the element editor: one orbit in its redundant forms, and an epoch as date, year and day of year.
#pragma once

namespace editor {

/// Which form of a quantity was edited last; 0 where none was.
struct Edits
{
    int n0c = 0;  // 1 mean motion, 2 semi-major axis, 3 the model was switched
    int ndc = 0;  // 1 ndot, 2 adot
    int apc = 0;  // 1 perigee height, 2 apogee height, 3 inclination or eccentricity
};

/// Size and shape of an orbit in all forms, and how they change. `n0` of a hyperbola is its perigee distance in km.
struct Shape
{
    double n0 = 0;  // rev/day
    double a = 0;   // km
    double ecc = 0;
    double ndot = 0;     // rev/day^2
    double adot = 0;     // km/day
    double perigee = 0;  // height, km
    double apogee = 0;   // height, km
};

/// What else decides: the inclination in degrees and two boxes of the dialog.
struct Setting
{
    double inc = 0;
    bool byHeights = false;  // perigee and apogee stand for eccentricity, axis and mean motion
    bool sgp4 = false;       // the mean motion is that of an SGP4 element set
};

/// Brings the forms in line with what was edited last.
///
/// @param before  the shape as it was; `ecc` is not read
/// @param typed   the numbers in the fields
/// @return        finite numbers only: a form that would overflow becomes 0
Shape refreshed(const Shape& before, const Shape& typed, Edits edits, const Setting& setting);

/// The heights of an ellipse from its axis and eccentricity, above a radius of 6378.14 km.
void setHeights(Shape& shape);

/// The mean motion that the record takes: at least 0.001 and, for an ellipse, at most 100.
double storedMeanMotion(double n0, double ecc);

/// A year and the day in it with its fraction; 1.0 is the start of January 1.
struct YearDay
{
    int year = 0;
    double day = 0;

    bool operator==(const YearDay&) const = default;
};

/// From a Modified Julian Date and back, without the loss of a bit.
YearDay yearDay(double mjd);
/// The reverse of `yearDay`.
double mjdOf(const YearDay& epoch);

/// A moment to the second. Hours, minutes and seconds may count on beyond their range.
struct Moment
{
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;

    bool operator==(const Moment&) const = default;
};

/// The moment in UT; the second is cut off after adding a thousandth.
Moment moment(double mjd);

/// Whether the calendar has this day; it lacks those that the reform of 1582 left out.
bool isDate(int year, int month, int day);

/// The MJD of a moment in civil time.
///
/// @param tzone  hours, east positive
double mjdOf(const Moment& local, double tzone);

}  // namespace editor
