// A picture of the sky: its pixels, and what it says of itself.
#pragma once

#include "imaging/plate_solution.h"

#include <memory>
#include <string>
#include <vector>

/// Brightnesses row by row from the top of the picture as it is shown. Not a number where there is none.
struct PixelField
{
    int width = 0, height = 0;
    std::vector<float> values;

    float at(int column, int row) const
    {
        return values[std::size_t(row) * std::size_t(width) + std::size_t(column)];
    }
};

/// A picture as it was read.
struct SkyPicture
{
    std::string name;   // of the file
    PixelField pixels;  // of FITS files; others are read by the windows
    FitsHeader header;
    PictureFacts facts;
    std::unique_ptr<PlateSolution> plate;  // null without a solution
    bool rowsUpward = false;               // FITS: the first row is the lowest one
    int width = 0, height = 0;             // 0 where only a solution was read
};

struct ReadPicture
{
    SkyPicture picture;
    std::string complaint;  // why there is no picture
    std::string remark;     // why there is no solution
};

/// Whether the program was built with the library that reads FITS files.
bool readsFits();

/// Whether a name or the first bytes of a file tell that it is FITS.
bool isFits(const char* name);

/// The first image of a FITS file, or what a `.wcs` file beside any other picture tells of it. The time and place of a
/// JPEG or raw file come from its EXIF, if the program was built with it.
ReadPicture readPicture(const std::string& name);

/// Levels for black and white: the values below which these shares of the pixels lie.
struct Levels
{
    float black = 0, white = 1;
};
Levels levelsOf(const PixelField& pixels, double blackShare, double whiteShare);
