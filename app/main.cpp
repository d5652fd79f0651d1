// The process: a window, or an answer on standard output if the first word names a task.

#include <QApplication>
#include <QDir>
#include <QFont>
#include <QNetworkProxyFactory>
#include <algorithm>
#include <string>
#include <vector>

#include "app/vorlix_app.h"
#include "cli/command.h"

int main(int argc, char* argv[])
{
    const std::vector<std::string> words(argv + 1, argv + std::max(argc, 1));
    if (isCommand(words)) {
        const QCoreApplication command(argc, argv);
        return runCommand(words, processChannels(QCoreApplication::applicationDirPath()));
    }
    const QApplication application(argc, argv);
    QApplication::setFont(QFont("helvetica", 10));
    QNetworkProxyFactory::setUseSystemConfiguration(true);
    // Relative names, that of the configuration first of all, refer to the directory of the executable.
    QDir::setCurrent(QCoreApplication::applicationDirPath());
    auto* window = new VorlixApp;
    window->show();
    return QApplication::exec();
}
