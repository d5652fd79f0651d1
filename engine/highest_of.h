// The instant of the greatest elevation among many of which bounds are known. For the engine alone.
#pragma once

#include <functional>
#include <limits>
#include <vector>

/// Keeps those instants that may be the first of the highest.
class HighestOf
{
public:
    /// Gives the elevation itself at an instant.
    using Find = std::function<double(double t)>;

    /// The next instant; the elevation lies between two figures, which are one if it is known. Not many are kept: `find`
    /// sorts them out.
    void add(double t, double least, double most, const Find& find);

    /// The first of the highest. There must be one.
    double instant(const Find& find);

    bool empty() const { return candidates.empty(); }

private:
    struct Candidate
    {
        double t, least, most;
    };

    void dropLower();

    std::vector<Candidate> candidates;
    double greatestLeast = -std::numeric_limits<double>::infinity();
};
