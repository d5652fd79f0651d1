// What the window shows and does while a scan has the program to itself.

#include <set>

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMessageBox>
#include <QStatusBar>
#include <QTimer>
#include <QWindow>

#include "app/app_fixture.h"
#include "engine/scan/workers.h"

using windows::answering;

/// Collects the messages that a status line is painted with.
class PaintedMessages : public QObject
{
public:
    explicit PaintedMessages(QStatusBar* line) : bar(line) { bar->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            messages.insert(bar->currentMessage());
        return QObject::eventFilter(watched, event);
    }

    std::set<QString> messages;

private:
    QStatusBar* bar;
};

/// A person who types, clicks and closes the window as soon as its status line names a satellite.
class ImpatientPerson : public QObject
{
public:
    ImpatientPerson(QMainWindow* shown, QAction* also) : window(shown), command(also)
    {
        window->statusBar()->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const bool named = window->statusBar()->currentMessage().startsWith("Searching: ");
        if (event->type() == QEvent::Paint && named && ++paints == 1)
            act();
        return QObject::eventFilter(watched, event);
    }

    int paints = 0;

private:
    void act()
    {
        // as they come from the display
        QWindow* handle = window->windowHandle();
        QCoreApplication::postEvent(handle, new QKeyEvent(QEvent::KeyPress, Qt::Key_H, Qt::NoModifier, "h"));
        QMetaObject::invokeMethod(command, &QAction::trigger, Qt::QueuedConnection);
        QCoreApplication::postEvent(handle, new QCloseEvent);
    }

    QMainWindow* window;
    QAction* command;
};

class ScanStatusTest : public AppTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { prepare(); }
    void cleanup()
    {
        setScanWorkers(0);
        close();
    }

    void aScanNamesTheSatelliteInWork()
    {
        start();
        action("viewStatusBar")->trigger();  // hidden at first
        app->show();
        QVERIFY(QTest::qWaitForWindowExposed(app.get()));
        const PaintedMessages painted(app->statusBar());
        std::set<QString> duringScan;
        const int boxes = answering([&] { action("calcAllSats")->trigger(); }, {[&](QDialog* box) {
                                        duringScan = painted.messages;
                                        box->accept();
                                    }});
        QCOMPARE(boxes, 1);
        QVERIFY(duringScan.count("Searching: ATLAS CENTAUR 2") == 1);
        QCOMPARE(app->statusBar()->currentMessage(), QString("Ready."));
    }

    void aClosedWindowEndsTheScan_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<int>("workers");
        QTest::newRow("all passes, alone") << "calcAllSats" << 1;
        QTest::newRow("all passes, shared") << "calcAllSats" << 2;
        QTest::newRow("next satellites, alone") << "inputNextSat" << 1;
        QTest::newRow("next satellites, shared") << "inputNextSat" << 2;
    }
    void aClosedWindowEndsTheScan()
    {
        QFETCH(const QString, command);
        QFETCH(const int, workers);
        place->write("visual.txt", place->read("visual.txt").repeated(300));
        place->write("satsave.txt", "the old list\n");
        start();
        windows::observeAllFromVienna();
        action("viewStatusBar")->trigger();
        app->show();
        QVERIFY(QTest::qWaitForWindowExposed(app.get()));
        setScanWorkers(workers);
        const QStringList files = QDir().entryList(QDir::AllEntries | QDir::Hidden);
        const ImpatientPerson person(app.get(), action("helpQuick"));
        bool openAtEnd = false;
        const int boxes = answering(
            [&] {
                action(command.toUtf8().constData())->trigger();
                openAtEnd = app->isVisible();
                QTRY_VERIFY(!app->isVisible());
            },
            {});
        QCOMPARE(boxes, 0);
        QCOMPARE(person.paints, 1);
        QVERIFY(openAtEnd);
        QVERIFY(!timer()->isActive());
        QCOMPARE(place->read("satsave.txt"), QByteArray("the old list\n"));
        QCOMPARE(QDir().entryList(QDir::AllEntries | QDir::Hidden), files);
    }
};

QTEST_MAIN(ScanStatusTest)
#include "scan_status_test.moc"
