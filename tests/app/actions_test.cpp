// The command surface: every action with its texts, the menus, the tool bar, what the status bar says and which
// commands stop a running plot.

#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTextEdit>
#include <QToolBar>

#include "app/app_fixture.h"

using windows::answering;

namespace {

/// The fields of the lines of a file of figures.
QList<QStringList> linesOf(const char* name)
{
    QFile file(QStringLiteral(TEST_DATA "/app/") + QLatin1String(name));
    QList<QStringList> lines;
    if (file.open(QIODevice::ReadOnly))
        for (const QString& line : QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts))
            if (!line.startsWith('#'))
                lines << line.split('|');
    return lines;
}

struct Row
{
    QString name, text, shortcut, icon, tip, message;
    bool stopsTheTimer;
};

QList<Row> actionRows()
{
    QList<Row> rows;
    for (const QStringList& f : linesOf("actions.txt"))
        rows << Row{f[0], f[1], f[2], f[3], f[4], f[5], f[6] == "stops"};
    return rows;
}

QString namesOf(const QWidget* bar)
{
    QStringList names;
    for (const QAction* action : bar->actions())
        names << (action->isSeparator() ? QStringLiteral("-") : action->objectName());
    return names.join(QLatin1Char(' '));
}

}  // namespace

class ActionsTest : public AppTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        prepare();
        start();
    }
    void cleanup() { close(); }

    void everyActionHasItsTextsAndExplainsItself()
    {
        QCOMPARE(rows.size(), 51);
        for (const Row& row : rows) {
            const QAction* a = action(row.name);
            QVERIFY2(a, qPrintable(row.name));
            QCOMPARE(QStringList({a->text(), a->shortcut().toString(), a->statusTip()}),
                     QStringList({row.text, row.shortcut, row.tip}));
            const QImage drawn = a->icon().pixmap(22, 22).toImage();
            QVERIFY2(drawn.isNull() == row.icon.isEmpty(), qPrintable(row.name));
            if (!row.icon.isEmpty()) {
                const auto form = QImage::Format_ARGB32_Premultiplied;
                QCOMPARE(drawn.convertToFormat(form), QImage(":/" + row.icon + ".png").convertToFormat(form));
            }
            const QStringList help = a->whatsThis().split("\n\n");
            QVERIFY2(help.size() == 2 && help[1].size() > 20 && help[1].endsWith('.'), qPrintable(row.name));
            QVERIFY2(!help[0].contains('&') && !help[0].endsWith('.'), qPrintable(row.name));
        }
        QCOMPARE(action("whatsThis")->statusTip(), QString("What's This?"));
        QVERIFY(action("whatsThis")->whatsThis().size() > 20);
        QCOMPARE(app->windowIcon().actualSize({32, 32}), QSize(32, 32));
    }

    void actionsStandInTheirMenus()
    {
        const QList<QAction*> bar = app->menuBar()->actions();
        const QList<QStringList> menus = linesOf("menus.txt");
        QCOMPARE(bar.size() + 1, menus.size());
        for (qsizetype i = 0; i < bar.size(); ++i)
            QCOMPARE(QStringList({bar[i]->text(), namesOf(bar[i]->menu())}), menus[i]);
        QCOMPARE(namesOf(app->findChild<QToolBar*>("toolBar")), menus.last()[1]);
    }

    void theStatusBarNamesTheOperation()
    {
        const QHash<QString, QString> endings{{"fileOpen", "*** TLE file not selected ***"},
                                              {"fileSaveAs", "*** Save file not selected ***"},
                                              {"fileTLESaveAs", "*** TLE Save File not selected ***"},
                                              {"inputNextSat", "Failed to find next satellites."},
                                              {"inputDate", "Input cancelled."},
                                              {"inputLocation", "Input cancelled."},
                                              {"fileUpdate", "Online TLE file update"}};
        indata->satel = 91.0;  // no next satellites
        indata->dur = 0.01;
        for (const Row& row : rows) {
            QAction* a = action(row.name);
            if (row.name == "fileQuit" || row.message.isEmpty() || !a->isEnabled())
                continue;
            QStringList said;
            const auto listening =
                connect(app->statusBar(), &QStatusBar::messageChanged, [&](const QString& text) { said << text; });
            answering([&] { a->trigger(); }, {});
            disconnect(listening);
            QCOMPARE(said.value(0), row.message);
            app->slotStopTime();
            QCOMPARE(app->statusBar()->currentMessage(), endings.value(row.name, "Ready."));
        }
    }

    void commandsThatCalculateStopARunningPlot()
    {
        indata->satel = 91.0;  // else the next satellites start a plot of their own
        indata->dur = 0.01;
        for (const Row& row : rows) {
            if (row.name == "fileQuit")
                continue;
            action(row.name)->setEnabled(true);
            app->slotStopTime();
            app->slotPlotRT();
            QVERIFY(timer()->isActive());
            QCOMPARE(timer()->interval(), 980);
            answering([&] { action(row.name)->trigger(); }, {});
            QVERIFY2(timer()->isActive() != row.stopsTheTimer, qPrintable(row.name));
        }
    }

    void theTimerDrivesAPlot()
    {
        action("plotDelta")->trigger();
        const double begin = indata->mjd;
        QTRY_VERIFY(indata->mjd > begin + 10 * indata->tmstep);
        indata->dur = 0.001;
        action("plotDelta")->trigger();  // stops it
        QVERIFY(!timer()->isActive());
        action("plotDelta")->trigger();
        QTRY_VERIFY(!timer()->isActive());  // it ends by itself
        QVERIFY(indata->mjd <= begin + 0.001);
        QVERIFY(indata->mjd > begin + 0.001 - indata->tmstep);
    }

    void theManualHasItsChapters()
    {
        QString manual;
        answering([&] { action("helpQuick")->trigger(); }, {[&](QDialog* dialog) {
                      const auto* text = dialog->findChild<QTextEdit*>("textEdit1");
                      QVERIFY(text && text->isReadOnly() && text->textCursor().atStart());
                      manual = text->toPlainText();
                      windows::click(dialog, "okButton");
                  }});
        QFile file(":/vorlixHelp.txt");
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(manual, QString::fromUtf8(file.readAll()));
        qsizetype from = 0;
        const QList<QStringList> chapters = linesOf("chapters.txt");
        QCOMPARE(chapters.size(), 13);
        for (const QStringList& chapter : chapters) {
            from = manual.indexOf(QString("\n\n\n%1\n\n").arg(chapter[0]), from);
            QVERIFY2(from >= 0, qPrintable(chapter[0]));
        }
    }

private:
    QAction* action(const QString& name) const { return app->findChild<QAction*>(name); }

    const QList<Row> rows = actionRows();
};

QTEST_MAIN(ActionsTest)
#include "actions_test.moc"
