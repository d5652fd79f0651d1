// The header of a FITS file, and what an observer's picture says of itself in it.
#pragma once

#include "engine/site.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

/// The cards of a header by their keywords; of two with the same one the first counts. Any bytes do.
class FitsHeader
{
public:
    FitsHeader() = default;
    /// @param cards  of 80 characters each, without anything between them, up to END
    explicit FitsHeader(std::string_view cards);

    /// The text of a value, without quotes and comment; nothing for an absent or an empty one.
    std::optional<std::string> text(std::string_view keyword) const;
    /// A finite number.
    std::optional<double> number(std::string_view keyword) const;

    bool empty() const { return values.empty(); }
    /// All values by their keywords.
    const std::map<std::string, std::string, std::less<>>& all() const { return values; }

private:
    std::map<std::string, std::string, std::less<>> values;
};

/// The first header of a file that begins like one; empty otherwise.
FitsHeader headerOfFile(const char* name);

/// When and where a picture was taken, as far as its header says so.
struct PictureFacts
{
    std::optional<double> begin;     // MJD UTC
    std::optional<double> exposure;  // seconds
    std::optional<Site> site;
    double equinox = 2000;  // of its coordinates
    std::string doubt;      // why a time that is there was not understood
};

/// DATE-OBS or DATE-BEG (with TIME-OBS or UT where it has no time), else DATE-AVG less half of the exposure; EXPTIME,
/// EXPOSURE or DATE-END; SITELAT and its like, LAT-OBS, OBSGEO-B or OBSGEO-X. UTC if TIMESYS does not name TAI, TT or TDB.
PictureFacts factsOf(const FitsHeader& header);

/// An instant of ISO 8601 without a zone, MJD; nothing for what is none.
std::optional<double> instantOfIso(std::string_view text);
