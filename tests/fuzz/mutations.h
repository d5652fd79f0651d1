// Changes to the bytes of a sample such as make good files bad.
#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace fuzz {

/// The same numbers for a seed with every compiler.
class Dice
{
public:
    explicit Dice(std::uint64_t seed) : engine(seed) {}

    /// 0 to n - 1; 0 for n of 0.
    std::size_t below(std::size_t n) { return n == 0 ? 0 : static_cast<std::size_t>(engine() % n); }
    bool oneIn(std::size_t n) { return below(n) == 0; }

private:
    std::mt19937_64 engine;
};

/// One change, or several, to one of the samples: bits, bytes, lines, numbers, words of the formats, pieces of other
/// samples. No longer than `longest` bytes.
std::string mutated(const std::vector<std::string>& samples, Dice& dice, std::size_t longest);

}  // namespace fuzz
