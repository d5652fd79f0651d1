// What the smaller dialogs do with their fields.

#include <algorithm>
#include <array>
#include <tuple>

#include <QComboBox>

#include "dialogs/dialog_helper.h"
#include "dialogs/st_adj_dialog.h"
#include "dialogs/st_ast_dialog.h"
#include "dialogs/st_date_dialog.h"
#include "dialogs/st_delta_dialog.h"
#include "dialogs/st_iers_dialog.h"
#include "dialogs/st_iridium_dialog.h"
#include "dialogs/st_launch_dialog.h"
#include "dialogs/st_match_dialog.h"
#include "dialogs/st_obs_dialog.h"
#include "dialogs/st_orb_det_dialog.h"
#include "dialogs/st_step_dialog.h"
#include "dialogs/st_sys_conf_dialog.h"
#include "dialogs/st_vis_dialog.h"

namespace {

/// Whether setParams and getParams of a dialog hand a set of values on to the last bit. `more` is set, not read.
template <class Dialog, class... Values, class... More>
bool comesBack(const std::tuple<Values...>& values, const More&... more)
{
    Dialog dialog;
    std::apply([&](const Values&... fields) { dialog.setParams(fields..., more...); }, values);
    std::tuple<Values...> back{};
    std::apply([&dialog](Values&... fields) { dialog.getParams(fields...); }, back);
    return back == values;
}

// Numbers that no text on show holds to the last bit.
constexpr double longitude = -80.6208333333333, third = 1.0 / 3.0, large = 145987500.1234567;

/// The dialog of a star without its third result.
struct StAstStar : StAstDialog
{
    void getParams(double& ra, double& dec)
    {
        bool left = false;
        StAstDialog::getParams(ra, dec, left);
    }
};

/// Whether a box locks these fields, and no others.
template <class Dialog>
bool locks(const char* box, const QStringList& fields, bool whenMarked)
{
    Dialog dialog;
    bool right = opened(dialog);
    for (int i = 0; i < 2; ++i) {
        click(dialog, box);
        const bool locked = button(dialog, box)->isChecked() == whenMarked;
        for (const QLineEdit* field : dialog.template findChildren<QLineEdit*>())
            right = right && field->isEnabled() != (locked && fields.contains(field->objectName()));
    }
    return right;
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
    void whatIsNotTouchedKeepsEveryBit()
    {
        for (const bool on : {false, true}) {
            const int flag = on ? 1 : 0;
            const bool right[] = {
                comesBack<StDateDialog>(std::tuple{2018, 1, 20, 18, 5, 9, -longitude, flag, third, large}),
                comesBack<StVisDialog>(std::tuple{longitude, third, large, 12.123456789, 45.25, flag, 1 - flag}),
                comesBack<StIersDialog>(std::tuple{on, third, longitude, -37, large}),
                comesBack<StStepDialog>(std::tuple{12, third}),
                comesBack<StSysConfDialog>(std::tuple{1e-10 * third, 150 + third, 151 + third, third, 2 + third,
                                                      1 + third, 0.01 * third, large, on, !on, on, 1234567, !on}),
                comesBack<StIridiumDialog>(std::tuple{longitude, on, !on}),
                comesBack<StMatchDialog>(
                    std::tuple{longitude, third, 5 + third, 90 + third, large, flag, 1 - flag, on}),
                comesBack<StAdjDialog>(std::tuple{on, !on, large, 14 + third, longitude, flag}),
                comesBack<StAstStar>(std::tuple{12 + third, longitude}),
                comesBack<StLaunchDialog>(std::tuple{0, longitude, third, flag, 8 + third}),
                comesBack<StOrbDetDialog>(
                    std::tuple{longitude, third, 12 + third, 13 + third, large, flag, 1 - flag, on}, true),
            };
            QCOMPARE(std::ranges::find(right, false) - std::begin(right), std::ssize(right));
            for (const bool packed : {false, true}) {  // through either form
                StObsDialog place;
                place.setParams(longitude / 2, longitude, large, siteName, packed);
                QVERIFY(opened(place));
                if (on)
                    click(place, packed ? "decButton" : "ddmmButton");
                const Place p = read(place);
                QVERIFY(p.lat == longitude / 2 && p.lng == longitude && p.height == large &&
                        p.ddmm == (packed != on));
                QCOMPARE(place.getGeoname(), QString(siteName));
            }
            StDeltaDialog maneuver;
            maneuver.setParams(third, longitude, large, on, !on, true, on);
            double dv = 0, yaw = 0, pitch = 0;
            bool thrust = !on, sun = on, epoch = !on;
            maneuver.getParams(dv, yaw, pitch, thrust, sun, epoch);
            QVERIFY(dv == third && yaw == longitude && pitch == large && thrust == on && sun != on && epoch == on);
        }
    }

    void aBoxLocksWhatItReplaces()
    {
        QVERIFY(locks<StDateDialog>("systemBox", {"tzoneEdit"}, true));
        QVERIFY(locks<StIersDialog>("ckDefault", {"taiEdit", "ut1Edit", "xEdit", "yEdit"}, true));
        QVERIFY(locks<StMatchDialog>("drfBox", {"draEdit"}, false));
    }

    void theDateOfAnEventHasNoDuration()
    {
        StDateDialog dialog;
        dialog.setParams(2018, 1, 20, 18, 5, 9, 1.0, 1, -3.1, 0.0);
        QCOMPARE(text(dialog, "durEdit"), QString("3.1"));
        for (const char* locked : {"durEdit", "rtEdit", "tzoneEdit"})
            QVERIFY2(!edit(dialog, locked)->isEnabled(), locked);
    }

    void matchLabelsFollowTheFormOfThePosition()
    {
        StMatchDialog dialog;
        QVERIFY(opened(dialog));
        click(dialog, "raBox");
        QCOMPARE(labelText(dialog, "raLabel") + labelText(dialog, "elLabel"), "R.&A. (HH.MMSS):D&ec. (DD.MMSS):");
        click(dialog, "raBox");
        QCOMPARE(labelText(dialog, "raLabel") + labelText(dialog, "elLabel"), "&Azimuth (deg):&Elevation (deg):");
    }

    void theStarOfTheLastTimeIsOfferedForReplacing()
    {
        StAstDialog empty, dialog;
        empty.setParams(0.0, 0.0);
        QCOMPARE(text(empty, "raEdit") + text(empty, "decEdit"), QString());
        dialog.setParams(12.3456, -45.1234);
        QCOMPARE(edit(dialog, "raEdit")->selectedText(), QString("12.3456"));
        QVERIFY(opened(dialog));
        double ra = 0, dec = 0;
        bool aborted = true;
        dialog.getParams(ra, dec, aborted);
        QCOMPARE((std::tuple{ra, dec, aborted}), (std::tuple{12.3456, -45.1234, false}));
        click(dialog, "abortButton");
        dialog.getParams(ra, dec, aborted);
        QVERIFY(aborted && dialog.result() == QDialog::Accepted);
    }

    void placeIsConvertedOnceByTheButtonOfTheOtherForm()
    {
        StObsDialog dialog;
        dialog.setParams(48.5125, 120.5125, 500.0, siteName, false);
        QVERIFY(opened(dialog));
        QCOMPARE(text(dialog, "heightEdit"), QString("500"));
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
        click(dialog, "ddmmButton");
        type(dialog, "latEdit", "48.2845");
        QVERIFY(std::abs(read(dialog).lat - (48.0 + 28.0 / 60.0 + 45.0 / 3600.0)) < 1e-9);
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
                     {4, "Vandenberg", 34.7523, -120.6155},
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
            QCOMPARE(l.lng, c.lng);
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
        dialog.setParams(12.5, 45.25, 13.5, 46.25, 60.5, 1, 0, true, false);
        QVERIFY(hidden(dialog, "picButton"));
        QCOMPARE(labelText(dialog, "az1Label"), QString("R.A.&1 (HH.MMSS):"));
        QCOMPARE(labelText(dialog, "el2Label"), QString("Elevation 2 (deg):"));
        QVERIFY(opened(dialog));
        click(dialog, "reverseButton");
        double az1 = 0, el1 = 0, az2 = 0, el2 = 0, dt = 0;
        int packed1 = 1, packed2 = 0;
        bool match = false;
        dialog.getParams(az1, el1, az2, el2, dt, packed1, packed2, match);
        QCOMPARE((std::array{az1, el1, az2, el2, dt}), (std::array{13.5, 46.25, 12.5, 45.25, 60.5}));
        QCOMPARE((std::tuple{packed1, packed2, match}), (std::tuple{0, 1, true}));
        QCOMPARE(labelText(dialog, "az1Label"), QString("Azimuth &1 (deg):"));
        QCOMPARE(labelText(dialog, "el2Label"), QString("Dec.2 (DD.MMSS):"));
    }
};

QTEST_MAIN(ParameterDialogsTest)
#include "parameter_dialogs_test.moc"
