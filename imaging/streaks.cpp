#include "imaging/streaks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>

namespace {

constexpr int mostColumns = 1000;
constexpr int blockSize = 32;
constexpr float leastSigma = 1.5f, mostSigma = 4.0f;
constexpr int angles = 540;

float medianOf(std::vector<float>& values)
{
    if (values.empty())
        return std::numeric_limits<float>::quiet_NaN();
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// The means of squares of pixels.
PixelField averaged(const PixelField& from, int factor)
{
    PixelField to;
    to.width = from.width / factor;
    to.height = from.height / factor;
    to.values.reserve(std::size_t(to.width) * std::size_t(to.height));
    for (int row = 0; row < to.height; ++row)
        for (int column = 0; column < to.width; ++column) {
            float sum = 0;
            int count = 0;
            for (int k = 0; k < factor * factor; ++k) {
                const float value = from.at(column * factor + k % factor, row * factor + k / factor);
                if (std::isfinite(value)) {
                    sum += value;
                    ++count;
                }
            }
            to.values.push_back(count > 0 ? sum / float(count) : std::numeric_limits<float>::quiet_NaN());
        }
    return to;
}

/// Takes off the medians of blocks, with straight lines between their middles.
void flatten(PixelField& field)
{
    const int columns = std::max(field.width / blockSize, 1), rows = std::max(field.height / blockSize, 1);
    std::vector<float> medians;
    for (int b = 0; b < columns * rows; ++b) {
        std::vector<float> values;
        const int left = b % columns * field.width / columns, right = (b % columns + 1) * field.width / columns;
        const int top = b / columns * field.height / rows, bottom = (b / columns + 1) * field.height / rows;
        for (int row = top; row < bottom; ++row)
            for (int column = left; column < right; ++column)
                if (std::isfinite(field.at(column, row)))
                    values.push_back(field.at(column, row));
        const float median = medianOf(values);
        medians.push_back(std::isfinite(median) ? median : 0.0f);
    }
    // beyond the middles of the outer blocks the lines go on
    const auto along = [](int at, int size, int parts) {
        return (float(at) + 0.5f) * float(parts) / float(size) - 0.5f;
    };
    const auto before = [](float place, int parts) {
        return std::clamp(int(std::floor(place)), 0, std::max(parts - 2, 0));
    };
    for (int row = 0; row < field.height; ++row)
        for (int column = 0; column < field.width; ++column) {
            const float x = along(column, field.width, columns), y = along(row, field.height, rows);
            const int i = before(x, columns), j = before(y, rows);
            const int right = std::min(i + 1, columns - 1), below = std::min(j + 1, rows - 1);
            const auto at = [&](int c, int r) { return medians[std::size_t(r * columns + c)]; };
            const float u = x - float(i), v = y - float(j);
            field.values[std::size_t(row) * std::size_t(field.width) + std::size_t(column)] -=
                (1 - v) * ((1 - u) * at(i, j) + u * at(right, j)) +
                v * ((1 - u) * at(i, below) + u * at(right, below));
        }
}

float noiseOf(const PixelField& field)
{
    constexpr float sigmaPerDeviation = 1.4826f;
    std::vector<float> sizes;
    for (const float value : field.values)
        if (std::isfinite(value))
            sizes.push_back(std::abs(value));
    return sigmaPerDeviation * medianOf(sizes);
}

/// A pixel above the noise.
struct Spot
{
    float x, y, weight;
};

std::vector<Spot> spotsOf(const PixelField& field, float noise)
{
    std::vector<Spot> spots;
    for (int row = 0; row < field.height; ++row)
        for (int column = 0; column < field.width; ++column) {
            const float significance = field.at(column, row) / noise;
            if (significance > leastSigma)
                spots.push_back({float(column), float(row), std::min(significance, mostSigma)});
        }
    return spots;
}

/// x c + y s = distance.
struct Line
{
    double c = 1, s = 0, distance = 0;
    double offOf(const Spot& spot) const { return double(spot.x) * c + double(spot.y) * s - distance; }
    double alongOf(const Spot& spot) const { return double(spot.y) * c - double(spot.x) * s; }
};

/// The lines with the most votes for each of some sectors of angles.
class Votes
{
public:
    Votes(int width, int height) : reach(int(std::hypot(width, height)) + 2), counts(std::size_t(angles * 2 * reach))
    {
        for (int a = 0; a < angles; ++a) {
            const double angle = a * std::numbers::pi / angles;
            cosines[std::size_t(a)] = float(std::cos(angle));
            sines[std::size_t(a)] = float(std::sin(angle));
        }
    }

    void add(const std::vector<Spot>& spots, float sign)
    {
        for (const Spot& spot : spots)
            for (std::size_t a = 0; a < angles; ++a) {
                const float distance = spot.x * cosines[a] + spot.y * sines[a];
                counts[a * std::size_t(2 * reach) + std::size_t(std::lround(distance) + reach)] += sign * spot.weight;
            }
    }

    Line best() const
    {
        const std::size_t at = std::size_t(std::max_element(counts.begin(), counts.end()) - counts.begin());
        const std::size_t a = at / std::size_t(2 * reach);
        return {double(cosines[a]), double(sines[a]), double(at % std::size_t(2 * reach)) - reach};
    }

private:
    int reach;
    std::vector<float> counts;
    std::array<float, angles> cosines{}, sines{};
};

/// The line through the spots near another one, by weighted least squares across it.
Line refined(const Line& line, const std::vector<Spot>& spots, double width, double from, double to)
{
    double n = 0, x = 0, y = 0, xx = 0, xy = 0, yy = 0;
    for (const Spot& spot : spots) {
        const double along = line.alongOf(spot);
        if (std::abs(line.offOf(spot)) > width || along < from || along > to)
            continue;
        const double w = double(spot.weight), px = double(spot.x), py = double(spot.y);
        n += w;
        x += w * px;
        y += w * py;
        xx += w * px * px;
        xy += w * px * py;
        yy += w * py * py;
    }
    if (n <= 0.0)
        return line;
    x /= n;
    y /= n;
    const double angle = 0.5 * std::atan2(2.0 * (xy / n - x * y), (xx / n - x * x) - (yy / n - y * y));
    const Line better{-std::sin(angle), std::cos(angle), -std::sin(angle) * x + std::cos(angle) * y};
    const double turn = better.c * line.c + better.s * line.s;
    return turn < 0.0 ? Line{-better.c, -better.s, -better.distance} : better;
}

/// A run of spots along a line.
struct Run
{
    double from = 0, to = 0;
    double length() const { return to - from; }
};

/// The mean light of three pixels across, in standard errors of one, at each step along a line; not a number outside.
std::vector<float> lightAlong(const PixelField& field, float noise, const Line& line, int reach)
{
    std::vector<float> light;
    for (int k = -reach; k < reach; ++k) {
        float sum = 0;
        int count = 0;
        for (int off = -1; off <= 1; ++off) {
            const int column = int(std::lround(line.c * (line.distance + off) - line.s * k));
            const int row = int(std::lround(line.s * (line.distance + off) + line.c * k));
            if (column < 0 || row < 0 || column >= field.width || row >= field.height)
                continue;
            const float value = field.at(column, row) / noise;
            sum += std::isfinite(value) ? std::clamp(value, -mostSigma, mostSigma) : 0.0f;
            ++count;
        }
        light.push_back(count > 0 ? sum / float(count) : std::numeric_limits<float>::quiet_NaN());
    }
    return light;
}

/// The interval with the largest sum of what lies above a level.
std::optional<std::pair<int, int>> brightest(const std::vector<float>& light, float level)
{
    float sum = 0, best = 0;
    int start = 0;
    std::optional<std::pair<int, int>> run;
    for (int i = 0; i < int(light.size()); ++i) {
        if (!std::isfinite(light[std::size_t(i)]))
            continue;
        if (sum <= 0.0f) {
            sum = 0;
            start = i;
        }
        sum += light[std::size_t(i)] - level;
        if (sum > best) {
            best = sum;
            run = {start, i};
        }
    }
    return run;
}

/// The part of a line that stands out; then that which keeps half of its light, so that no star beyond its end counts.
std::optional<Run> runOn(const PixelField& field, float noise, const Line& line)
{
    constexpr float leastLevel = 0.6f;
    const int reach = int(std::hypot(field.width, field.height)) + 1;
    const std::vector<float> light = lightAlong(field, noise, line, reach);
    auto run = brightest(light, leastLevel);
    if (!run)
        return std::nullopt;
    std::vector<float> inside;
    for (int i = run->first; i <= run->second; ++i)
        if (std::isfinite(light[std::size_t(i)]))
            inside.push_back(light[std::size_t(i)]);
    run = brightest(light, std::max(leastLevel, 0.5f * medianOf(inside)));
    return run ? std::optional(Run{double(run->first - reach), double(run->second - reach)}) : std::nullopt;
}

/// The signal over the noise of a strip of three pixels, and how dim its dimmest eighth is against the mean.
struct Strength
{
    double signal = 0, evenness = 0;
};

Strength strengthOf(const PixelField& field, float noise, const Line& line, const Run& run)
{
    constexpr std::size_t parts = 8;
    std::array<double, parts> sums{}, counts{};
    for (double k = run.from; k <= run.to; k += 1.0) {
        const auto part = std::min(std::size_t((k - run.from) / run.length() * double(parts)), parts - 1);
        for (int off = -1; off <= 1; ++off) {
            const int column = int(std::lround(line.c * (line.distance + off) - line.s * k));
            const int row = int(std::lround(line.s * (line.distance + off) + line.c * k));
            if (column < 0 || row < 0 || column >= field.width || row >= field.height)
                continue;
            const float value = field.at(column, row) / noise;
            if (!std::isfinite(value))
                continue;
            sums[part] += double(std::clamp(value, -mostSigma, mostSigma));
            counts[part] += 1.0;
        }
    }
    double sum = 0, count = 0, dimmest = mostSigma;
    for (std::size_t part = 0; part < parts; ++part) {
        sum += sums[part];
        count += counts[part];
        dimmest = std::min(dimmest, counts[part] > 0.0 ? sums[part] / counts[part] : 0.0);
    }
    return count > 0.0 && sum > 0.0 ? Strength{sum / std::sqrt(count), dimmest * count / sum} : Strength();
}

}  // namespace

std::vector<Streak> findStreaks(const PixelField& pixels, int most)
{
    constexpr double leastSignal = 9.0, leastEvenness = 0.35, leastPart = 0.05, width = 2.0, removed = 7.0;
    std::vector<Streak> streaks;
    const int factor = std::max((std::max(pixels.width, pixels.height) + mostColumns - 1) / mostColumns, 1);
    PixelField field = averaged(pixels, factor);
    if (field.width < blockSize || field.height < blockSize)
        return streaks;
    flatten(field);
    const float noise = noiseOf(field);
    if (!(noise > 0.0f))
        return streaks;
    std::vector<Spot> spots = spotsOf(field, noise);
    Votes votes(field.width, field.height);
    votes.add(spots, 1.0f);
    const double leastLength = leastPart * std::hypot(field.width, field.height);
    for (int attempt = 0; attempt < 3 * most && int(streaks.size()) < most; ++attempt) {
        Line line = votes.best();
        auto run = runOn(field, noise, line);
        for (int round = 0; round < 3 && run; ++round) {
            line = refined(line, spots, width, run->from, run->to);
            run = runOn(field, noise, line);
        }
        std::vector<Spot> taken, left;
        const double margin = run ? removed : 0.0;
        for (const Spot& spot : spots) {
            const double along = line.alongOf(spot);
            const bool on = std::abs(line.offOf(spot)) <= removed && run && along >= run->from - margin &&
                            along <= run->to + margin;
            (on ? taken : left).push_back(spot);
        }
        if (!run || taken.empty())
            break;
        votes.add(taken, -1.0f);
        spots = std::move(left);
        const Strength strength = strengthOf(field, noise, line, *run);
        if (run->length() < leastLength || strength.signal < leastSignal || strength.evenness < leastEvenness)
            continue;
        const auto pixelAt = [&](double k) {
            const double x = line.c * line.distance - line.s * k, y = line.s * line.distance + line.c * k;
            return PicturePoint{(x + 0.5) * factor + 0.5, (y + 0.5) * factor + 0.5};
        };
        streaks.push_back({pixelAt(run->from), pixelAt(run->to), strength.signal});
    }
    std::ranges::sort(streaks, {}, [](const Streak& s) { return -s.signal; });
    return streaks;
}
