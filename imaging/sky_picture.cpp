#include "imaging/sky_picture.h"

#include "record/files.h"

#include <algorithm>
#include <cmath>
#include <limits>

#ifdef VORLIX_CFITSIO
#include <fitsio.h>
#endif
#ifdef VORLIX_EXIV2
#include <exiv2/exiv2.hpp>
#endif

namespace {

/// "night.jpg" to "night.wcs".
std::string solutionBeside(const std::string& name)
{
    const std::size_t dot = name.rfind('.'), slash = name.rfind('/');
    const bool ending = dot != std::string::npos && (slash == std::string::npos || dot > slash);
    return name.substr(0, ending ? dot : name.size()) + ".wcs";
}

#ifdef VORLIX_CFITSIO

constexpr long mostPixels = 200'000'000;

struct CloseFits
{
    void operator()(fitsfile* file) const
    {
        int status = 0;
        fits_close_file(file, &status);
    }
};
using FitsPtr = std::unique_ptr<fitsfile, CloseFits>;

std::string why(int status)
{
    char text[FLEN_STATUS] = {};
    fits_get_errstatus(status, text);
    fits_clear_errmsg();
    return text;
}

std::string cardsOf(fitsfile* file, int& status)
{
    char* cards = nullptr;
    int count = 0;
    if (fits_hdr2str(file, 1, nullptr, 0, &cards, &count, &status) != 0)
        return {};
    std::string text(cards, std::size_t(count) * 80);
    fits_free_memory(cards, &status);
    return text;
}

/// The mean of up to three planes, the last row first.
void readPlanes(fitsfile* file, const long* sizes, int axes, PixelField& pixels, int& status)
{
    const long count = sizes[0] * sizes[1];
    const long planes = axes > 2 ? std::clamp(sizes[2], 1L, 3L) : 1;
    int holes = 0;
    float null = std::numeric_limits<float>::quiet_NaN();
    std::vector<float> plane(std::size_t(count), 0.0f);
    pixels.width = int(sizes[0]);
    pixels.height = int(sizes[1]);
    pixels.values.assign(std::size_t(count), 0.0f);
    for (long p = 0; p < planes && status == 0; ++p) {
        fits_read_img(file, TFLOAT, 1 + p * count, count, &null, plane.data(), &holes, &status);
        for (long row = 0; row < sizes[1]; ++row)
            for (long column = 0; column < sizes[0]; ++column)
                pixels.values[std::size_t((sizes[1] - 1 - row) * sizes[0] + column)] +=
                    plane[std::size_t(row * sizes[0] + column)] / float(planes);
    }
}

ReadPicture readFits(const std::string& name)
{
    ReadPicture read;
    int status = 0, axes = 0, type = 0;
    long sizes[3] = {};
    fitsfile* opened = nullptr;
    fits_open_diskfile(&opened, name.c_str(), READONLY, &status);  // the name is no more than a name
    const FitsPtr file(opened);
    fits_get_img_param(opened, 3, &type, &axes, sizes, &status);
    while (status == 0 && axes == 0) {  // an image in an extension, perhaps a compressed one
        fits_movrel_hdu(opened, 1, nullptr, &status);
        fits_get_img_param(opened, 3, &type, &axes, sizes, &status);
    }
    if (status == 0 && (axes < 2 || axes > 3 || sizes[0] < 1 || sizes[1] < 1 || sizes[0] > mostPixels / sizes[1])) {
        read.complaint = "it holds no image of two axes, or one beyond 200 million pixels";
        return read;
    }
    SkyPicture& picture = read.picture;
    if (status == 0)
        picture.header = FitsHeader(cardsOf(opened, status));
    if (status == 0)
        readPlanes(opened, sizes, axes, picture.pixels, status);
    if (status != 0)
        read.complaint = why(status);
    picture.width = picture.pixels.width;
    picture.height = picture.pixels.height;
    picture.rowsUpward = true;
    return read;
}

#else

ReadPicture readFits(const std::string&)
{
    ReadPicture read;
    read.complaint = "this program was built without CFITSIO, which reads FITS files";
    return read;
}

#endif

/// Fills in what the header of the file has not told: time and exposure of its EXIF.
void readExif([[maybe_unused]] const std::string& name, [[maybe_unused]] PictureFacts& facts)
{
#ifdef VORLIX_EXIV2
    Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
    try {
        const auto file = Exiv2::ImageFactory::open(name);
        file->readMetadata();
        const Exiv2::ExifData& exif = file->exifData();
        const auto text = [&](const char* key) {
            const auto found = exif.findKey(Exiv2::ExifKey(key));
            return found == exif.end() ? std::string() : found->toString();
        };
        const std::string fraction = text("Exif.Photo.SubSecTimeOriginal");
        std::string time = text("Exif.Photo.DateTimeOriginal");
        if (!time.empty() && !fraction.empty())
            time += '.' + fraction.substr(0, fraction.find(' '));
        if (!facts.begin)
            facts.begin = instantOfIso(time);
        const auto exposure = exif.findKey(Exiv2::ExifKey("Exif.Photo.ExposureTime"));
        if (!facts.exposure && exposure != exif.end())
            facts.exposure = double(exposure->toFloat());
    } catch (const Exiv2::AnyError&) {  // a file without EXIF
    }
#endif
}

}  // namespace

bool readsFits()
{
#ifdef VORLIX_CFITSIO
    return true;
#else
    return false;
#endif
}

bool isFits(const char* name)
{
    const FilePtr file(std::fopen(name, "rb"));
    char start[9] = {};
    return file && std::fread(start, 1, sizeof start, file.get()) == sizeof start &&
           std::string_view(start, sizeof start) == "SIMPLE  =";
}

ReadPicture readPicture(const std::string& name)
{
    ReadPicture read;
    if (isFits(name.c_str()))
        read = readFits(name);
    if (!read.complaint.empty())
        return read;
    SkyPicture& picture = read.picture;
    picture.name = name;
    const FitsHeader beside = headerOfFile(solutionBeside(name).c_str());
    picture.facts = factsOf(picture.header.empty() ? beside : picture.header);
    if (picture.width == 0)
        readExif(name, picture.facts);
    ReadSolution solution = solutionOf(picture.header);
    if (!solution.plate && !beside.empty())
        solution = solutionOf(beside);
    picture.plate = std::move(solution.plate);
    read.remark = solution.complaint;
    constexpr double largestSide = 1e5;
    const double width = beside.number("IMAGEW").value_or(0.0), height = beside.number("IMAGEH").value_or(0.0);
    if (picture.width == 0 && width >= 1.0 && height >= 1.0 && width < largestSide && height < largestSide) {
        picture.width = int(width);
        picture.height = int(height);
    }
    return read;
}

Levels levelsOf(const PixelField& pixels, double blackShare, double whiteShare)
{
    constexpr std::size_t mostLooked = 200'000;
    const std::size_t step = std::max<std::size_t>(pixels.values.size() / mostLooked, 1);
    std::vector<float> looked;
    for (std::size_t i = 0; i < pixels.values.size(); i += step)
        if (std::isfinite(pixels.values[i]))
            looked.push_back(pixels.values[i]);
    if (looked.empty())
        return {};
    const auto at = [&](double share) {
        const auto place = looked.begin() + std::ptrdiff_t(std::clamp(share, 0.0, 1.0) * double(looked.size() - 1));
        std::nth_element(looked.begin(), place, looked.end());
        return *place;
    };
    const Levels levels{at(blackShare), at(whiteShare)};
    return levels.white > levels.black ? levels : Levels{levels.black, levels.black + 1.0f};
}
