#include "app/record/files.h"

#include "scratch_dir.h"

#include <QDir>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {
TEST(Files, LinesComeWholeWithTheirEnds)
{
    const ScratchDir here;
    const std::string longLine(10000, 'x');
    ScratchDir::write("text", longLine + "\n\n" + std::string("a\0b\n", 4) + "end");
    const FilePtr file = openForReading("text");
    std::string line;
    ASSERT_TRUE(readLine(file.get(), line));
    EXPECT_EQ(line, longLine + "\n");
    ASSERT_TRUE(readLine(file.get(), line));
    EXPECT_EQ(line, "\n");
    ASSERT_TRUE(readLine(file.get(), line));
    EXPECT_EQ(line, std::string("a\0b\n", 4));
    ASSERT_TRUE(readLine(file.get(), line));
    EXPECT_EQ(line, "end");
    EXPECT_FALSE(readLine(file.get(), line));
}

TEST(Files, OnlyRegularFilesAreRead)
{
    const ScratchDir here;
    ASSERT_TRUE(QDir().mkdir(QStringLiteral("directory")));
    EXPECT_FALSE(openForReading("directory"));
    ASSERT_EQ(::mkfifo("pipe", 0600), 0);
    EXPECT_FALSE(openForReading("pipe"));
    EXPECT_FALSE(openForReading("/dev/zero"));
    EXPECT_FALSE(openForReading("absent"));
}

TEST(ReportFile, IsShownWhileItIsOpen)
{
    const ScratchDir here;
    {
        const ReportFile report("satsave.txt", "w");
        ASSERT_TRUE(report);
        ASSERT_NE(outptr, nullptr);
        std::fputs("line\n", outptr);
    }
    EXPECT_EQ(outptr, nullptr);
    EXPECT_EQ(ScratchDir::read("satsave.txt"), "line\n");
    const ReportFile failed("no/such/directory/satsave.txt", "w");
    EXPECT_FALSE(failed);
    EXPECT_EQ(outptr, nullptr);
}

TEST(SaveRule, StartsAnewOnce)
{
    WinpData in;
    in.newsave = 1;
    EXPECT_STREQ(takeSaveMode(&in), "w");
    EXPECT_STREQ(takeSaveMode(&in), "a");
}
}  // namespace
