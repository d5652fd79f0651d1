// The base of the tests of the main window: a folder of its own, a clock that stands, the window and its actions.
#pragma once

#include <memory>

#include <QAction>

#include "app/vorlix_app.h"
#include "view/vorlix_view.h"
#include "view/window_helper.h"

class AppTest : public QObject
{
protected:
    void prepare()
    {
        windows::stopTheClock();
        place = std::make_unique<windows::Workplace>();
    }

    /// The window as the program makes it at its start.
    void start()
    {
        app.reset();
        app = std::make_unique<VorlixApp>();
    }

    /// The same, on show.
    void open()
    {
        prepare();
        start();
        app->show();
    }

    void close()
    {
        app.reset();
        place.reset();
    }

    QAction* action(const char* name) const { return app->findChild<QAction*>(QLatin1String(name)); }
    QTimer* timer() const { return app->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly); }

    /// Answers a file dialog by this file.
    static void chooseFile(QDialog* dialog, const QString& file)
    {
        auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
        name->setText(file);
        QTest::keyClick(name, Qt::Key_Return);
    }

    std::unique_ptr<windows::Workplace> place;
    std::unique_ptr<VorlixApp> app;
};
