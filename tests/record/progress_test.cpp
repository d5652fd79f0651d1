#include "record/progress.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

namespace {

TEST(Progress, EndsAScopeOnAllThreadsAndNoFurther)
{
    std::vector<std::string> told;
    setProgressListener([&](std::string_view what) {
        told.emplace_back(what);
        EXPECT_TRUE(tellProgress("from the listener"));
        return false;
    });
    EXPECT_TRUE(tellProgress("outside"));
    {
        const LongCalculation outer;
        {
            const LongCalculation part;
            std::thread([] {
                const LongCalculation notTheirs;
                EXPECT_TRUE(tellProgress("of another thread"));
            }).join();
            EXPECT_FALSE(calculationEnded());
            EXPECT_FALSE(tellProgress("inside"));
        }
        EXPECT_TRUE(calculationEnded());
        std::thread([] { EXPECT_FALSE(tellProgress()); }).join();
    }
    EXPECT_TRUE(tellProgress());
    setProgressListener({});
    EXPECT_EQ(told, std::vector<std::string>{"inside"});
}

TEST(Progress, IsToldAFewTimesInASecond)
{
    int times = 0;
    setProgressListener([&](std::string_view) { return ++times > 0; });
    const LongCalculation calculation;
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(400);
    while (std::chrono::steady_clock::now() < end)
        EXPECT_TRUE(tellProgress());
    setProgressListener({});
    EXPECT_GE(times, 1);
    EXPECT_LE(times, 3);
}

}  // namespace
