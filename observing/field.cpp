#include "observing/field.h"

#include "astro/angles.h"
#include "elements/element_file.h"
#include "engine/brightest_moment.h"
#include "engine/position.h"
#include "observing/seen_orbit.h"
#include "record/files.h"
#include "record/progress.h"
#include "record/text.h"
#include "scan/entries.h"
#include "scan/entry_task.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>

namespace {

using std::numbers::pi;
constexpr double secondsPerDay = 86400.0;
constexpr int onlySlot = 0;

/// A field with its axes as unit vectors of its frame.
class FieldPlane
{
public:
    explicit FieldPlane(const SkyField& theField)
        : field(theField), frame(theField.width > 0.0 && theField.height > 0.0)
    {
        Observation o;
        o.angles = field.angles;
        o.first = field.first;
        o.second = field.second;
        centre = observedAs(o);
        const Vec3 pole = Vec3(0, 0, 1);
        const bool isPole = std::abs(centre[2]) > 1.0 - 1e-12;
        // azimuth grows against the sense of right ascension in (south, east, zenith)
        const double sense = field.angles == SkyAngles::horizontal ? -1.0 : 1.0;
        east = isPole ? Vec3(0, sense, 0) : sense * vnorm(pole * centre);
        north = sense * (centre * east);
        const double corner = std::hypot(std::tan(half(field.width)), std::tan(half(field.height)));
        reach = frame ? std::atan(corner) : field.radius * radPerDeg;
    }

    /// Radians from the centre to the farthest point.
    double farthest() const { return reach; }

    double separation(const Vec3& u) const { return std::atan2(abs(centre * u), dot(centre, u)); }

    FieldPlace placeOf(const Vec3& u) const
    {
        const double ahead = std::max(dot(u, centre), 1e-6);
        return {dot(u, east) / ahead * degPerRad, dot(u, north) / ahead * degPerRad};
    }

    bool holds(const Vec3& u) const
    {
        if (!frame)
            return separation(u) <= reach;
        if (dot(u, centre) <= 0.0)
            return false;
        const FieldPlace at = placeOf(u);
        const double turn = field.angle * radPerDeg, s = std::sin(turn), c = std::cos(turn);
        const auto within = [](double degrees, double wanted) {
            return std::abs(degrees * radPerDeg) <= std::tan(half(wanted));
        };
        return within(at.x * c - at.y * s, field.width) && within(at.x * s + at.y * c, field.height);
    }

    /// The smallest extent, radians.
    double smallest() const
    {
        return frame ? std::min(field.width, field.height) * radPerDeg : 2.0 * field.radius * radPerDeg;
    }

private:
    static double half(double degrees) { return 0.5 * degrees * radPerDeg; }

    SkyField field;
    bool frame;
    Vec3 centre, east, north;
    double reach = 0;
};

/// What all satellites of a search share.
struct FieldView
{
    FieldPlane plane;
    Sight sight;  // at the begin

    explicit FieldView(const FieldQuery& query) : plane(query.field), sight(sightOf(query)) {}

    static Sight sightOf(const FieldQuery& query)
    {
        SitedObservation sited;
        sited.site = query.site;
        sited.observation.angles = query.field.angles;
        sited.observation.equinox = query.field.equinox;
        return {query.earth, sited, query.from, true};
    }
};

/// One satellite on its way.
class Track
{
public:
    Track(const FieldView& theView, const FieldQuery& theQuery, const Orbit& orbit)
        : view(theView), query(theQuery), seen(orbit)
    {
        constexpr double sinkingGround = 0.5;  // km/s, of the observer with the Earth
        speed = seen.fastest() + sinkingGround;
        if (query.field.angles == SkyAngles::horizontal)  // the frame turns below the satellite
            speed += turnRate * (orbit.elements.n0 > 0.0 ? farthestKm(orbit.elements) : 1e5);
    }

    struct Interval
    {
        double from = 0, to = 0;
    };
    std::vector<Interval> crossings();

    struct Look
    {
        Vec3 direction;      // in the frame of the field
        double range = 0;    // km
        double height = -1;  // sine of the elevation
    };
    std::optional<Look> lookAt(double t)
    {
        const Sight sight = view.sight.at(t);
        const auto line = seen.lineAt(sight);
        if (!line)
            return std::nullopt;
        const double range = abs(*line);
        return Look{sight.shown(*line), range, dot(*line, sight.zenith()) / range};
    }

private:
    static constexpr double turnRate = 7.2921159e-5;  // of the Earth, radians per second

    static double farthestKm(const Elements& e)
    {
        return std::cbrt(398600.8 / std::pow(e.n0 * twoPi / secondsPerDay, 2.0)) * (1.0 + e.ecc) * 1.02;
    }

    bool isIn(double t)
    {
        const auto look = lookAt(t);
        return look && look->height > 0.0 && view.plane.holds(look->direction);
    }

    double stepFrom(const Look& look) const;
    double edge(double outside, double inside);

    const FieldView& view;
    const FieldQuery& query;
    SeenOrbit seen;
    double speed;
};

/// Days in which the satellite cannot get into the field, or through a twentieth of it; a hundredth of a second at least.
double Track::stepFrom(const Look& look) const
{
    constexpr double leastSeconds = 0.01;
    const double off = view.plane.separation(look.direction) - view.plane.farthest();
    const double clear = std::sin(std::clamp(off, 0.0, 0.5 * pi));
    const double across = 0.05 * std::min(view.plane.smallest(), 1.0);
    return std::max(look.range * std::max(clear, across) / speed, leastSeconds) / secondsPerDay;
}

/// Where it crosses the border between two instants.
double Track::edge(double outside, double inside)
{
    constexpr double closeEnough = 0.0002 / secondsPerDay;
    while (std::abs(outside - inside) > closeEnough) {
        const double middle = 0.5 * (outside + inside);
        (isIn(middle) ? inside : outside) = middle;
    }
    return inside;
}

std::vector<Track::Interval> Track::crossings()
{
    std::vector<Interval> all;
    bool inside = false;
    double before = query.from;
    for (double t = query.from;;) {
        const auto look = lookAt(t);
        if (!look)
            break;
        const bool now = look->height > 0.0 && view.plane.holds(look->direction);
        if (now && !inside)
            all.push_back({t > query.from ? edge(before, t) : t, query.to});
        else if (!now && inside)
            all.back().to = edge(t, before);
        inside = now;
        before = t;
        if (t >= query.to || !tellProgress())
            break;
        t = std::min(t + stepFrom(*look), query.to);
    }
    return all;
}

std::string trimmed(std::string_view text)
{
    return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

/// Everything about a crossing but what the light does.
FieldCrossing describe(Track& track, const FieldView& view, const Track::Interval& interval)
{
    constexpr int parts = 16;
    constexpr double halfSecond = 0.05 / secondsPerDay;
    FieldCrossing crossing;
    crossing.entry = interval.from;
    crossing.exit = interval.to;
    const double middle = 0.5 * (interval.from + interval.to);
    const auto first = track.lookAt(interval.from), last = track.lookAt(interval.to), now = track.lookAt(middle);
    const auto before = track.lookAt(middle - halfSecond), after = track.lookAt(middle + halfSecond);
    if (!first || !last || !now || !before || !after)
        return crossing;
    crossing.entryPlace = view.plane.placeOf(first->direction);
    crossing.exitPlace = view.plane.placeOf(last->direction);
    const FieldPlace from = view.plane.placeOf(before->direction), to = view.plane.placeOf(after->direction);
    const double angle = std::atan2(to.x - from.x, to.y - from.y) * degPerRad;
    crossing.angle = angle < 0.0 ? angle + 360.0 : angle;
    crossing.rate = abs(after->direction - before->direction) * degPerRad / (2.0 * halfSecond * secondsPerDay);
    crossing.range = now->range;
    crossing.elevation = std::asin(std::clamp(now->height, -1.0, 1.0)) * degPerRad;
    double nearest = pi;
    for (int k = 0; k <= parts; ++k)
        if (const auto look = track.lookAt(interval.from + k * (interval.to - interval.from) / parts))
            nearest = std::min(nearest, view.plane.separation(look->direction));
    crossing.nearest = nearest * degPerRad;
    return crossing;
}

std::vector<FieldCrossing> crossingsIn(const FieldView& view, WinpData* in, int slot, const FieldQuery& query,
                                       const BrightnessBook& book)
{
    Track track(view, query, orbitOf(*in, slot));
    std::vector<FieldCrossing> all;
    for (const auto& interval : track.crossings()) {
        FieldCrossing c = describe(track, view, interval);
        const double middle = 0.5 * (c.entry + c.exit);
        absolutePosition(middle, in, satpos, slot);
        c.sunlit = satpos->sunel[slot] >= 0.0;
        c.name = trimmed(fieldText(in->fsname[slot]));
        c.designator = trimmed(fieldText(in->ldsn[slot]));
        c.norad = in->norad[slot];
        if (query.sunlitOnly && !c.sunlit)
            continue;
        if (const auto standard = book.of(c.norad, c.name, c.designator))
            c.magnitude = magnitudeAt(in, satpos, slot, middle, *standard);
        all.push_back(std::move(c));
    }
    return all;
}

}  // namespace

std::vector<FieldCrossing> crossingsOf(WinpData* in, int slot, const FieldQuery& query, const BrightnessBook& book)
{
    return crossingsIn(FieldView(query), in, slot, query, book);
}

std::optional<std::vector<FieldCrossing>> fieldCrossings(WinpData* in, const FieldQuery& query,
                                                         const BrightnessBook& book)
{
    const FilePtr elements = openElementFile(in->tlename);
    if (!elements)
        return std::nullopt;
    const LongCalculation calculation;
    const auto record = std::make_unique<WinpData>(*in);
    record->satn = 1;
    record->prs = onlySlot;
    record->rlm = record->occflg = record->flarflg = 0;
    record->iridflg = event::plain;
    in->sgpsat = noSlot;
    using Found = std::vector<FieldCrossing>;
    const FieldView view(query);
    Found all;
    Entries entries(record.get(), elements.get());
    shareEntries<Found>(
        entries, record.get(), onlySlot, [&](WinpData* own) { return crossingsIn(view, own, onlySlot, query, book); },
        [&](const Found& found, const WinpData&) { all.insert(all.end(), found.begin(), found.end()); });
    std::ranges::stable_sort(all, {}, &FieldCrossing::entry);
    return all;
}

std::vector<FreeInterval> freeIntervals(const FieldQuery& query, std::span<const FieldCrossing> crossings)
{
    constexpr double shortest = 1.0 / secondsPerDay;
    std::vector<const FieldCrossing*> byEntry;
    for (const FieldCrossing& c : crossings)
        if (c.sunlit)
            byEntry.push_back(&c);
    std::ranges::sort(byEntry, {}, [](const FieldCrossing* c) { return c->entry; });
    std::vector<FreeInterval> free;
    double from = query.from;
    for (const FieldCrossing* c : byEntry) {
        if (c->entry - from >= shortest)
            free.push_back({from, c->entry});
        from = std::max(from, c->exit);
    }
    if (query.to - from >= shortest)
        free.push_back({from, query.to});
    return free;
}
