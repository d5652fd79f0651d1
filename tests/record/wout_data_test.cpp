#include "record/wout_data.h"

#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace {
TEST(ReportBuffer, KeepsMarksApartFromTextAndCutsBeforeThem)
{
    const auto out = std::make_unique<WoutData>();
    const std::string tildes(200, '~');
    PutNxtLn(out.get(), "1,5 (12,3)");
    PutNxtLnT(out.get(), "a table line");
    PutSpace(out.get());
    PutNxtLn(out.get(), tildes.c_str());
    PutNxtLnT(out.get(), tildes.c_str());
    const std::string expected[] = {"1.5 (12,3)", "a table line", " ", std::string(76, '~'), std::string(75, '~')};
    ASSERT_EQ(out->nlines, 5);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(lineText(*out, i), expected[i]);
        EXPECT_EQ((layoutOf(*out, i) == LineLayout::table), i == 1 || i == 4) << i;
    }
}

TEST(ReportBuffer, DropsWhatComesAfterLine160)
{
    const auto out = std::make_unique<WoutData>();
    for (int i = 0; i < 160; ++i)
        PutNxtLnT(out.get(), "line");
    const WoutData before = *out;
    PutNxtLn(out.get(), "one too many");
    PutNxtLnT(out.get(), "one too many");
    EXPECT_EQ(out->nlines, 160);
    EXPECT_EQ(std::memcmp(&before, out.get(), sizeof before), 0);
}
}  // namespace
