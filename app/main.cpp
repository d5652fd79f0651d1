// The process: application, font, working directory, window.

#include <QApplication>
#include <QDir>
#include <QFont>

#include "app/vorlix_app.h"

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QApplication::setFont(QFont("helvetica", 10));
    // Relative names, that of the configuration first of all, refer to the directory of the executable.
    QDir::setCurrent(QCoreApplication::applicationDirPath());
    auto* window = new VorlixApp;
    window->show();
    return QApplication::exec();
}
