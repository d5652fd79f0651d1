// What the window shows and does while a scan has the program to itself.

#include <set>

#include <QCloseEvent>
#include <QKeyEvent>
#include <QStatusBar>
#include <QWindow>

#include "app/app_helper.h"
#include "scan/workers.h"

/// Collects the names that a status line is painted with, and does something at the first.
class StatusWatcher : public QObject
{
public:
    explicit StatusWatcher(
        QStatusBar* line, std::function<void()> act = [] {})
        : bar(line), atFirstName(std::move(act))
    {
        bar->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const QString message = bar->currentMessage();
        if (event->type() == QEvent::Paint && message.startsWith("Searching: ") && names.insert(message).second &&
            names.size() == 1)
            atFirstName();
        return QObject::eventFilter(watched, event);
    }

    std::set<QString> names;

private:
    QStatusBar* bar;
    std::function<void()> atFirstName;
};

class ScanStatusTest : public AppTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        open();
        choose("viewStatusBar");  // hidden at first
    }
    void cleanup()
    {
        setScanWorkers(0);
        close();
    }

    void aScanNamesTheSatelliteInWork()
    {
        const StatusWatcher status(app->statusBar());
        std::set<QString> duringScan;
        choose("calcAllSats", {[&](QDialog* box) {
                   duringScan = status.names;
                   box->accept();
               }});
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
        windows::observeAllFromVienna();
        setScanWorkers(workers);
        const QStringList files = QDir().entryList(QDir::AllEntries | QDir::Hidden);
        // a person who types, clicks and closes the window, as it comes from the display
        const StatusWatcher status(app->statusBar(), [this] {
            QWindow* handle = app->windowHandle();
            QCoreApplication::postEvent(handle, new QKeyEvent(QEvent::KeyPress, Qt::Key_H, Qt::NoModifier, "h"));
            QMetaObject::invokeMethod(action("helpQuick"), &QAction::trigger, Qt::QueuedConnection);
            QCoreApplication::postEvent(handle, new QCloseEvent);
        });
        bool openAtEnd = false;
        const int boxes = windows::answering(
            [&] {
                action(command)->trigger();
                openAtEnd = app->isVisible();
                QTRY_VERIFY(!app->isVisible());
            },
            {});
        QCOMPARE(boxes, 0);
        QCOMPARE(status.names.size(), 1U);
        QVERIFY(openAtEnd);
        QVERIFY(!timer()->isActive());
        QCOMPARE(place->read("satsave.txt"), QByteArray("the old list\n"));
        QCOMPARE(QDir().entryList(QDir::AllEntries | QDir::Hidden), files);
    }
};

QTEST_MAIN(ScanStatusTest)
#include "scan_status_test.moc"
