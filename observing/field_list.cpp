#include "observing/field_list.h"

#include <array>

namespace {

// clang-format off
constexpr std::array crossingTable{
    ListColumn{"name", "satellite", 20},
    ListColumn{"catalogue_number", "number", 6},
    ListColumn{"designator", nullptr},
    ListColumn{"entry", "entry", instantWidth},
    ListColumn{"exit", "exit", timeWidth},
    ListColumn{"entry_x_deg", "x1 deg", 7, 5, 2},
    ListColumn{"entry_y_deg", "y1 deg", 7, 5, 2},
    ListColumn{"exit_x_deg", "x2 deg", 7, 5, 2},
    ListColumn{"exit_y_deg", "y2 deg", 7, 5, 2},
    ListColumn{"position_angle_deg", "p.a.", 5, 2, 1},
    ListColumn{"rate_deg_s", "deg/s", 7, 6, 4},
    ListColumn{"nearest_deg", "off", 6, 5, 2},
    ListColumn{"elevation_deg", "el.", 4, 3, 0},
    ListColumn{"range_km", "km", 6, 1, 0},
    ListColumn{"light", "light", 6},
    ListColumn{"magnitude", "mag.", 5, 1},
};

constexpr std::array freeTable{
    ListColumn{"start", "free from", instantWidth},
    ListColumn{"end", "to", timeWidth},
    ListColumn{"duration_s", "seconds", 9, 3, 1},
};
// clang-format on

}  // namespace

ListColumns crossingColumns()
{
    return crossingTable;
}

ListRow crossingRow(const FieldCrossing& c)
{
    return {c.name,
            static_cast<long long>(c.norad),
            c.designator.empty() ? ListValue() : ListValue(c.designator),
            ListTime{c.entry},
            ListTime{c.exit},
            c.entryPlace.x,
            c.entryPlace.y,
            c.exitPlace.x,
            c.exitPlace.y,
            c.angle,
            c.rate,
            c.nearest,
            c.elevation,
            c.range,
            std::string(c.sunlit ? "sunlit" : "shadow"),
            c.magnitude ? ListValue(*c.magnitude) : ListValue()};
}

ListColumns freeColumns()
{
    return freeTable;
}

ListRow freeRow(const FreeInterval& interval)
{
    constexpr double secondsPerDay = 86400.0;
    return {ListTime{interval.from}, ListTime{interval.to}, (interval.to - interval.from) * secondsPerDay};
}
