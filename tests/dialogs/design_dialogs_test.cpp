// The small dialogs of orbit design: adjustment, maneuver, launch, two sightings, star.

#include <QComboBox>

#include "app/record/winp_data.h"
#include "dialogs/dialog_helper.h"
#include "dialogs/st_adj_dialog.h"
#include "dialogs/st_ast_dialog.h"
#include "dialogs/st_delta_dialog.h"
#include "dialogs/st_launch_dialog.h"
#include "dialogs/st_orb_det_dialog.h"

namespace {

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

struct Sightings
{
    double az1 = -1, el1 = -1, az2 = -1, el2 = -1, dt = -1;
    int packed1 = -1, packed2 = -1;
    bool match = false;
};

Sightings read(StOrbDetDialog& dialog)
{
    Sightings s;
    dialog.getParams(s.az1, s.el1, s.az2, s.el2, s.dt, s.packed1, s.packed2, s.match);
    return s;
}

}  // namespace

class DesignDialogsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void adjustmentComesBack();
    void maneuverKnowsThrustOnlyOfNumericSatellites();
    void maneuverLabelFollowsTheThrust();
    void maneuverReadsBadTexts();
    void launchSitesBringTheirCoordinates();
    void launchComesBack();
    void launchReadsBadTexts();
    void launchCancelReactsOnThePress();
    void sightingsComeBackAndNameTheirForm();
    void sightingsAreReversed();
    void sightingsComeFromThePicture();
    void sightingsReadBadTexts();
    void starFieldsStayEmptyForTwoZeros();
    void starDialogTellsOfAnAbort();
};

void DesignDialogsTest::adjustmentComesBack()
{
    StAdjDialog dialog;
    dialog.setParams(true, false, -12.5, 14.34215, 0.25, 1);
    QCOMPARE(text(dialog, "n0Edit"), QString(" 14.34215000"));
    QCOMPARE(text(dialog, "timEdit"), QString("-12.5"));
    QCOMPARE(text(dialog, "raEdit"), QString("   0.2500"));
    QVERIFY(opened(dialog));
    for (const char* box : {"sdp4Box", "adjBox", "wgsBox"})
        click(dialog, box);
    bool sdp4 = true, on = false;
    double seconds = 0, n0 = 0, ra = 0;
    int wgs = 1;
    dialog.getParams(sdp4, on, seconds, n0, ra, wgs);
    QVERIFY(!sdp4 && on);
    QCOMPARE(wgs, 0);
    QCOMPARE(seconds, -12.5);
    QCOMPARE(n0, 14.34215);
    QCOMPARE(ra, 0.25);
    for (const BadText& c : badTexts) {
        for (const char* name : {"n0Edit", "timEdit", "raEdit"})
            type(dialog, name, c.typed);
        dialog.getParams(sdp4, on, seconds, n0, ra, wgs);
        for (const double x : {seconds, n0, ra})
            QCOMPARE(x, c.number);
    }
}

void DesignDialogsTest::maneuverKnowsThrustOnlyOfNumericSatellites()
{
    StDeltaDialog dialog;
    dialog.setParams(5.5, 10.0, -20.0, true, true, false, true);
    for (const char* box : {"ionBox", "sunBox", "epuBox"})
        QVERIFY2(hidden(dialog, box), box);
    QCOMPARE(labelText(dialog, "deltavLabel"), QString("&Delta-V (m/sec):"));
    double dv = 0, yaw = 0, pitch = 0;
    bool ion = false, sun = false, epu = false;
    dialog.getParams(dv, yaw, pitch, ion, sun, epu);
    QCOMPARE(dv, 5.5);
    QCOMPARE(yaw, 10.0);
    QCOMPARE(pitch, -20.0);
    QVERIFY(ion && sun && epu);
}

void DesignDialogsTest::maneuverLabelFollowsTheThrust()
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

void DesignDialogsTest::maneuverReadsBadTexts()
{
    StDeltaDialog dialog;
    dialog.setParams(5.5, 10.0, -20.0, false, false, false, false);
    QVERIFY(opened(dialog));
    for (const BadText& c : badTexts) {
        for (const char* name : {"deltavEdit", "yawEdit", "pitchEdit"})
            type(dialog, name, c.typed);
        double dv = -1, yaw = -1, pitch = -1;
        bool ion = true, sun = true, epu = true;
        dialog.getParams(dv, yaw, pitch, ion, sun, epu);
        for (const double x : {dv, yaw, pitch})
            QCOMPARE(x, c.number);
    }
}

void DesignDialogsTest::launchSitesBringTheirCoordinates()
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

void DesignDialogsTest::launchComesBack()
{
    StLaunchDialog dialog;
    dialog.setParams(0, 48.5, 11.5, 1, 8.75);
    QVERIFY(edit(dialog, "latEdit")->isEnabled());
    Launch l = read(dialog);
    QCOMPARE(l.site, 0);
    QCOMPARE(l.lat, 48.5);
    QCOMPARE(l.lng, 11.5);
    QCOMPARE(l.south, 1);
    QCOMPARE(l.cutoff, 8.75);
    QVERIFY(opened(dialog));
    click(dialog, "northButton");
    QCOMPARE(read(dialog).south, 0);

    for (const int index : {-1, 21}) {  // no such site
        StLaunchDialog other;
        other.setParams(index, 48.5, 11.5, 0, 8.8);
        l = read(other);
        QCOMPARE(l.site, 0);
        QCOMPARE(l.lat, 48.5);
    }
    StLaunchDialog baikonur;
    baikonur.setParams(2, 45.92, 63.3423, 0, 8.8);
    QVERIFY(!edit(baikonur, "latEdit")->isEnabled());
    QCOMPARE(child<QComboBox>(baikonur, "siteBox")->currentText(), QString("Baikonur"));
}

void DesignDialogsTest::launchReadsBadTexts()
{
    StLaunchDialog dialog;
    dialog.setParams(0, 48.5, 11.5, 0, 8.8);
    QVERIFY(opened(dialog));
    for (const BadText& c : badTexts) {
        for (const char* name : {"latEdit", "lngEdit", "mecoEdit"})
            type(dialog, name, c.typed);
        const Launch l = read(dialog);
        for (const double x : {l.lat, l.lng, l.cutoff})
            QCOMPARE(x, c.number);
    }
}

void DesignDialogsTest::launchCancelReactsOnThePress()
{
    StLaunchDialog dialog;
    QVERIFY(opened(dialog));
    dialog.setResult(-1);
    QTest::mousePress(button(dialog, "cancelButton"), Qt::LeftButton);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
}

void DesignDialogsTest::sightingsComeBackAndNameTheirForm()
{
    StOrbDetDialog dialog;
    dialog.setParams(12.5, 45.25, 13.5, 46.25, -60.5, 1, 0, true, false);
    QVERIFY(hidden(dialog, "picButton"));
    QCOMPARE(labelText(dialog, "az1Label"), QString("R.A.&1 (HH.MMSS):"));
    QCOMPARE(labelText(dialog, "el1Label"), QString("Dec.1 (DD.MMSS):"));
    QCOMPARE(labelText(dialog, "az2Label"), QString("Azimuth &2 (deg):"));
    QCOMPARE(labelText(dialog, "el2Label"), QString("Elevation 2 (deg):"));
    QVERIFY(opened(dialog));
    click(dialog, "obs1Box");
    click(dialog, "obs2Box");
    QCOMPARE(labelText(dialog, "az1Label"), QString("Azimuth &1 (deg):"));
    QCOMPARE(labelText(dialog, "el1Label"), QString("Elevation 1 (deg):"));
    QCOMPARE(labelText(dialog, "az2Label"), QString("R.A.&2 (HH.MMSS):"));
    QCOMPARE(labelText(dialog, "el2Label"), QString("Dec.2 (DD.MMSS):"));
    const Sightings s = read(dialog);
    QCOMPARE(s.az1, 12.5);
    QCOMPARE(s.el1, 45.25);
    QCOMPARE(s.az2, 13.5);
    QCOMPARE(s.el2, 46.25);
    QCOMPARE(s.dt, -60.5);
    QCOMPARE(s.packed1, 0);
    QCOMPARE(s.packed2, 1);
    QVERIFY(s.match);
}

void DesignDialogsTest::sightingsAreReversed()
{
    StOrbDetDialog dialog;
    dialog.setParams(12.5, 45.25, 13.5, 46.25, 60.5, 1, 0, false, false);
    QVERIFY(opened(dialog));
    click(dialog, "reverseButton");
    const Sightings s = read(dialog);
    QCOMPARE(s.az1, 13.5);
    QCOMPARE(s.el1, 46.25);
    QCOMPARE(s.az2, 12.5);
    QCOMPARE(s.el2, 45.25);
    QCOMPARE(s.packed1, 0);
    QCOMPARE(s.packed2, 1);
    QCOMPARE(s.dt, 60.5);
    QCOMPARE(labelText(dialog, "az1Label"), QString("Azimuth &1 (deg):"));
}

void DesignDialogsTest::sightingsComeFromThePicture()
{
    setDefaults(indata);
    const double ends[][2] = {{5.1234, -8.1159}, {5.2, -9.5}};
    for (int i = 0; i < 2; ++i) {
        indata->astra[3 + i] = ends[i][0];
        indata->astdec[3 + i] = ends[i][1];
    }
    StOrbDetDialog dialog;
    dialog.setParams(1, 2, 3, 4, 60, 0, 0, false, true);
    QVERIFY(opened(dialog));
    click(dialog, "picButton");
    const Sightings s = read(dialog);
    QCOMPARE(s.az1, ends[0][0]);
    QCOMPARE(s.el1, ends[0][1]);
    QCOMPARE(s.az2, ends[1][0]);
    QCOMPARE(s.el2, ends[1][1]);
    QCOMPARE(s.packed1, 1);
    QCOMPARE(s.packed2, 1);
    QCOMPARE(labelText(dialog, "az2Label"), QString("R.A.&2 (HH.MMSS):"));
}

void DesignDialogsTest::sightingsReadBadTexts()
{
    StOrbDetDialog dialog;
    dialog.setParams(1, 2, 3, 4, 60, 0, 0, false, false);
    QVERIFY(opened(dialog));
    for (const BadText& c : badTexts) {
        for (const char* name : {"az1Edit", "el1Edit", "az2Edit", "el2Edit", "deltmEdit"})
            type(dialog, name, c.typed);
        const Sightings s = read(dialog);
        for (const double x : {s.az1, s.el1, s.az2, s.el2, s.dt})
            QCOMPARE(x, c.number);
    }
}

void DesignDialogsTest::starFieldsStayEmptyForTwoZeros()
{
    StAstDialog empty;
    empty.setParams(0.0, 0.0);
    QCOMPARE(text(empty, "raEdit") + text(empty, "decEdit"), QString());
    StAstDialog dialog;
    dialog.setParams(0.0, -5.25);
    QCOMPARE(text(dialog, "raEdit"), QString("0"));
    QCOMPARE(text(dialog, "decEdit"), QString("-5.25"));
    QCOMPARE(edit(dialog, "raEdit")->selectedText(), QString("0"));
}

void DesignDialogsTest::starDialogTellsOfAnAbort()
{
    for (const char* name : {"okButton", "abortButton"}) {
        StAstDialog dialog;
        dialog.setParams(5.1234, -8.1159);
        QVERIFY(opened(dialog));
        type(dialog, "decEdit", "star");
        dialog.setResult(-1);
        click(dialog, name);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        double ra = 0, dec = 1;
        bool abort = false;
        dialog.getParams(ra, dec, abort);
        QCOMPARE(ra, 5.1234);
        QCOMPARE(dec, 0.0);
        QCOMPARE(abort, qstrcmp(name, "abortButton") == 0);
    }
}

QTEST_MAIN(DesignDialogsTest)
#include "design_dialogs_test.moc"
