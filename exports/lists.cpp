#include "exports/lists.h"

#include "exports/time_text.h"

#include <algorithm>
#include <array>

namespace {

constexpr double secondsPerDay = 86400.0;

// clang-format off
constexpr Column satelliteName{"name", "name", 20};
constexpr Column catalogueNumber{"catalogue_number", "number", 6};
constexpr Column designator{"designator", nullptr};

constexpr std::array passTable{
    satelliteName, catalogueNumber, designator,
    Column{"start", "start", instantWidth},
    Column{"start_azimuth_deg", "az.", 5, 3, 0},
    Column{"start_elevation_deg", "el.", 4, 3, 0},
    Column{"maximum", "maximum", timeWidth},
    Column{"maximum_azimuth_deg", "az.", 5, 3, 0},
    Column{"maximum_elevation_deg", "el.", 4, 3, 0},
    Column{"end", "end", timeWidth},
    Column{"end_azimuth_deg", "az.", 5, 3, 0},
    Column{"end_elevation_deg", "el.", 4, 3, 0},
    Column{"duration_s", nullptr, 0, 1},
};

constexpr std::array eventTable{
    satelliteName, catalogueNumber, designator,
    Column{"kind", "kind", 15},
    Column{"time", "time", instantWidth},
    Column{"azimuth_deg", "az.", 6, 3, 1},
    Column{"elevation_deg", "el.", 5, 3, 1},
    Column{"distance_km", "dist. km", 8, 3, 1},
    Column{"half_width_km", "half km", 7, 1},
    Column{"duration_s", "sec", 5, 1},
    Column{"position_angle_deg", "angle", 5, 0},
    Column{"magnitude", "mag.", 5, 1},
    Column{"surface", nullptr},
    Column{"ground_latitude_deg", "latitude", 8, 5, 3},
    Column{"ground_longitude_deg", "longitude", 9, 5, 3},
};

constexpr std::array contactTable{
    satelliteName, catalogueNumber, designator,
    Column{"other_name", "sees", 20},
    Column{"other_catalogue_number", "number", 6},
    Column{"start", "start", instantWidth},
    Column{"end", "end", timeWidth},
    Column{"duration_s", "seconds", 8, 1, 0},
    Column{"start_latitude_deg", "lat.", 6, 4, 1},
    Column{"start_longitude_deg", "long.", 6, 4, 1},
    Column{"end_latitude_deg", "lat.", 6, 4, 1},
    Column{"end_longitude_deg", "long.", 6, 4, 1},
};

constexpr std::array lookTable{
    satelliteName, catalogueNumber, designator,
    Column{"time", "time", instantWidth},
    Column{"azimuth_deg", "azimuth", 8, 4, 3},
    Column{"elevation_deg", "elev.", 8, 4, 3},
    Column{"range_km", "range km", 10, 4, 3},
    Column{"range_rate_km_s", "km/s", 8, 6, 4},
    Column{"doppler_hz", "Hz", 9, 1},
    Column{"right_ascension_deg", "R.A.", 8, 5, 4},
    Column{"declination_deg", "decl.", 8, 5, 4},
    Column{"light", " light", 7},
    Column{"magnitude", "mag.", 5, 1},
};

constexpr std::array trackTable{
    satelliteName, catalogueNumber, designator,
    Column{"time", "time", instantWidth},
    Column{"latitude_deg", "latitude", 9, 6, 4},
    Column{"longitude_deg", "longitude", 9, 6, 4},
    Column{"height_km", "height km", 12, 4, 3},
    Column{"light", " light", 7},
};

constexpr std::array stateTable{
    satelliteName, catalogueNumber, designator,
    Column{"time", "time", instantWidth},
    Column{"frame", "frame", 12},
    Column{"x_km", "x km", 14, 6, 3},
    Column{"y_km", "y km", 14, 6, 3},
    Column{"z_km", "z km", 14, 6, 3},
    Column{"vx_km_s", "vx km/s", 10, 9, 6},
    Column{"vy_km_s", "vy km/s", 10, 9, 6},
    Column{"vz_km_s", "vz km/s", 10, 9, 6},
};

constexpr std::array matchTable{
    satelliteName, catalogueNumber, designator,
    Column{"time", "time", instantWidth},
    Column{"separation_deg", "off deg", 7, 4, 3},
    Column{"time_offset_s", "seconds", 8, 1},
    Column{"azimuth_deg", "az.", 6, 3, 1},
    Column{"elevation_deg", "el.", 5, 3, 1},
    Column{"direction_deg", "direction", 9, 1, 0},
    Column{"rate_deg_s", "deg/s", 7, 5, 4},
    Column{"light", " light", 7},
    Column{"perigee_km", "perigee", 9, 1},
    Column{"apogee_km", "apogee", 9, 1},
    Column{"inclination_deg", "incl.", 6, 4, 1},
};
// clang-format on

Value textOrNone(const std::string& text)
{
    return text.empty() ? Value() : Value(text);
}

std::string summaryOf(Columns columns, const Row& row, const std::string& kind, double time)
{
    const std::string name = textAt(columns, row, "name");
    if (kind == "contact")
        return name + " sees " + textAt(columns, row, "other_name");
    const char* prefix = kind == "pass" ? "maximum_" : "";
    const auto angle = [&](const char* part) {
        return fixedNumber(numberAt(columns, row, std::string(prefix) + part), 0);
    };
    const std::string what = kind == "pass" ? "maximum" : textAt(columns, row, "kind");
    return name + ": " + what + ' ' + isoCivil(time, 0.0).substr(11) + ", elevation " + angle("elevation_deg") +
           " deg, azimuth " + angle("azimuth_deg") + " deg";
}

std::string descriptionOf(Columns columns, const Row& row)
{
    std::string text;
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (const std::string value = textAt(columns, row, columns[i].name); !value.empty())
            text += std::string(columns[i].name) + ": " + value + '\n';
    return text;
}

bool has(Columns columns, const char* name)
{
    return columnIndex(columns, name) < columns.size();
}

}  // namespace

Columns passColumns()
{
    return passTable;
}

Row passRow(const SatelliteName& satellite, const PassTimes& pass)
{
    Row row{satellite.name, satellite.number, textOrNone(satellite.designator)};
    for (int k = 0; k < 3; ++k)
        row.insert(row.end(), {Instant{pass.time[k]}, pass.azimuth[k], pass.elevation[k]});
    row.emplace_back((pass.time[2] - pass.time[0]) * secondsPerDay);
    return row;
}

Columns eventColumns()
{
    return eventTable;
}

Columns contactColumns()
{
    return contactTable;
}

Columns lookColumns()
{
    return lookTable;
}

Columns trackColumns()
{
    return trackTable;
}

Columns stateColumns()
{
    return stateTable;
}

Columns matchColumns()
{
    return matchTable;
}

CalendarEvent calendarEventOf(Columns columns, const Row& row, const char* kind, const ListSite& site)
{
    const bool lasts = has(columns, "start");
    const char* mark = has(columns, "maximum") ? "maximum" : lasts ? "start" : "time";
    const double time = numberAt(columns, row, mark);
    CalendarEvent event;
    event.start = numberAt(columns, row, lasts ? "start" : "time");
    event.end = numberAt(columns, row, lasts ? "end" : "time");
    std::string what = textAt(columns, row, has(columns, "other_name") ? "other_catalogue_number" : "kind");
    std::replace(what.begin(), what.end(), ' ', '-');
    event.uid = std::string(kind) + '-' + textAt(columns, row, "catalogue_number") + (what.empty() ? "" : "-") +
                what + '-' + isoCivil(time, 0.0).substr(0, 16) + '-' + fixedNumber(site.latitude, 2) + '-' +
                fixedNumber(site.longitude, 2) + "@vorlix";
    event.summary = summaryOf(columns, row, kind, time);
    event.description = descriptionOf(columns, row);
    event.location = site.name;
    event.latitude = site.latitude;
    event.longitude = site.longitude;
    return event;
}
