#include "imaging/solver.h"

#include "record/progress.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <QTemporaryDir>

namespace {

/// Waits for the end of the process. @return  why it had to be killed
std::string wait(QProcess& process, double limitSeconds)
{
    constexpr int stepMilliseconds = 50;
    QElapsedTimer clock;
    clock.start();
    while (process.state() != QProcess::NotRunning && !process.waitForFinished(stepMilliseconds)) {
        const double seconds = double(clock.elapsed()) / 1000.0;
        const bool goesOn = tellProgress(plateSolver);
        if (goesOn && seconds < limitSeconds)
            continue;
        process.kill();
        process.waitForFinished();
        return goesOn ? "no solution was found within " + std::to_string(int(limitSeconds)) + " s" : "it was ended";
    }
    return {};
}

}  // namespace

bool hasPlateSolver()
{
    return !QStandardPaths::findExecutable(QString::fromLatin1(plateSolver)).isEmpty();
}

std::string solvePicture(const QString& picture, double limitSeconds)
{
    const LongCalculation calculation;
    const QString program = QStandardPaths::findExecutable(QString::fromLatin1(plateSolver));
    if (program.isEmpty())
        return std::string(plateSolver) + " of astrometry.net is not installed";
    const QFileInfo file(picture);
    const QTemporaryDir folder;  // takes all that the solver leaves besides
    const QString found = folder.filePath("found.wcs");
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, {"--overwrite", "--no-plots", "--new-fits", "none", "--dir", folder.path(), "--wcs", found,
                            "--cpulimit", QString::number(int(limitSeconds) + 1), file.absoluteFilePath()});
    if (!process.waitForStarted())
        return std::string(plateSolver) + " cannot be started";
    if (const std::string why = wait(process, limitSeconds); !why.empty())
        return why;
    if (!QFileInfo::exists(found))
        return "no solution was found";
    const QString beside = file.absolutePath() + '/' + file.completeBaseName() + ".wcs";
    QFile::remove(beside);
    return QFile::copy(found, beside) ? std::string() : "the file " + beside.toStdString() + " cannot be written";
}
