#include "imaging/trail_list.h"

#include <array>

namespace {

// clang-format off
constexpr std::array table{
    ListColumn{"name", "satellite", 20},
    ListColumn{"catalogue_number", "number", 6},
    ListColumn{"designator", nullptr},
    ListColumn{"entry", "entry", instantWidth},
    ListColumn{"exit", "exit", timeWidth},
    ListColumn{"entry_x_px", "x1", 7, 2, 0},
    ListColumn{"entry_y_px", "y1", 7, 2, 0},
    ListColumn{"exit_x_px", "x2", 7, 2, 0},
    ListColumn{"exit_y_px", "y2", 7, 2, 0},
    ListColumn{"rate_deg_s", "deg/s", 7, 6, 4},
    ListColumn{"magnitude", "mag.", 5, 1},
    ListColumn{"streak", "streak", 6},
    ListColumn{"ahead_s", "ahead s", 7, 3, 2},
    ListColumn{"across_arcmin", "across '", 8, 3, 2},
    ListColumn{"angle_deg", "turned", 6, 2, 1},
};
// clang-format on

}  // namespace

ListColumns trailColumns()
{
    return table;
}

ListRow trailRow(const PictureTrail& trail)
{
    const FieldCrossing& c = trail.crossing;
    const bool drawn = !trail.line.empty();
    const auto pixel = [drawn](double value) { return drawn ? ListValue(value) : ListValue(); };
    const PicturePoint first = drawn ? trail.line.front() : PicturePoint(), last = drawn ? trail.line.back() : first;
    ListRow row{c.name,
                static_cast<long long>(c.norad),
                c.designator.empty() ? ListValue() : ListValue(c.designator),
                ListTime{c.entry},
                ListTime{c.exit},
                pixel(first.x),
                pixel(first.y),
                pixel(last.x),
                pixel(last.y),
                c.rate,
                c.magnitude ? ListValue(*c.magnitude) : ListValue()};
    if (trail.match)
        row.insert(row.end(), {static_cast<long long>(trail.match->streak + 1), trail.match->ahead,
                               trail.match->across, trail.match->angle});
    row.resize(table.size());
    return row;
}
