// The verification set of AIAA 2006-6753, all 33 cases over their whole span.

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "verification_helper.h"

namespace {

constexpr double always = -std::numeric_limits<double>::infinity();
constexpr double never = std::numeric_limits<double>::infinity();

/// From `from` minutes on, a case does not follow the published states, which a later form of the procedures made.
struct Exception
{
    int norad;
    double from;
    const char* why;
};

constexpr Exception exceptions[] = {
    {20413, 811568.5988, "the mean inclination passes zero"},
    {25954, 273.2048, "the mean inclination passes zero"},
    {26900, 9312.0219, "the mean inclination passes zero"},
    {28626, 1125.1870, "the mean inclination passes zero"},
    {33335, always, "the later form raises the eccentricity of 4e-7 to 1e-6, and the mean inclination passes zero"},
    {33334, always, "the published line repeats the last of the case before it"},
};

/// Compares the states of a block before a time; tells how many they are.
std::size_t expectStates(const VerificationElements& set, const VerificationStates& block, double before,
                         ModelForm form = ModelForm::early)
{
    constexpr double printedKm = 5e-9;  // half the last digit of a position in the file
    SCOPED_TRACE(set.norad);
    elsetrec sat;
    initVerification(set, sat);
    double sum = 0, allowed = 0;
    std::size_t rows = 0;
    for (const VerificationState& expected : block.rows) {
        if (expected.t >= before)
            continue;
        double r[3] = {}, v[3] = {}, largest = 0;
        EXPECT_EQ(sgp4(wgs72, sat, expected.t, r, v, form), 0) << expected.t;
        for (int k = 0; k < 3; ++k) {
            largest = std::max(largest, std::abs(r[k] - expected.r[k]));
            EXPECT_NEAR(v[k], expected.v[k], 1e-9) << expected.t;
        }
        // the way within the last digit of the time, which shows after years
        const double rounding = std::hypot(v[0], v[1], v[2]) * std::abs(expected.t) * 60.0 * 0x1p-53;
        EXPECT_LT(largest, 3 * printedKm + rounding) << expected.t;
        sum += largest;
        allowed += printedKm + rounding;
        ++rows;
    }
    EXPECT_LE(sum, allowed);
    return rows;
}

TEST(Sgp4Verification, AgreesWithThePublishedStates)
{
    const std::vector<VerificationElements> sets = verificationElements();
    const std::vector<VerificationStates> blocks = verificationStates("expected_wgs72.txt");
    ASSERT_EQ(sets.size(), 33u);
    ASSERT_EQ(blocks.size(), sets.size());
    std::size_t compared = 0;
    for (std::size_t i = 0; i < sets.size(); ++i) {
        ASSERT_EQ(blocks[i].norad, sets[i].norad);
        const auto* const exception = std::find_if(std::begin(exceptions), std::end(exceptions),
                                                   [&](const Exception& e) { return e.norad == sets[i].norad; });
        compared += expectStates(sets[i], blocks[i], exception == std::end(exceptions) ? never : exception->from);
    }
    EXPECT_EQ(compared, 509u);
}

TEST(Sgp4Verification, NeedsNoExceptionInThePublishedForm)
{
    const std::vector<VerificationStates> blocks = verificationStates("expected_wgs72.txt");
    std::size_t compared = 0;
    for (const VerificationStates& block : blocks)
        if (block.norad != 33334)
            compared += expectStates(setOf(verificationElements(), block.norad), block, never, ModelForm::published);
    EXPECT_EQ(compared, 666u);
}

TEST(Sgp4Verification, TurnsANegativeInclinationRoundAndKeepsASmallEccentricity)
{
    // the states of the exceptions, from an independent program with the two rules of this form
    const std::vector<VerificationStates> blocks = verificationStates("expected_early_form.txt");
    ASSERT_EQ(blocks.size(), 5u);
    for (const VerificationStates& block : blocks)
        EXPECT_GT(expectStates(setOf(verificationElements(), block.norad), block, never), 0u);
    for (const Exception& e : exceptions) {
        const elsetrec sat = loadedSet(e.norad);
        if (e.from != always) {
            EXPECT_NEAR(-sat.inclo / sat.didt, e.from, 1e-4) << e.norad << ": " << e.why;
        }
    }
}

/// The time from which `sgp4` returns another code than before; 0 stands before the first.
using CodeChanges = std::vector<std::pair<double, int>>;

CodeChanges codesOver(const VerificationElements& set, elsetrec& sat)
{
    CodeChanges changes;
    int before = 0;
    const int steps = static_cast<int>(std::ceil((set.stop - set.start) / set.step - 1e-9));
    for (int i = 0; i <= steps; ++i) {
        const double t = std::min(set.start + i * set.step, set.stop);
        double r[3], v[3];
        const int code = sgp4(wgs72, sat, t, r, v);
        if (code != before)
            changes.emplace_back(t, code);
        before = code;
    }
    return changes;
}

// No error ends a call here, so a later check overwrites the code: the published form stops 22312 and 28350 at their
// first code 1 and gives 33333 the code 4, 33334 the code 3.
TEST(Sgp4Verification, FailsWhereThisFormFailsAndNowhereElse)
{
    const std::map<int, CodeChanges> failing{
        {22312, {{494.2028672, 1}, {634.2028672, 6}}},
        {28350, {{1560, 1}, {2520, 6}}},
        {28872, {{55, 6}}},
        {29141, {{440, 6}}},
        {33333, {{25, 6}, {50, 0}, {85, 6}, {115, 0}, {145, 6}}},
        {33334, {{0, 6}}},
        {20413, {{1844345, 6}, {1844365, 0}}},
    };
    for (const VerificationElements& set : verificationElements()) {
        SCOPED_TRACE(set.norad);
        elsetrec sat;
        const bool inside = set.norad == 28872 || set.norad == 33333;
        EXPECT_EQ(initVerification(set, sat), inside ? 5 : set.norad == 33334 ? 6 : 0);
        // 20413 stands twice, near its epoch and years later
        const bool fails = failing.contains(set.norad) && (set.norad != 20413 || set.start > 1e6);
        EXPECT_EQ(codesOver(set, sat), fails ? failing.at(set.norad) : CodeChanges{});
    }
}

}  // namespace
