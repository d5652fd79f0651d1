#include "observing/observation_list.h"

#include <array>

namespace {

// clang-format off
constexpr std::array table{
    ListColumn{"catalogue_number", "number", 6},
    ListColumn{"designator", "designator", 12},
    ListColumn{"station", "site", 4},
    ListColumn{"time", "time", instantWidth},
    ListColumn{"time_error_s", "+- s", 7, 4, 3},
    ListColumn{"right_ascension_deg", "R.A.", 8, 6, 4},
    ListColumn{"declination_deg", "decl.", 8, 6, 4},
    ListColumn{"equinox", "equinox", 7, 1, 0},
    ListColumn{"azimuth_deg", "azimuth", 8, 6, 4},
    ListColumn{"elevation_deg", "elev.", 8, 6, 4},
    ListColumn{"angle_error_deg", "+- deg", 7, 8, 4},
    ListColumn{"magnitude", "mag.", 5, 1},
    ListColumn{"magnitude_error", nullptr, 0, 1},
    ListColumn{"faintest_magnitude", nullptr, 0, 1},
    ListColumn{"flash_period_s", nullptr, 0, 3},
    ListColumn{"behaviour", "b", 1},
    ListColumn{"condition", "c", 1},
};

constexpr std::array residualTable{
    ListColumn{"time", "time", instantWidth},
    ListColumn{"station", "site", 4},
    ListColumn{"along_arcsec", "along \"", 9, 2, 1},
    ListColumn{"across_arcsec", "across \"", 9, 2, 1},
    ListColumn{"along_s", "sec", 9, 4, 3},
    ListColumn{"along_error_arcsec", "+- \"", 7, 2, 1},
    ListColumn{"across_error_arcsec", "+- \"", 7, 2, 1},
};
// clang-format on

ListValue numberOrNone(double value)
{
    return value > 0.0 ? ListValue(value) : ListValue();
}

ListValue numberOrNone(const std::optional<double>& value)
{
    return value ? ListValue(*value) : ListValue();
}

ListValue letterOrNone(char letter)
{
    return letter == ' ' ? ListValue() : ListValue(std::string(1, letter));
}

}  // namespace

ListColumns observationColumns()
{
    return table;
}

ListRow observationRow(const Observation& o)
{
    const bool equatorial = o.angles == SkyAngles::equatorial, horizontal = o.angles == SkyAngles::horizontal;
    const auto angle = [](bool is, double value) { return is ? ListValue(value) : ListValue(); };
    return {o.number > 0 ? ListValue(static_cast<long long>(o.number)) : ListValue(),
            o.designator.empty() ? ListValue() : ListValue(o.designator),
            static_cast<long long>(o.station),
            ListTime{o.mjd},
            numberOrNone(o.timeError),
            angle(equatorial, o.first),
            angle(equatorial, o.second),
            angle(equatorial, o.equinox),
            angle(horizontal, o.first),
            angle(horizontal, o.second),
            numberOrNone(o.angleError),
            numberOrNone(o.magnitude),
            numberOrNone(o.magnitudeError),
            numberOrNone(o.faintest),
            numberOrNone(o.period),
            letterOrNone(o.behaviour),
            letterOrNone(o.condition)};
}

ListColumns residualColumns()
{
    return residualTable;
}

ListRow residualRow(const Observation& o, const FitResidual& r)
{
    constexpr double arcsecPerDeg = 3600.0;
    return {ListTime{o.mjd}, static_cast<long long>(o.station), r.along * arcsecPerDeg,      r.across * arcsecPerDeg,
            r.seconds,       r.sigmaAlong * arcsecPerDeg,       r.sigmaAcross * arcsecPerDeg};
}
