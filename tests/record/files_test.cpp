#include "record/files.h"

#include "scratch_dir.h"

#include <QDir>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {
TEST(Files, LinesComeWholeWithTheirEnds)
{
    const ScratchDir here;
    const std::string lines[] = {std::string(10000, 'x') + "\n", "\n", std::string("a\0b\n", 4), "end"};
    ScratchDir::write("text", lines[0] + lines[1] + lines[2] + lines[3]);
    const FilePtr file = openForReading("text");
    std::string line;
    for (const std::string& expected : lines) {
        ASSERT_TRUE(readLine(file.get(), line));
        EXPECT_EQ(line, expected);
    }
    EXPECT_FALSE(readLine(file.get(), line));
}

TEST(Files, OnlyRegularFilesAreRead)
{
    const ScratchDir here;
    ASSERT_TRUE(QDir().mkdir(QStringLiteral("directory")));
    ASSERT_EQ(::mkfifo("pipe", 0600), 0);
    for (const char* name : {"directory", "pipe", "/dev/zero", "absent"})
        EXPECT_FALSE(openForReading(name)) << name;
}

TEST(ReportFile, IsShownWhileItIsOpenAndStartsAnewOnce)
{
    const ScratchDir here;
    WinpData in;
    in.newsave = 1;
    for (int i = 0; i < 2; ++i) {
        const ReportFile report("satsave.txt", takeSaveMode(&in));
        ASSERT_TRUE(report);
        ASSERT_NE(outptr, nullptr);
        std::fputs("line\n", outptr);
    }
    EXPECT_EQ(outptr, nullptr);
    EXPECT_EQ(ScratchDir::read("satsave.txt"), "line\nline\n");
    in.newsave = 1;
    EXPECT_STREQ(takeSaveMode(&in), "w");
    const ReportFile failed("no/such/directory/satsave.txt", "w");
    EXPECT_FALSE(failed);
    EXPECT_EQ(outptr, nullptr);
}
}  // namespace
