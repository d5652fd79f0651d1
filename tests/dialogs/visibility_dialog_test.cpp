// The visibility dialog: which widgets show, and what comes back.

#include "dialogs/dialog_helper.h"
#include "dialogs/st_vis_dialog.h"

namespace {

struct Modes
{
    int sunmplt = -1, occflg = -1, iridflg = -1, flarflg = -1, flarmod = -9, flaryst = -1;
    bool eclflg = false, solflar = false, flrmgf = false, cylflg = false;
    double flrmgx = -1;

    bool operator==(const Modes&) const = default;
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
    m.flrmgx = -7.0 - 1.0 / 3.0;
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
        for (const int mode : {0, 1, 2, 3, 4, 5, 6}) {
            for (const int flarmod : {1, 2, -1, -2}) {
                Modes m = plain();
                m.occflg = mode <= 3 ? mode : 0;
                m.flarflg = mode == 4;
                m.iridflg = mode == 5 ? 3 : 0;
                m.eclflg = mode == 6;
                m.flarmod = flarmod;
                m.flaryst = m.sunmplt = flarmod < 0;
                m.solflar = m.flrmgf = flarmod == -2;
                m.cylflg = flarmod == -1;
                StVisDialog dialog;
                fill(dialog, m);
                QVERIFY(read(dialog) == m);
            }
        }
        StVisDialog both;
        Modes m = plain();
        m.solflar = m.cylflg = true;
        fill(both, m);
        QVERIFY(read(both).solflar && !read(both).cylflg);
    }

    void widgetsFollowTheModes()
    {
        const struct
        {
            const char *boxes, *visible;  // clicked from no mode with known surface and local attitude
        } cases[] = {
            {"", ""},
            {"occBox", "BODY smplotBox"},
            {"occBox moonButton", "BODY smplotBox"},
            {"occBox radecButton", "BODY SKY"},
            {"occBox radecButton sunButton", "BODY smplotBox"},
            {"flarBox", "knownBox localBox ystBox flrmagBox TURN"},
            {"flarBox flrmagBox", "knownBox localBox ystBox flrmagBox flrmxEdit flrmagLabel TURN"},
            {"flarBox localBox", "knownBox localBox flrmagBox SKY"},
            {"flarBox knownBox", "knownBox localBox ystBox cylBox"},
            {"flarBox flrmagBox knownBox", "knownBox localBox ystBox cylBox"},
            {"flarBox knownBox localBox", "knownBox localBox cylBox solfBox"},
            {"flarBox knownBox cylBox", "knownBox localBox ystBox cylBox TURN"},
            {"flarBox knownBox localBox cylBox", "knownBox localBox cylBox solfBox SKY"},
            {"iridBox", ""},
            {"eclBox", ""},
            {"occBox flarBox", "knownBox localBox ystBox flrmagBox TURN"},
            {"flarBox flarBox", ""},
        };
        for (const auto& c : cases) {
            StVisDialog dialog;
            fill(dialog, plain());
            QVERIFY(opened(dialog));
            for (const QString& box : QString(c.boxes).split(' ', Qt::SkipEmptyParts)) {
                click(dialog, box.toLatin1());
                QCoreApplication::sendPostedEvents();  // the layout moves what stands below
                QTest::qWait(1);
            }
            QString visible = c.visible;
            visible.replace("BODY", "occGroup sunButton moonButton radecButton");
            const bool inTheSky = visible.contains("SKY");
            for (const char* angles : {"SKY", "TURN"})
                visible.replace(angles, "yawEdit yawLabel pitchEdit pitchLabel");
            QCOMPARE(c.boxes + (": " + wrongOf(dialog, visible)), c.boxes + QString(": "));
            if (shown(dialog, "yawEdit")) {
                QCOMPARE(labelText(dialog, "yawLabel"), QString(inTheSky ? "R.A.(HH.MMSS):" : "Yaw (deg):"));
                QCOMPARE(labelText(dialog, "pitchLabel"), QString(inTheSky ? "Dec.(DDD.MMSS):" : "Pitch (deg):"));
            }
            for (const char* always : {"sunelEdit", "satelEdit", "visBox", "moonBox", "epochEdit", "occBox", "eclBox",
                                       "flarBox", "iridBox", "okButton", "cancelButton"})
                QVERIFY2(shown(dialog, always), always);
        }
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
};

QTEST_MAIN(VisibilityDialogTest)
#include "visibility_dialog_test.moc"
