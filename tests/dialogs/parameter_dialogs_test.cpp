// What the smaller dialogs do with their fields: date, place, launch site, maneuver.

#include <array>
#include <utility>

#include <QComboBox>

#include "dialogs/dialog_helper.h"
#include "dialogs/st_date_dialog.h"
#include "dialogs/st_delta_dialog.h"
#include "dialogs/st_launch_dialog.h"
#include "dialogs/st_obs_dialog.h"
#include "dialogs/st_orb_det_dialog.h"

namespace {

struct Date
{
    int year = -1, month = -1, day = -1, hour = -1, minute = -1, second = -1, tzauto = -1;
    double tzone = -1, dur = -1, rtoff = -1;
};

Date read(StDateDialog& dialog)
{
    Date d;
    dialog.getParams(d.year, d.month, d.day, d.hour, d.minute, d.second, d.tzone, d.tzauto, d.dur, d.rtoff);
    return d;
}

struct Place
{
    double lat = -1, lng = -1, height = -1;
    bool ddmm = false;
};

Place read(StObsDialog& dialog)
{
    Place p;
    dialog.getParams(p.lat, p.lng, p.height, p.ddmm);
    return p;
}

char siteName[] = "Observatory";

struct Launch
{
    int site = -1, south = -1;
    double lat = -1, lng = -1, cutoff = -1;
};

Launch read(StLaunchDialog& dialog)
{
    Launch l;
    dialog.getParams(l.site, l.lat, l.lng, l.south, l.cutoff);
    return l;
}

}  // namespace

class ParameterDialogsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void timeZoneIsTypedOnlyWithoutThatOfTheSystem()
    {
        StDateDialog dialog;
        dialog.setParams(2018, 1, 20, 18, 5, 9, 1.0, 1, 3.1, 0.0);
        QVERIFY(opened(dialog));
        QVERIFY(!edit(dialog, "tzoneEdit")->isEnabled());
        click(dialog, "systemBox");
        QVERIFY(edit(dialog, "tzoneEdit")->isEnabled());
        QCOMPARE(read(dialog).tzauto, 0);
        click(dialog, "systemBox");
        QVERIFY(!edit(dialog, "tzoneEdit")->isEnabled());
        QCOMPARE(read(dialog).tzauto, 1);
    }

    void placeComesBackInBothForms()
    {
        const double lat = 48.0 + 28.0 / 60.0 + 45.0 / 3600.0;
        StObsDialog dialog;
        dialog.setParams(lat, -lat, 500.0, siteName, true);
        QCOMPARE(text(dialog, "latEdit"), QString("48.2845"));
        QCOMPARE(text(dialog, "lngEdit"), QString("-48.2845"));
        QCOMPARE(text(dialog, "heightEdit"), QString("500"));
        QCOMPARE(dialog.getGeoname(), QString("Observatory"));
        Place p = read(dialog);
        QVERIFY(p.ddmm);
        QVERIFY(std::abs(p.lat - lat) < 1e-9);
        QVERIFY(std::abs(p.lng + lat) < 1e-9);
        QCOMPARE(p.height, 500.0);

        dialog.setParams(lat, 11.5, 500.0, siteName, false);
        QCOMPARE(text(dialog, "latEdit"), QString("48.4792"));
        p = read(dialog);
        QVERIFY(!p.ddmm);
        QCOMPARE(p.lat, 48.4792);
        QCOMPARE(p.lng, 11.5);
    }

    void placeIsConvertedOnceByTheButtonOfTheOtherForm()
    {
        StObsDialog dialog;
        dialog.setParams(48.5125, 120.5125, 500.0, siteName, false);
        QVERIFY(opened(dialog));
        for (int i = 0; i < 2; ++i) {  // the second click finds the button checked
            click(dialog, "ddmmButton");
            QCOMPARE(text(dialog, "latEdit"), QString("48.3045"));
            QCOMPARE(text(dialog, "lngEdit").trimmed(), QString("120.3045"));
        }
        click(dialog, "decButton");
        QCOMPARE(text(dialog, "latEdit"), QString("48.5125"));
        QCOMPARE(text(dialog, "lngEdit").trimmed(), QString("120.5125"));
        type(dialog, "latEdit", "95");  // no range check
        QCOMPARE(read(dialog).lat, 95.0);
    }

    void maneuverLabelFollowsTheThrust()
    {
        StDeltaDialog dialog;
        dialog.setParams(5.5, 10.0, -20.0, true, true, true, false);
        QVERIFY(opened(dialog));
        QVERIFY(shown(dialog, "ionBox") && shown(dialog, "sunBox") && shown(dialog, "epuBox"));
        QCOMPARE(labelText(dialog, "deltavLabel"), QString("&Acceleration (mm/s^2):"));
        click(dialog, "ionBox");
        QVERIFY(shown(dialog, "ionBox") && hidden(dialog, "sunBox") && hidden(dialog, "epuBox"));
        QCOMPARE(labelText(dialog, "deltavLabel"), QString("&Delta-V (m/sec):"));
        click(dialog, "ionBox");
        QVERIFY(shown(dialog, "sunBox") && shown(dialog, "epuBox"));
    }

    void launchSitesBringTheirCoordinates()
    {
        const struct
        {
            int index;
            const char* name;
            double lat, lng;
        } cases[] = {{1, "Kennedy Space Center", 28.6272, -80.6208},
                     {4, "Vandenberg", 34.7523, -120.615},  // six digits
                     {15, "Alcantara", -2.4, -44.4},
                     {20, "Kwajalein", 8.99, 167.72}};
        StLaunchDialog dialog;
        dialog.setParams(0, 48.5, 11.5, 0, 8.8);
        QVERIFY(opened(dialog));
        auto* sites = child<QComboBox>(dialog, "siteBox");
        QCOMPARE(sites->count(), 21);
        for (const auto& c : cases) {
            sites->setFocus();
            QTest::keyClick(sites, Qt::Key_Home);
            for (int i = 0; i < c.index; ++i)
                QTest::keyClick(sites, Qt::Key_Down);
            QCOMPARE(sites->currentText(), QString(c.name));
            QVERIFY(!edit(dialog, "latEdit")->isEnabled() && !edit(dialog, "lngEdit")->isEnabled());
            const Launch l = read(dialog);
            QCOMPARE(l.site, c.index);
            QCOMPARE(l.lat, c.lat);
            QVERIFY(std::abs(l.lng - c.lng) < 0.0006);
        }
        QTest::keyClick(sites, Qt::Key_Home);
        QVERIFY(edit(dialog, "latEdit")->isEnabled() && edit(dialog, "lngEdit")->isEnabled());
        QCOMPARE(read(dialog).site, 0);
    }

    void launchCancelReactsOnThePress()
    {
        StLaunchDialog dialog;
        QVERIFY(opened(dialog));
        dialog.setResult(-1);
        QTest::mousePress(button(dialog, "cancelButton"), Qt::LeftButton);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
    }

    void sightingsAreReversedWithTheirForms()
    {
        StOrbDetDialog dialog;
        dialog.setParams(12.5, 45.25, 13.5, 46.25, 60.5, 1, 0, false, false);
        QVERIFY(hidden(dialog, "picButton"));
        QCOMPARE(labelText(dialog, "az1Label"), QString("R.A.&1 (HH.MMSS):"));
        QCOMPARE(labelText(dialog, "el2Label"), QString("Elevation 2 (deg):"));
        QVERIFY(opened(dialog));
        click(dialog, "reverseButton");
        double az1 = 0, el1 = 0, az2 = 0, el2 = 0, dt = 0;
        int packed1 = 1, packed2 = 0;
        bool match = true;
        dialog.getParams(az1, el1, az2, el2, dt, packed1, packed2, match);
        QCOMPARE((std::array{az1, el1, az2, el2, dt}), (std::array{13.5, 46.25, 12.5, 45.25, 60.5}));
        QCOMPARE((std::pair{packed1, packed2}), (std::pair{0, 1}));
        QCOMPARE(labelText(dialog, "az1Label"), QString("Azimuth &1 (deg):"));
        QCOMPARE(labelText(dialog, "el2Label"), QString("Dec.2 (DD.MMSS):"));
    }
};

QTEST_MAIN(ParameterDialogsTest)
#include "parameter_dialogs_test.moc"
