#include "app/record/wout_data.h"

#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace {
TEST(ReportBuffer, KeepsMarksApartFromText)
{
    const auto out = std::make_unique<WoutData>();
    PutNxtLn(out.get(), "1,5 (12,3)");
    PutNxtLnT(out.get(), "a table line");
    PutSpace(out.get());
    ASSERT_EQ(out->nlines, 3);
    EXPECT_EQ(lineText(*out, 0), "1.5 (12,3)");
    EXPECT_FALSE(isTableLine(*out, 0));
    EXPECT_EQ(lineText(*out, 1), "a table line");
    EXPECT_TRUE(isTableLine(*out, 1));
    EXPECT_EQ(lineText(*out, 2), " ");
}

TEST(ReportBuffer, CutsLongLinesBeforeTheMark)
{
    const auto out = std::make_unique<WoutData>();
    const std::string tildes(200, '~');
    PutNxtLn(out.get(), tildes.c_str());
    EXPECT_EQ(lineText(*out, 0).size(), 76U);
    EXPECT_FALSE(isTableLine(*out, 0));
    PutNxtLnT(out.get(), tildes.c_str());
    EXPECT_EQ(lineText(*out, 1).size(), 75U);
    EXPECT_TRUE(isTableLine(*out, 1));
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
