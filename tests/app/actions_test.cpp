// The command surface: every action with its texts, the menus, the tool bar, what the status bar says and which
// commands stop a running plot.

#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QStatusBar>
#include <QToolBar>

#include "app/app_helper.h"

namespace {

/// The fields of the lines of a file of figures.
QList<QStringList> linesOf(const char* name)
{
    QList<QStringList> lines;
    for (const QString& line : QString(dataFile(name)).split('\n', Qt::SkipEmptyParts))
        if (!line.startsWith('#'))
            lines << line.split('|');
    return lines;
}

struct Row
{
    QString name, text, shortcut, icon, tip, message;
    bool stopsTheTimer;
    QString ending;
};

QList<Row> actionRows()
{
    QList<Row> rows;
    for (const QStringList& f : linesOf("actions.txt"))
        rows << Row{f[0], f[1], f[2], f[3], f[4], f[5], f[6] == "stops", f.value(7, "Ready.")};
    return rows;
}

constexpr auto iconFormat = QImage::Format_ARGB32_Premultiplied;

QImage drawing(const QAction* action)
{
    return action->icon().pixmap(22, 22).toImage().convertToFormat(iconFormat);
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
        const auto named = QRegularExpression("^(?!whatsThis).+");
        QCOMPARE(rows.size(), app->findChildren<QAction*>(named, Qt::FindDirectChildrenOnly).size());
        for (const Row& row : rows) {
            const QAction* a = action(row.name);
            QVERIFY2(a, qPrintable(row.name));
            QCOMPARE(QStringList({a->text(), a->shortcut().toString(), a->statusTip()}),
                     QStringList({row.text, row.shortcut, row.tip}));
            QCOMPARE(drawing(a), QImage(":/" + row.icon + ".png").convertToFormat(iconFormat));
            const QStringList help = a->whatsThis().split("\n\n");
            QVERIFY2(help.size() == 2 && help[1].size() > 20 && help[1].endsWith('.'), qPrintable(row.name));
            QVERIFY2(!help[0].contains('&') && !help[0].endsWith('.'), qPrintable(row.name));
        }
        QCOMPARE(action("whatsThis")->statusTip(), QString("What's This?"));
        QVERIFY(action("whatsThis")->whatsThis().size() > 20);
        QCOMPARE(drawing(action("whatsThis")), QImage(":/satpwhat.png").convertToFormat(iconFormat));
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

    void aCommandSaysWhatItDoesAndStopsAPlotIfItCalculates()
    {
        indata->satel = 91.0;  // no next satellites, which would start a plot of their own
        indata->dur = 0.01;
        QStringList said;
        connect(app->statusBar(), &QStatusBar::messageChanged, this, [&](const QString& text) { said << text; });
        for (const Row& row : rows) {
            if (row.name == "fileQuit")
                continue;
            action(row.name)->setEnabled(true);
            app->slotStopTime();
            app->slotPlotRT();
            QVERIFY(timer()->isActive());
            QCOMPARE(timer()->interval(), 980);
            said.clear();
            windows::answering([&] { action(row.name)->trigger(); }, {});
            QVERIFY2(timer()->isActive() != row.stopsTheTimer, qPrintable(row.name));
            if (!row.message.isEmpty())
                QCOMPARE(QStringList({said.value(0), said.last()}), QStringList({row.message, row.ending}));
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

private:
    const QList<Row> rows = actionRows();
};

QTEST_MAIN(ActionsTest)
#include "actions_test.moc"
