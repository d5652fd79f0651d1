#include "exports/lists.h"

#include "exports/time_text.h"

#include <algorithm>
#include <array>

namespace {

constexpr double secondsPerDay = 86400.0;

// clang-format off
constexpr ListColumn satelliteName{"name", "name", 20};
constexpr ListColumn catalogueNumber{"catalogue_number", "number", 6};
constexpr ListColumn designator{"designator", nullptr};

constexpr std::array brightPassTable{
    satelliteName, catalogueNumber, designator,
    ListColumn{"start", "start", instantWidth},
    ListColumn{"start_azimuth_deg", "az.", 5, 3, 0},
    ListColumn{"start_elevation_deg", "el.", 4, 3, 0},
    ListColumn{"maximum", "maximum", timeWidth},
    ListColumn{"maximum_azimuth_deg", "az.", 5, 3, 0},
    ListColumn{"maximum_elevation_deg", "el.", 4, 3, 0},
    ListColumn{"end", "end", timeWidth},
    ListColumn{"end_azimuth_deg", "az.", 5, 3, 0},
    ListColumn{"end_elevation_deg", "el.", 4, 3, 0},
    ListColumn{"duration_s", nullptr, 0, 1},
    ListColumn{"brightest", nullptr, timeWidth},
    ListColumn{"magnitude", "mag.", 5, 2, 1},
    ListColumn{"magnitude_spread", "+-", 4, 2, 1},
    ListColumn{"magnitude_from", "from", 15},
};
constexpr std::size_t columnsOfBrightness = 4;

constexpr std::array eventTable{
    satelliteName, catalogueNumber, designator,
    ListColumn{"kind", "kind", 15},
    ListColumn{"time", "time", instantWidth},
    ListColumn{"azimuth_deg", "az.", 6, 3, 1},
    ListColumn{"elevation_deg", "el.", 5, 3, 1},
    ListColumn{"distance_km", "dist. km", 8, 3, 1},
    ListColumn{"half_width_km", "half km", 7, 1},
    ListColumn{"duration_s", "sec", 5, 1},
    ListColumn{"position_angle_deg", "angle", 5, 0},
    ListColumn{"magnitude", "mag.", 5, 1},
    ListColumn{"surface", nullptr},
    ListColumn{"ground_latitude_deg", "latitude", 8, 5, 3},
    ListColumn{"ground_longitude_deg", "longitude", 9, 5, 3},
};

constexpr std::array contactTable{
    satelliteName, catalogueNumber, designator,
    ListColumn{"other_name", "sees", 20},
    ListColumn{"other_catalogue_number", "number", 6},
    ListColumn{"start", "start", instantWidth},
    ListColumn{"end", "end", timeWidth},
    ListColumn{"duration_s", "seconds", 8, 1, 0},
    ListColumn{"start_latitude_deg", "lat.", 6, 4, 1},
    ListColumn{"start_longitude_deg", "long.", 6, 4, 1},
    ListColumn{"end_latitude_deg", "lat.", 6, 4, 1},
    ListColumn{"end_longitude_deg", "long.", 6, 4, 1},
};

constexpr std::array lookTable{
    satelliteName, catalogueNumber, designator,
    ListColumn{"time", "time", instantWidth},
    ListColumn{"azimuth_deg", "azimuth", 8, 4, 3},
    ListColumn{"elevation_deg", "elev.", 8, 4, 3},
    ListColumn{"range_km", "range km", 10, 4, 3},
    ListColumn{"range_rate_km_s", "km/s", 8, 6, 4},
    ListColumn{"doppler_hz", "Hz", 9, 1},
    ListColumn{"right_ascension_deg", "R.A.", 8, 5, 4},
    ListColumn{"declination_deg", "decl.", 8, 5, 4},
    ListColumn{"light", " light", 7},
    ListColumn{"magnitude", "mag.", 5, 1},
};

constexpr std::array trackTable{
    satelliteName, catalogueNumber, designator,
    ListColumn{"time", "time", instantWidth},
    ListColumn{"latitude_deg", "latitude", 9, 6, 4},
    ListColumn{"longitude_deg", "longitude", 9, 6, 4},
    ListColumn{"height_km", "height km", 12, 4, 3},
    ListColumn{"light", " light", 7},
};

constexpr std::array stateTable{
    satelliteName, catalogueNumber, designator,
    ListColumn{"time", "time", instantWidth},
    ListColumn{"frame", "frame", 12},
    ListColumn{"x_km", "x km", 14, 6, 3},
    ListColumn{"y_km", "y km", 14, 6, 3},
    ListColumn{"z_km", "z km", 14, 6, 3},
    ListColumn{"vx_km_s", "vx km/s", 10, 9, 6},
    ListColumn{"vy_km_s", "vy km/s", 10, 9, 6},
    ListColumn{"vz_km_s", "vz km/s", 10, 9, 6},
};

constexpr std::array matchTable{
    satelliteName, catalogueNumber, designator,
    ListColumn{"time", "time", instantWidth},
    ListColumn{"separation_deg", "off deg", 7, 4, 3},
    ListColumn{"time_offset_s", "seconds", 8, 1},
    ListColumn{"azimuth_deg", "az.", 6, 3, 1},
    ListColumn{"elevation_deg", "el.", 5, 3, 1},
    ListColumn{"direction_deg", "direction", 9, 1, 0},
    ListColumn{"rate_deg_s", "deg/s", 7, 5, 4},
    ListColumn{"light", " light", 7},
    ListColumn{"perigee_km", "perigee", 9, 1},
    ListColumn{"apogee_km", "apogee", 9, 1},
    ListColumn{"inclination_deg", "incl.", 6, 4, 1},
};
// clang-format on

ListValue textOrNone(const std::string& text)
{
    return text.empty() ? ListValue() : ListValue(text);
}

std::string summaryOf(ListColumns columns, const ListRow& row, const std::string& kind, double time)
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

std::string descriptionOf(ListColumns columns, const ListRow& row)
{
    std::string text;
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (const std::string value = textAt(columns, row, columns[i].name); !value.empty())
            text += std::string(columns[i].name) + ": " + value + '\n';
    return text;
}

bool has(ListColumns columns, const char* name)
{
    return columnIndex(columns, name) < columns.size();
}

}  // namespace

ListColumns passColumns()
{
    return ListColumns(brightPassTable).first(brightPassTable.size() - columnsOfBrightness);
}

ListColumns brightPassColumns()
{
    return brightPassTable;
}

ListRow brightPassRow(ListRow pass, const PassBrightness& b)
{
    pass.insert(pass.end(), {ListTime{b.time}, b.magnitude, b.spread, b.from});
    return pass;
}

ListRow passRow(const SatelliteName& satellite, const PassTimes& pass)
{
    ListRow row{satellite.name, satellite.number, textOrNone(satellite.designator)};
    for (int k = 0; k < 3; ++k)
        row.insert(row.end(), {ListTime{pass.time[k]}, pass.azimuth[k], pass.elevation[k]});
    row.emplace_back((pass.time[2] - pass.time[0]) * secondsPerDay);
    return row;
}

ListColumns eventColumns()
{
    return eventTable;
}

ListColumns contactColumns()
{
    return contactTable;
}

ListColumns lookColumns()
{
    return lookTable;
}

ListColumns trackColumns()
{
    return trackTable;
}

ListColumns stateColumns()
{
    return stateTable;
}

ListColumns matchColumns()
{
    return matchTable;
}

CalendarEvent calendarEventOf(ListColumns columns, const ListRow& row, const char* kind, const ListSite& site)
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
