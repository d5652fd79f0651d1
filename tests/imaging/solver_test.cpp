// The call of a plate solver: scripts that take its place.

#include "imaging/sky_picture.h"
#include "imaging/solver.h"
#include "scratch_dir.h"

#include <QElapsedTimer>
#include <QFile>

#include <gtest/gtest.h>

namespace {

/// A solver that does what a script says, first in the path.
void pretend(const std::string& script)
{
    ScratchDir::write("solve-field", "#!/bin/sh\n" + script);
    QFile::setPermissions("solve-field", QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST(Solver, LeavesItsSolutionBesideThePictureOrSaysWhyNot)
{
    const ScratchDir here;
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QDir::currentPath().toUtf8() + ":" + path);
    ScratchDir::write("night.jpg", "a picture");
    EXPECT_NE(solvePicture("night.jpg", 1.0).find("not installed"), std::string::npos);

    QElapsedTimer clock;
    clock.start();
    pretend("sleep 30\n");
    EXPECT_EQ(solvePicture("night.jpg", 1.0), "no solution was found within 1 s");
    EXPECT_LT(clock.elapsed(), 5000);
    pretend("exit 0\n");
    EXPECT_EQ(solvePicture("night.jpg", 5.0), "no solution was found");
    EXPECT_FALSE(QFile::exists("night.wcs"));

    // the value of --wcs is the eighth word
    pretend("cp " + std::string(TEST_DATA "/pictures/sip.wcs") + " \"$8\"\n");
    EXPECT_EQ(solvePicture("night.jpg", 5.0), "");
    const ReadPicture read = readPicture("night.jpg");
    EXPECT_EQ(bool(read.picture.plate), readsSolutions());
    EXPECT_EQ(read.picture.width, 6000);
    qputenv("PATH", path);
}

}  // namespace
