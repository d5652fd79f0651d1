// The visibility dialog: which widgets show, and what comes back.

#include "dialogs/dialog_helper.h"
#include "dialogs/st_vis_dialog.h"

namespace {

struct Modes
{
    int sunmplt = -1, occflg = -1, iridflg = -1, flarflg = -1, flarmod = -9, flaryst = -1;
    bool eclflg = false, solflar = false, flrmgf = false, cylflg = false;
    double flrmgx = -1;
};

Modes read(StVisDialog& dialog)
{
    Modes m;
    dialog.getParam2(m.sunmplt, m.occflg, m.iridflg, m.flarflg, m.flarmod, m.flaryst, m.eclflg, m.solflar, m.flrmgf,
                     m.flrmgx, m.cylflg);
    return m;
}

void fill(StVisDialog& dialog, const Modes& m)
{
    dialog.setParams(-6, 10, 2000, 12.5, 45.25, 1, 0);
    dialog.setParam2(m.sunmplt, m.occflg, m.iridflg, m.flarflg, m.flarmod, m.flaryst, m.eclflg, m.solflar, m.flrmgf,
                     m.flrmgx, m.cylflg);
}

Modes plain()
{
    Modes m;
    m.sunmplt = m.occflg = m.iridflg = m.flarflg = m.flaryst = 0;
    m.flarmod = 1;
    m.flrmgx = -7.5;
    return m;
}

/// All widgets that some state hides.
const QStringList& optional()
{
    static const QStringList names{"occGroup",    "sunButton", "moonButton", "radecButton", "smplotBox", "knownBox",
                                   "localBox",    "solfBox",   "ystBox",     "cylBox",      "flrmagBox", "flrmxEdit",
                                   "flrmagLabel", "yawEdit",   "yawLabel",   "pitchEdit",   "pitchLabel"};
    return names;
}

const QString body = "occGroup sunButton moonButton radecButton";
const QString angles = "yawEdit yawLabel pitchEdit pitchLabel";

/// Empty if just the given widgets show, else the first that does not.
QString wrongOf(const StVisDialog& dialog, const QString& expected)
{
    const QStringList names = expected.split(' ', Qt::SkipEmptyParts);
    for (const QString& name : optional()) {
        const QByteArray latin = name.toLatin1();
        if (names.contains(name) ? !shown(dialog, latin) : !hidden(dialog, latin))
            return name;
    }
    return {};
}

}  // namespace

class VisibilityDialogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void modesComeBack()
    {
        for (const QByteArray mode : {"none", "sun", "moon", "radec", "flare", "iridium", "eclipse"}) {
            for (const int flarmod : {1, 2, -1, -2}) {
                Modes m = plain();
                m.occflg = mode == "sun" ? 1 : mode == "moon" ? 2 : mode == "radec" ? 3 : 0;
                m.flarflg = mode == "flare" ? 1 : 0;
                m.iridflg = mode == "iridium" ? 3 : 0;
                m.eclflg = mode == "eclipse";
                m.flarmod = flarmod;
                StVisDialog dialog;
                fill(dialog, m);
                const Modes back = read(dialog);
                QCOMPARE(back.occflg, m.occflg);
                QCOMPARE(back.flarflg, m.flarflg);
                QCOMPARE(back.iridflg, m.iridflg);
                QCOMPARE(back.eclflg, m.eclflg);
                QCOMPARE(back.flarmod, flarmod);
                QCOMPARE(back.flrmgx, -7.5);
            }
        }
    }

    void widgetsFollowTheModes_data()
    {
        QTest::addColumn<QString>(
            "boxes");  // clicked one after the other, from no mode with known surface, local attitude
        QTest::addColumn<QString>("visible");
        QTest::newRow("no mode") << ""
                                 << "";
        QTest::newRow("Sun") << "occBox" << body + " smplotBox";
        QTest::newRow("Moon") << "occBox moonButton" << body + " smplotBox";
        QTest::newRow("position") << "occBox radecButton" << body + " " + angles;
        QTest::newRow("and back to the Sun") << "occBox radecButton sunButton" << body + " smplotBox";
        QTest::newRow("known, local") << "flarBox"
                                      << "knownBox localBox ystBox flrmagBox " + angles;
        QTest::newRow("known, inertial") << "flarBox localBox"
                                         << "knownBox localBox flrmagBox " + angles;
        QTest::newRow("unknown, local") << "flarBox knownBox"
                                        << "knownBox localBox ystBox cylBox";
        QTest::newRow("unknown, inertial") << "flarBox knownBox localBox"
                                           << "knownBox localBox cylBox solfBox";
        QTest::newRow("cylinder") << "flarBox knownBox cylBox"
                                  << "knownBox localBox ystBox cylBox " + angles;
        QTest::newRow("Iridium") << "iridBox"
                                 << "";
        QTest::newRow("eclipse") << "eclBox"
                                 << "";
        QTest::newRow("flares after a transit") << "occBox flarBox"
                                                << "knownBox localBox ystBox flrmagBox " + angles;
        QTest::newRow("switched off again") << "flarBox flarBox"
                                            << "";
    }

    void widgetsFollowTheModes()
    {
        QFETCH(QString, boxes);
        QFETCH(QString, visible);
        StVisDialog dialog;
        fill(dialog, plain());
        QVERIFY(opened(dialog));
        for (const QString& box : boxes.split(' ', Qt::SkipEmptyParts)) {
            click(dialog, box.toLatin1());
            QCoreApplication::sendPostedEvents();  // the layout moves what stands below
            QTest::qWait(1);
        }
        QCOMPARE(wrongOf(dialog, visible), QString());
        for (const char* always : {"sunelEdit", "satelEdit", "visBox", "moonBox", "epochEdit", "occBox", "eclBox",
                                   "flarBox", "iridBox", "okButton", "cancelButton"})
            QVERIFY2(shown(dialog, always), always);
    }

    void modesExcludeEachOther()
    {
        const char* const modes[] = {"occBox", "flarBox", "iridBox", "eclBox"};
        for (const char* first : modes) {
            for (const char* second : modes) {
                if (first == second)
                    continue;
                StVisDialog dialog;
                fill(dialog, plain());
                button(dialog, first)->setChecked(true);
                button(dialog, second)->setChecked(true);
                for (const char* mode : modes)
                    QCOMPARE(button(dialog, mode)->isChecked(), mode == second);
            }
        }
    }

    void anglesAreNamedAfterTheirUse()
    {
        const struct
        {
            const char* what;
            int occflg, flarflg, flarmod;
            bool cylflg;
            const char *yaw, *pitch;
        } cases[] = {
            {"position in the sky", 3, 0, 1, false, "R.A.(HH.MMSS):", "Dec.(DDD.MMSS):"},
            {"local attitude", 0, 1, 1, false, "Yaw (deg):", "Pitch (deg):"},
            {"inertial attitude", 0, 1, 2, false, "R.A.(HH.MMSS):", "Dec.(DDD.MMSS):"},
            {"local cylinder", 0, 1, -1, true, "Yaw (deg):", "Pitch (deg):"},
            {"inertial cylinder", 0, 1, -2, true, "R.A.(HH.MMSS):", "Dec.(DDD.MMSS):"},
        };
        for (const auto& c : cases) {
            Modes m = plain();
            m.occflg = c.occflg;
            m.flarflg = c.flarflg;
            m.flarmod = c.flarmod;
            m.cylflg = c.cylflg;
            StVisDialog dialog;
            fill(dialog, m);
            QVERIFY2(shown(dialog, "yawEdit"), c.what);
            QCOMPARE(labelText(dialog, "yawLabel"), QString(c.yaw));
            QCOMPARE(labelText(dialog, "pitchLabel"), QString(c.pitch));
        }
    }
};

QTEST_MAIN(VisibilityDialogTest)
#include "visibility_dialog_test.moc"
