// The map dialog and the switch dialog.

#include "dialogs/dialog_helper.h"
#include "dialogs/st_map_dialog.h"
#include "dialogs/st_switch_dialog.h"
#include "record/text.h"
#include "record/winp_data.h"

namespace {

struct Map
{
    int mgrid = 0, mgrey = 0, skyprj = 0, mpnight = 0, skymap = 0, ra4d = 0, mfsz = 10, mapprj = 0;
    double skaz = 0, centmer = 0, frequ = 0;
    bool satsky = false, bf = false;

    bool operator==(const Map&) const = default;
};

void fill(StMapDialog& dialog, Map m, bool physicalMap)
{
    dialog.setParams(m.mgrid, m.mgrey, m.skyprj, m.mpnight, m.skymap, m.ra4d, m.skaz, m.satsky);
    dialog.setParamF(m.mfsz, m.bf, m.mapprj, m.centmer, m.frequ, physicalMap);
}

Map read(StMapDialog& dialog)
{
    Map m;
    dialog.getParams(m.mgrid, m.mgrey, m.skyprj, m.mpnight, m.skymap, m.ra4d, m.skaz, m.satsky);
    dialog.getParamF(m.mfsz, m.bf, m.mapprj, m.centmer, m.frequ);
    return m;
}

constexpr const char* ofTheWorld[] = {"gridGroup",  "gnoButton",    "g30Button",    "g10Button",    "mapGroup",
                                      "pstdButton", "pnorthButton", "psouthButton", "meridianEdit", "meridianLabel"};
constexpr const char* ofTheSky[] = {"satskyBox",  "skyGroup",    "zenithButton", "northButton",
                                    "eastButton", "southButton", "westButton",   "azimButton"};

}  // namespace

class MapDialogsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void buttonsGiveTheirValues()
    {
        const struct
        {
            int Map::*field;
            std::vector<const char*> names;
        } groups[] = {
            {&Map::mgrid, {"gnoButton", "g30Button", "g10Button"}},
            {&Map::mgrey, {"whiteButton", "greyButton", "blackButton"}},
            {&Map::mapprj, {"pstdButton", "pnorthButton", "psouthButton", "ppwmButton"}},
            {&Map::skyprj, {"zenithButton", "northButton", "eastButton", "southButton", "westButton", "azimButton"}}};
        for (const auto& group : groups) {
            for (int value = 0; value < static_cast<int>(group.names.size()); ++value) {
                const char* name = group.names[static_cast<std::size_t>(value)];
                StMapDialog typed, filled;
                Map start;
                start.skymap = group.field == &Map::skyprj ? 1 : 0;
                start.*group.field = value == 0 ? 1 : 0;  // another button first
                fill(typed, start, true);
                QVERIFY(opened(typed));
                click(typed, name);
                QVERIFY2(read(typed).*group.field == value, name);
                start.*group.field = value;
                fill(filled, start, true);
                QVERIFY2(button(filled, name)->isChecked(), name);
            }
        }
    }

    void settingsOfWorldAndSkyTakeTurns()
    {
        StMapDialog dialog;
        fill(dialog, {}, true);
        QVERIFY(opened(dialog));
        for (int round = 0; round < 2; ++round) {
            for (const char* name : ofTheWorld)
                QVERIFY2(shown(dialog, name), name);
            for (const char* name : ofTheSky)
                QVERIFY2(hidden(dialog, name), name);
            QVERIFY(shown(dialog, "ppwmButton"));
            QVERIFY(hidden(dialog, "azimEdit") && hidden(dialog, "azimLabel"));
            click(dialog, "skyBox");
            for (const char* name : ofTheWorld)
                QVERIFY2(hidden(dialog, name), name);
            for (const char* name : ofTheSky)
                QVERIFY2(shown(dialog, name), name);
            QVERIFY(hidden(dialog, "ppwmButton"));
            QVERIFY(hidden(dialog, "azimEdit") && hidden(dialog, "azimLabel"));
            button(dialog, "azimButton")->setChecked(true);
            QVERIFY(shown(dialog, "azimEdit") && shown(dialog, "azimLabel"));
            button(dialog, "zenithButton")->setChecked(true);
            click(dialog, "skyBox");
        }
    }

    void whatIsNotTouchedKeepsEveryBit()
    {
        for (const Map& m :
             {Map{2, 1, 5, 1, 1, 1, 12, 3, 33 + 1.0 / 3.0, 12 + 1.0 / 3.0, 145987500.1234567, true, true}, Map{}}) {
            StMapDialog dialog;
            fill(dialog, m, true);
            QVERIFY(read(dialog) == m);
        }
    }

    void thePhysicalMapNeedsItsImage()
    {
        Map m;
        m.mapprj = 3;
        StMapDialog with;
        fill(with, m, true);
        QVERIFY(shown(with, "ppwmButton"));
        QCOMPARE(read(with).mapprj, 3);
        StMapDialog without;
        fill(without, m, false);
        QVERIFY(hidden(without, "ppwmButton"));
        QCOMPARE(read(without).mapprj, 0);
    }

    void theDirectionWritesItsAzimuth()
    {
        const struct
        {
            const char* name;
            double azimuth;
        } cases[] = {{"northButton", 0},
                     {"eastButton", 90},
                     {"southButton", 180},
                     {"westButton", 270},
                     {"zenithButton", 270}};  // the last keeps what the one before has left
        Map m;
        m.skymap = 1;
        m.skyprj = 5;
        m.skaz = 33.25;
        StMapDialog dialog;
        fill(dialog, m, true);
        QCOMPARE(read(dialog).skaz, 33.25);
        QVERIFY(opened(dialog));
        for (const auto& c : cases) {
            click(dialog, c.name);
            QCOMPARE(read(dialog).skaz, c.azimuth);
        }

        Map east;
        east.skyprj = 2;
        StMapDialog turnedOn;
        fill(turnedOn, east, true);
        QVERIFY(opened(turnedOn));
        click(turnedOn, "skyBox");
        QCOMPARE(text(turnedOn, "azimEdit"), QString("90"));
        QVERIFY(hidden(turnedOn, "azimEdit"));
    }

    void switchShowsTheSelectedSatellites()
    {
        for (int i = 0; i < maxSatellites; ++i)
            assignField(indata->fsname[i], QString("SAT & %1").arg(i + 1).toStdString());
        for (const int satn : {0, 3, 10}) {
            StSwitchDialog dialog;
            dialog.setParams(0, 1, satn);
            for (int i = 1; i <= 10; ++i) {
                const QByteArray name = QString("satButton%1").arg(i).toLatin1();
                QCOMPARE(shown(dialog, name), i <= satn);
                QCOMPARE(hidden(dialog, name), i > satn);
                const QString digit = i < 10 ? QString("&%1 ").arg(i) : QString("1&0 ");
                if (i <= satn)
                    QCOMPARE(button(dialog, name)->text(), digit + QString("SAT && %1").arg(i));
            }
            QVERIFY(button(dialog, "relativeBox")->isChecked());
        }
    }

    void switchGivesTheCheckedSatellite()
    {
        StSwitchDialog dialog;
        dialog.setParams(1, 0, 10);
        QVERIFY(opened(dialog));
        int prs = -1;
        int rlm = -1;
        dialog.getParams(prs, rlm);
        QCOMPARE(prs, 1);
        QCOMPARE(rlm, 0);
        click(dialog, "satButton7");
        click(dialog, "relativeBox");
        dialog.getParams(prs, rlm);
        QCOMPARE(prs, 6);
        QCOMPARE(rlm, 1);
        QTest::keyClick(&dialog, Qt::Key_0, Qt::AltModifier);
        QTRY_VERIFY(button(dialog, "satButton10")->isChecked());
        dialog.getParams(prs, rlm);
        QCOMPARE(prs, 9);
        QTest::keyClick(&dialog, Qt::Key_C, Qt::AltModifier);
        QTRY_COMPARE(dialog.result(), int(QDialog::Accepted));
    }
};

QTEST_MAIN(MapDialogsTest)
#include "map_dialogs_test.moc"
