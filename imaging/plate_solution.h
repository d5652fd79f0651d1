// Where the pixels of a picture lie in the sky.
#pragma once

#include "imaging/fits_header.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// Of a picture, pixels from 1 as FITS counts: the centre of the first one is (1, 1).
struct PicturePoint
{
    double x = 0, y = 0;
};

/// Right ascension and declination, degrees.
struct SkyPoint
{
    double ra = 0, dec = 0;
};

/// A map between pixels and the sky. One thread may use an object at a time.
class PlateSolution
{
public:
    virtual ~PlateSolution() = default;
    virtual std::optional<SkyPoint> skyOf(const PicturePoint& pixel) = 0;
    virtual std::optional<PicturePoint> pixelOf(const SkyPoint& place) = 0;
};

/// A solution, or why there is none.
struct ReadSolution
{
    std::unique_ptr<PlateSolution> plate;
    std::string complaint;
};

/// Whether the program was built with the library that reads solutions.
bool readsSolutions();

/// The celestial coordinates of a FITS header, with SIP or TPV distortion.
ReadSolution solutionOf(const FitsHeader& header);

/// A star that was found on a picture.
struct PlateStar
{
    PicturePoint pixel;
    SkyPoint place;
};

/// An affine plate by least squares through three or more stars.
struct StarPlate
{
    std::unique_ptr<PlateSolution> plate;
    std::vector<double> offPixels;  // of each star from where the plate puts it
    std::string complaint;
};
StarPlate plateThrough(std::span<const PlateStar> stars);
