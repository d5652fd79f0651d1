#include "record/files.h"

#include "scratch_dir.h"

#include <QDir>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

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
        ASSERT_NE(outptr, nullptr);
        std::fputs("line\n", outptr);
        EXPECT_EQ(report.save(), "");
    }
    EXPECT_EQ(outptr, nullptr);
    EXPECT_EQ(ScratchDir::read("satsave.txt"), "line\nline\n");
    in.newsave = 1;
    EXPECT_STREQ(takeSaveMode(&in), "w");
    EXPECT_NE(ReportFile("no/such/directory/satsave.txt", "w").save(), "");
    EXPECT_EQ(outptr, nullptr);
}

TEST(WholeFile, IsReplacedOrStaysAndSaysWhy)
{
    const ScratchDir here;
    const std::string longText(100000, 'x');
    ASSERT_EQ(replaceFile("target", "old"), "");
    ASSERT_EQ(::chmod("target", 0640), 0);
    ASSERT_EQ(::symlink("target", "link"), 0);
    EXPECT_EQ(replaceFile("link", "new "), "");
    EXPECT_EQ(addToFile("link", longText), "");
    EXPECT_EQ(ScratchDir::read("target"), "new " + longText);
    struct stat status
    {};
    ASSERT_EQ(::lstat("link", &status), 0);
    EXPECT_TRUE(S_ISLNK(status.st_mode));
    ASSERT_EQ(::stat("target", &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
    ASSERT_TRUE(QDir().mkdir(QStringLiteral("folder")));
    for (const char* name : {"/dev/full", "folder", "no/such/folder/x"}) {
        EXPECT_NE(replaceFile(name, longText), "") << name;
        EXPECT_NE(addToFile(name, longText), "") << name;
    }
    // a disk that is full in the midst of the write
    struct rlimit before
    {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, SIG_IGN);
    const struct rlimit small
    {
        1000, before.rlim_max
    };
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const std::string why = replaceFile("target", longText);
    ::setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_NE(why, "");
    EXPECT_EQ(ScratchDir::read("target"), "new " + longText);
    EXPECT_EQ(QDir().entryList(QDir::Files | QDir::System).size(), 2);  // nothing lies beside
}
}  // namespace
