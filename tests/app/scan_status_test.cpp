// What the window shows while a long calculation has the program to itself, and how a person ends it.

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMessageBox>
#include <QStatusBar>
#include <QWindow>

#include "app/app_helper.h"
#include "record/wout_data.h"
#include "record_fields.h"
#include "scan/workers.h"

/// Notes the first text of a calculation that a status line is painted with, and does something then.
class StatusWatcher : public QObject
{
public:
    StatusWatcher(QStatusBar* line, std::function<void()> act) : bar(line), atFirst(std::move(act))
    {
        bar->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const QString message = bar->currentMessage();
        if (event->type() == QEvent::Paint && message.startsWith("Calculating: ") && first.isEmpty()) {
            first = message;
            atFirst();
        }
        return QObject::eventFilter(watched, event);
    }

    QString first;

private:
    QStatusBar* bar;
    std::function<void()> atFirst;
};

struct Road
{
    const char *what, *command, *fields;
    int workers, answers;  // dialogs that are accepted on the way
};

// No pass reaches the zenith of the rows that search without end.
constexpr Road roads[] = {
    {"all passes, alone", "calcAllSats", "dur=5", 1, 0},
    {"all passes, shared", "calcAllSats", "dur=5", 2, 0},
    {"all passes, one long entry", "calcAllSats", "dur=90000 satel=89.9999", 1, 0},
    {"all passes, long entries shared", "calcAllSats", "dur=90000 satel=89.9999", 2, 0},
    {"next satellites, alone", "inputNextSat", "", 1, 0},
    {"next satellites, shared", "inputNextSat", "", 2, 0},
    {"table of passes", "calcAOS", "dur=90000", 1, 0},
    {"table of passes, saved", "fileSave", "dur=90000", 1, 0},
    {"no pass", "calcAOS", "dur=90000 satel=89.9999", 1, 0},
    {"orbit track", "calcOrbitTrack", "dur=1000 tmstep=0.000694", 1, 1},
    {"matching", "calcMatch", "tm=400000 mxa=0.001 az=77 el=89", 1, 2},
    {"next pass", "plotNext", "dur=90000 satel=89.9999", 1, 0},
    {"numeric flight of years", "plotCurrent", "numflg=1 mjd=40000", 1, 0},
    {"last pass", "plotLast", "dur=90000 satel=89.9999", 1, 0},
};

/// Everything that a cancelled command leaves alone, to the last bit.
QByteArray records()
{
    QByteArray bytes;
    for (int slot = 0; slot < maxSatellites; ++slot)
        for (const double value : slotFields(*indata, slot))
            bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
    bytes += QByteArray::number(indata->satn) + ' ' + QByteArray::number(indata->prs) + ' ' +
             QByteArray::number(indata->newsave) + ' ' + QByteArray::number(indata->naos) + ' ' +
             QByteArray::number(indata->mjd, 'g', 17) + ' ' + QByteArray::number(indata->dspmd) +
             QByteArray(outdata->text[0], outdata->nlines * reportLineBytes);
    return bytes;
}

class ScanStatusTest : public AppTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { open(); }
    void cleanup()
    {
        setScanWorkers(0);
        close();
    }

    void aLongCalculationEndsByHand_data()
    {
        QTest::addColumn<int>("road");
        QTest::addColumn<bool>("byClosing");
        int number = 0;
        for (const Road& road : roads) {
            QTest::addRow("%s", road.what) << number << false;
            QTest::addRow("%s, closed", road.what) << number << true;
            ++number;
        }
    }
    void aLongCalculationEndsByHand()
    {
        QFETCH(const int, road);
        QFETCH(const bool, byClosing);
        const Road& way = roads[road];
        place->write("visual.txt", place->read("visual.txt").repeated(300));
        place->write("satsave.txt", "the old list\n");
        windows::select("ISS (ZARYA)");
        windows::observeAllFromVienna();
        setFields(*indata, way.fields, 0);
        indata->dspmd = 1;  // the map is on show: a plot would bring it up first
        setScanWorkers(way.workers);
        const QStringList files = QDir().entryList(QDir::AllEntries | QDir::Hidden);
        const QByteArray before = records();
        QVERIFY(app->statusBar()->isHidden());
        // a person who types, clicks and ends the calculation, as it comes from the display
        const StatusWatcher status(app->statusBar(), [&] {
            QWindow* handle = app->windowHandle();
            QCoreApplication::postEvent(handle, new QKeyEvent(QEvent::KeyPress, Qt::Key_H, Qt::NoModifier, "h"));
            QMetaObject::invokeMethod(action("helpQuick"), &QAction::trigger, Qt::QueuedConnection);
            if (byClosing)
                QCoreApplication::postEvent(handle, new QCloseEvent);
            else
                QCoreApplication::postEvent(handle, new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
        });
        bool openAtEnd = false;
        const std::vector<Answer> answers(way.answers, [](QDialog* dialog) {
            auto* box = qobject_cast<QMessageBox*>(dialog);
            box ? box->button(QMessageBox::Yes)->click() : dialog->accept();
        });
        const int boxes = windows::answering(
            [&] {
                action(way.command)->trigger();
                openAtEnd = app->isVisible();
                QTRY_VERIFY(app->statusBar()->isHidden());
                QTRY_COMPARE(app->isVisible(), !byClosing);
            },
            answers);
        QCOMPARE(boxes, way.answers);
        QVERIFY2(!status.first.isEmpty(), "nothing was told");
        QVERIFY(openAtEnd);
        QVERIFY(!timer()->isActive());
        QCOMPARE(app->statusBar()->currentMessage(), QString("Ended before it was done. Nothing has changed."));
        QCOMPARE(place->read("satsave.txt"), QByteArray("the old list\n"));
        QCOMPARE(QDir().entryList(QDir::AllEntries | QDir::Hidden), files);
        QVERIFY(records() == before);
    }
};

QTEST_MAIN(ScanStatusTest)
#include "scan_status_test.moc"
