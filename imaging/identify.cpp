#include "imaging/identify.h"

#include "astro/angles.h"
#include "elements/element_file.h"
#include "observing/seen_orbit.h"
#include "record/files.h"
#include "record/progress.h"
#include "scan/entries.h"
#include "scan/entry_task.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

constexpr double secondsPerDay = 86400.0;
constexpr int onlySlot = 0;
constexpr std::size_t moments = 97;

double separation(const SkyPoint& a, const SkyPoint& b)
{
    const Vec3 u = polcar({1.0, a.ra * radPerDeg, a.dec * radPerDeg});
    const Vec3 v = polcar({1.0, b.ra * radPerDeg, b.dec * radPerDeg});
    return std::atan2(abs(u * v), dot(u, v)) * degPerRad;
}

/// A satellite on its way through the circle around the frame.
struct Way
{
    FieldCrossing crossing;
    std::vector<double> times;
    std::vector<SkyPoint> places;
};

std::vector<Way> waysOf(WinpData* in, const FieldQuery& query, const BrightnessBook& book)
{
    std::vector<Way> ways;
    SitedObservation sited;
    sited.site = query.site;
    sited.observation.angles = SkyAngles::equatorial;
    sited.observation.equinox = query.field.equinox;
    for (FieldCrossing& c : crossingsOf(in, onlySlot, query, book)) {
        Way way{std::move(c), {}, {}};
        const Sight first(query.earth, sited, query.from, true);
        SeenOrbit seen(orbitOf(*in, onlySlot));
        for (std::size_t k = 0; k < moments; ++k) {
            const double t =
                way.crossing.entry + double(k) * (way.crossing.exit - way.crossing.entry) / double(moments - 1);
            const auto direction = seen.directionAt(first.at(t));
            if (!direction)
                continue;
            const Vec3 polar = carpol(*direction);
            way.times.push_back(t);
            way.places.push_back({polar[1] * degPerRad, polar[2] * degPerRad});
        }
        ways.push_back(std::move(way));
    }
    return ways;
}

/// A way on the picture.
struct Path
{
    std::vector<double> times;
    std::vector<PicturePoint> points;
};

Path pathOf(const Way& way, PlateSolution& plate)
{
    Path path;
    for (std::size_t k = 0; k < way.times.size(); ++k)
        if (const auto pixel = plate.pixelOf(way.places[k])) {
            path.times.push_back(way.times[k]);
            path.points.push_back(*pixel);
        }
    return path;
}

/// The point of a path nearest to a pixel; the first and the last piece go on beyond their ends.
struct Foot
{
    double time = 0, off = 0;  // pixels, to the left of the motion with y upward
    double directionX = 0, directionY = 0;
    double distance = 1e30;
};

Foot footOn(const Path& path, const PicturePoint& pixel)
{
    Foot best;
    for (std::size_t k = 0; k + 1 < path.points.size(); ++k) {
        const PicturePoint &a = path.points[k], &b = path.points[k + 1];
        const double dx = b.x - a.x, dy = b.y - a.y, length = std::hypot(dx, dy);
        if (!(length > 0.0))
            continue;
        double part = ((pixel.x - a.x) * dx + (pixel.y - a.y) * dy) / (length * length);
        part = std::clamp(part, k == 0 ? -1e3 : 0.0, k + 2 == path.points.size() ? 1e3 : 1.0);
        const double x = pixel.x - a.x - part * dx, y = pixel.y - a.y - part * dy;
        if (std::hypot(x, y) >= best.distance)
            continue;
        best = {path.times[k] + part * (path.times[k + 1] - path.times[k]), (dx * y - dy * x) / length, dx / length,
                dy / length, std::hypot(x, y)};
    }
    return best;
}

bool nearEdge(const ExposedPicture& picture, const PicturePoint& p)
{
    const double margin = 0.01 * std::max(picture.width, picture.height);
    return p.x < margin || p.y < margin || p.x > picture.width - margin || p.y > picture.height - margin;
}

/// How a streak fits a path, whichever end came first. An end at the edge of the frame tells no time.
StreakMatch matchOf(const ExposedPicture& picture, const Path& path, const Streak& streak, double arcminPerPixel)
{
    PicturePoint first = streak.from, last = streak.to;
    Foot a = footOn(path, first), b = footOn(path, last);
    if (a.time > b.time) {
        std::swap(a, b);
        std::swap(first, last);
    }
    StreakMatch match;
    match.across = 0.5 * (a.off + b.off) * arcminPerPixel;
    const double length = std::max(std::hypot(last.x - first.x, last.y - first.y), 1e-9);
    const double cosine =
        ((last.x - first.x) * (a.directionX + b.directionX) + (last.y - first.y) * (a.directionY + b.directionY)) /
        (2.0 * length);
    match.angle = std::acos(std::clamp(cosine, -1.0, 1.0)) * degPerRad;
    const double early = (picture.begin - a.time) * secondsPerDay;
    const double late = (picture.begin - b.time) * secondsPerDay + picture.exposure;
    const bool tellsBegin = !nearEdge(picture, first), tellsEnd = !nearEdge(picture, last);
    if (tellsBegin == tellsEnd)  // through the whole frame: any time from one to the other fits
        match.ahead = tellsBegin ? 0.5 * (early + late) : -std::clamp(0.0, -late, std::max(-late, -early));
    else
        match.ahead = tellsBegin ? early : late;
    match.ahead = -match.ahead;
    return match;
}

/// The ends and the line of what lies in the frame during the exposure.
void clip(const ExposedPicture& picture, const Path& path, PictureTrail& trail)
{
    const double end = picture.begin + picture.exposure / secondsPerDay;
    const auto inside = [&](const PicturePoint& p) {
        return p.x >= 0.5 && p.y >= 0.5 && p.x <= picture.width + 0.5 && p.y <= picture.height + 0.5;
    };
    constexpr int parts = 16;
    double first = 0, last = 0;
    for (std::size_t k = 0; k + 1 < path.points.size(); ++k)
        for (int part = 0; part < parts; ++part) {
            const double share = double(part) / parts;
            const double t = path.times[k] + share * (path.times[k + 1] - path.times[k]);
            const PicturePoint p{path.points[k].x + share * (path.points[k + 1].x - path.points[k].x),
                                 path.points[k].y + share * (path.points[k + 1].y - path.points[k].y)};
            if (t < picture.begin || t > end || !inside(p))
                continue;
            first = trail.line.empty() ? t : first;
            last = t;
            trail.line.push_back(p);
        }
    if (trail.line.empty())
        return;
    trail.crossing.entry = first;
    trail.crossing.exit = last;
    const auto from = picture.plate->skyOf(trail.line.front()), to = picture.plate->skyOf(trail.line.back());
    if (from && to && last > first)
        trail.crossing.rate = separation(*from, *to) / ((last - first) * secondsPerDay);
}

}  // namespace

double StreakMatch::misfit() const
{
    constexpr double usualArcmin = 3.0, usualDegrees = 0.5, usualSeconds = 3.0;
    return std::hypot(across / usualArcmin, angle / usualDegrees, ahead / usualSeconds);
}

std::optional<SkyField> fieldAround(const ExposedPicture& picture)
{
    const double w = picture.width, h = picture.height;
    const auto centre = picture.plate->skyOf({0.5 * (w + 1.0), 0.5 * (h + 1.0)});
    if (!centre)
        return std::nullopt;
    double radius = 0;
    for (const PicturePoint& p : {PicturePoint{0.5, 0.5}, {w + 0.5, 0.5}, {0.5, h + 0.5}, {w + 0.5, h + 0.5}}) {
        const auto corner = picture.plate->skyOf(p);
        if (!corner)
            return std::nullopt;
        radius = std::max(radius, separation(*centre, *corner));
    }
    SkyField field;
    field.first = centre->ra;
    field.second = centre->dec;
    field.equinox = picture.equinox;
    field.radius = 1.03 * radius;
    return field;
}

std::optional<std::vector<PictureTrail>> satellitesOn(WinpData* in, const ExposedPicture& picture,
                                                      const BrightnessBook& book)
{
    constexpr double worstMisfit = 12.0;
    const auto field = fieldAround(picture);
    const FilePtr elements = openElementFile(in->tlename);
    if (!field || !elements)
        return std::nullopt;
    const LongCalculation calculation;
    FieldQuery query;
    query.field = *field;
    const double slack = picture.streaks.empty() ? 0.0 : picture.slackSeconds;
    query.from = picture.begin - slack / secondsPerDay;
    query.to = picture.begin + (picture.exposure + slack) / secondsPerDay;
    query.site = picture.site;
    query.earth = picture.earth;
    query.sunlitOnly = true;
    const double arcminPerPixel = 60.0 * 2.0 * field->radius / 1.03 / std::hypot(picture.width, picture.height);
    const auto record = std::make_unique<WinpData>(*in);
    record->satn = 1;
    record->prs = onlySlot;
    record->rlm = record->occflg = record->flarflg = 0;
    record->iridflg = event::plain;
    in->sgpsat = noSlot;
    std::vector<PictureTrail> all;
    const auto take = [&](const std::vector<Way>& ways, const WinpData&) {
        for (const Way& way : ways) {
            PictureTrail trail{way.crossing, {}, {}};
            const Path path = pathOf(way, *picture.plate);
            clip(picture, path, trail);
            for (std::size_t k = 0; k < picture.streaks.size() && path.points.size() > 1; ++k) {
                StreakMatch match = matchOf(picture, path, picture.streaks[k], arcminPerPixel);
                match.streak = k;
                const bool better = !trail.match || match.misfit() < trail.match->misfit();
                if (better && match.misfit() < worstMisfit && std::abs(match.ahead) <= picture.slackSeconds)
                    trail.match = match;
            }
            if (!trail.line.empty() || trail.match)
                all.push_back(std::move(trail));
        }
    };
    Entries entries(record.get(), elements.get());
    shareEntries<std::vector<Way>>(
        entries, record.get(), onlySlot, [&](WinpData* own) { return waysOf(own, query, book); }, take);
    std::ranges::stable_sort(all, {}, [](const PictureTrail& t) { return t.match ? t.match->misfit() : 1e9; });
    return all;
}
