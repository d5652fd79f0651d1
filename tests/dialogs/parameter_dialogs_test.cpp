// The dialogs of date, place, Earth parameters, time step, system parameters, Iridium flares, local details, matching.

#include <QTextCursor>
#include <QTextEdit>

#include "dialogs/dialog_helper.h"
#include "dialogs/st_date_dialog.h"
#include "dialogs/st_iers_dialog.h"
#include "dialogs/st_iridium_dialog.h"
#include "dialogs/st_local_dialog.h"
#include "dialogs/st_match_dialog.h"
#include "dialogs/st_obs_dialog.h"
#include "dialogs/st_step_dialog.h"
#include "dialogs/st_sys_conf_dialog.h"

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

struct System
{
    double tol = -1, f107 = -1, fb107 = -1, kp = -1, cd = -1, cr = -1, am = -1, lift = -1;
    bool sun = false, moon = false, refraction = false, extinction = false;
    int mxit = -1;
};

System read(StSysConfDialog& dialog)
{
    System s;
    dialog.getParams(s.tol, s.f107, s.fb107, s.kp, s.cd, s.cr, s.am, s.lift, s.sun, s.moon, s.refraction, s.mxit,
                     s.extinction);
    return s;
}

struct Match
{
    double az = -1, el = -1, mxa = -1, dra = -1, tm = -1;
    int rdf = -1, drf = -1;
    bool vis = false;
};

Match read(StMatchDialog& dialog)
{
    Match m;
    dialog.getParams(m.az, m.el, m.mxa, m.dra, m.tm, m.rdf, m.drf, m.vis);
    return m;
}

char siteName[] = "Observatory";

}  // namespace

class ParameterDialogsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dateComesBack();
    void dateReadsWhatIsTyped();
    void dateOfASingleEventLocksTheDuration();
    void timeZoneIsTypedOnlyWithoutThatOfTheSystem();
    void placeComesBackInBothForms();
    void placeShowsLongitudesAboveAHundredWithFourDecimals();
    void placeIsConvertedOnceByTheButtonOfTheOtherForm();
    void placeReadsBadTexts();
    void earthParametersAreTypedOnlyWithoutTheDefaults();
    void stepReadsWholeMinutesAndSeconds();
    void systemParametersComeBack();
    void systemParametersReadBadTexts();
    void iridiumSettingsComeBack();
    void localDetailsAreShownFromTheirStart();
    void matchLabelsFollowTheFormOfThePosition();
    void matchDirectionIsTypedOnlyWhileItCounts();
};

void ParameterDialogsTest::dateComesBack()
{
    StDateDialog dialog;
    dialog.setParams(2018, 1, 20, 18, 5, 9, -3.5, 0, 3.1, 0.25);
    const Date d = read(dialog);
    QCOMPARE(d.year, 2018);
    QCOMPARE(d.month, 1);
    QCOMPARE(d.day, 20);
    QCOMPARE(d.hour, 18);
    QCOMPARE(d.minute, 5);
    QCOMPARE(d.second, 9);
    QCOMPARE(d.tzone, -3.5);
    QCOMPARE(d.tzauto, 0);
    QCOMPARE(d.dur, 3.1);
    QCOMPARE(d.rtoff, 0.25);
}

void ParameterDialogsTest::dateReadsWhatIsTyped()
{
    StDateDialog dialog;
    dialog.setParams(2018, 1, 20, 18, 5, 9, 1.0, 0, 3.1, 0.0);
    QVERIFY(opened(dialog));
    type(dialog, "monthEdit", "13");  // taken as it stands
    type(dialog, "secEdit", "9.5");   // no fractions
    type(dialog, "yearEdit", "1e300");
    type(dialog, "hourEdit", "99999999999");
    for (const BadText& c : badTexts) {
        type(dialog, "durEdit", c.typed);
        type(dialog, "tzoneEdit", c.typed);
        const Date d = read(dialog);
        QCOMPARE(d.month, 13);
        QCOMPARE(d.second, 0);
        QCOMPARE(d.year, 0);
        QCOMPARE(d.hour, 0);
        QCOMPARE(d.dur, c.number);
        QCOMPARE(d.tzone, c.number);
    }
}

void ParameterDialogsTest::dateOfASingleEventLocksTheDuration()
{
    for (const bool single : {true, false}) {
        StDateDialog dialog;
        dialog.setParams(2018, 1, 20, 18, 5, 9, 1.0, 0, single ? -3.1 : 3.1, 0.0);
        QCOMPARE(text(dialog, "durEdit"), QString("3.1"));
        QCOMPARE(edit(dialog, "durEdit")->isEnabled(), !single);
        QCOMPARE(edit(dialog, "rtEdit")->isEnabled(), !single);
    }
}

void ParameterDialogsTest::timeZoneIsTypedOnlyWithoutThatOfTheSystem()
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

void ParameterDialogsTest::placeComesBackInBothForms()
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

void ParameterDialogsTest::placeShowsLongitudesAboveAHundredWithFourDecimals()
{
    StObsDialog dialog;
    dialog.setParams(0.0, 120.1234567, 0.0, siteName, false);
    QCOMPARE(text(dialog, "lngEdit").trimmed(), QString("120.1235"));
    dialog.setParams(0.0, 12.1234567, 0.0, siteName, false);
    QCOMPARE(text(dialog, "lngEdit"), QString("12.1235"));
    dialog.setParams(0.0, 120.5125, 0.0, siteName, true);
    QCOMPARE(text(dialog, "lngEdit").trimmed(), QString("120.3045"));
}

void ParameterDialogsTest::placeIsConvertedOnceByTheButtonOfTheOtherForm()
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

void ParameterDialogsTest::placeReadsBadTexts()
{
    StObsDialog dialog;
    dialog.setParams(48.5, 11.5, 500.0, siteName, false);
    QVERIFY(opened(dialog));
    for (const BadText& c : badTexts) {
        for (const char* name : {"latEdit", "lngEdit", "heightEdit"})
            type(dialog, name, c.typed);
        Place p = read(dialog);
        QCOMPARE(p.lat, c.number);
        QCOMPARE(p.lng, c.number);
        QCOMPARE(p.height, c.number);
        click(dialog, "ddmmButton");
        p = read(dialog);
        QVERIFY(std::isfinite(p.lat) && std::isfinite(p.lng));
        click(dialog, "decButton");
    }
}

void ParameterDialogsTest::earthParametersAreTypedOnlyWithoutTheDefaults()
{
    StIersDialog dialog;
    dialog.setParams(false, 0.1, 0.2, -37, -0.25);
    QVERIFY(opened(dialog));
    for (const char* name : {"taiEdit", "ut1Edit", "xEdit", "yEdit", "taiLabel", "ut1Label", "xLabel", "yLabel"})
        QVERIFY2(!child<QWidget>(dialog, name)->isEnabled(), name);
    click(dialog, "ckDefault");
    for (const char* name : {"taiEdit", "ut1Edit", "xEdit", "yEdit", "taiLabel", "ut1Label", "xLabel", "yLabel"})
        QVERIFY2(child<QWidget>(dialog, name)->isEnabled(), name);

    bool inForce = false;
    double x = 0, y = 0, ut1 = 0;
    int tai = 0;
    dialog.getParams(inForce, x, y, tai, ut1);
    QVERIFY(inForce);
    QCOMPARE(x, 0.1);
    QCOMPARE(y, 0.2);
    QCOMPARE(tai, -37);
    QCOMPARE(ut1, -0.25);

    type(dialog, "taiEdit", "-36.5");
    type(dialog, "xEdit", "nan");
    click(dialog, "ckDefault");
    dialog.getParams(inForce, x, y, tai, ut1);
    QVERIFY(!inForce);
    QCOMPARE(tai, 0);
    QCOMPARE(x, 0.0);
    QCOMPARE(ut1, -0.25);  // the numbers stay with the defaults
}

void ParameterDialogsTest::stepReadsWholeMinutesAndSeconds()
{
    StStepDialog dialog;
    int min = -1;
    double sec = -1;
    dialog.setParams(2, 15.5);
    dialog.getParams(min, sec);
    QCOMPARE(min, 2);
    QCOMPARE(sec, 15.5);
    QVERIFY(opened(dialog));
    type(dialog, "minEdit", "1e300");
    type(dialog, "secEdit", "inf");
    dialog.getParams(min, sec);
    QCOMPARE(min, 0);
    QCOMPARE(sec, 0.0);
}

void ParameterDialogsTest::systemParametersComeBack()
{
    StSysConfDialog dialog;
    dialog.setParams(1e-10, 151.0, 152.0, 3.5, 2.25, 1.5, 0.0125, 0.125, true, false, true, 10, false);
    System s = read(dialog);
    QCOMPARE(s.tol, 1e-10);
    QCOMPARE(s.f107, 151.0);
    QCOMPARE(s.fb107, 152.0);
    QCOMPARE(s.kp, 3.5);
    QCOMPARE(s.cd, 2.25);
    QCOMPARE(s.cr, 1.5);
    QCOMPARE(s.am, 0.0125);
    QCOMPARE(s.lift, 0.125);
    QVERIFY(s.sun && !s.moon && s.refraction && !s.extinction);
    QCOMPARE(s.mxit, 10);

    QVERIFY(opened(dialog));
    for (const char* name : {"sunBox", "moonBox", "refractBox", "atxBox"})
        click(dialog, name);
    s = read(dialog);
    QVERIFY(!s.sun && s.moon && !s.refraction && s.extinction);
}

void ParameterDialogsTest::systemParametersReadBadTexts()
{
    const struct
    {
        const char* name;
        double System::*field;
    } fields[] = {{"tolEdit", &System::tol}, {"f107Edit", &System::f107}, {"fb107Edit", &System::fb107},
                  {"kpEdit", &System::kp},   {"dragEdit", &System::cd},   {"crEdit", &System::cr},
                  {"amEdit", &System::am},   {"liftEdit", &System::lift}};
    StSysConfDialog dialog;
    dialog.setParams(1e-10, 150, 150, 3, 2.2, 1.5, 0.01, 0, true, true, true, 10, true);
    QVERIFY(opened(dialog));
    type(dialog, "mxiEdit", "many");
    for (const auto& field : fields) {
        for (const BadText& c : badTexts) {
            type(dialog, field.name, c.typed);
            QCOMPARE(read(dialog).*field.field, c.number);
        }
        type(dialog, field.name, "-2.5");  // refused nowhere
        QCOMPARE(read(dialog).*field.field, -2.5);
    }
    QCOMPARE(read(dialog).mxit, 0);
}

void ParameterDialogsTest::iridiumSettingsComeBack()
{
    StIridiumDialog dialog;
    double mag = 0;
    bool ops = false;
    bool solar = false;
    dialog.setParams(-1.5, true, false);
    QVERIFY(opened(dialog));
    dialog.getParams(mag, ops, solar);
    QCOMPARE(mag, -1.5);
    QVERIFY(ops && !solar);
    click(dialog, "opsBox");
    QTest::keyClick(&dialog, Qt::Key_S, Qt::AltModifier);
    QTRY_VERIFY(button(dialog, "solpBox")->isChecked());
    type(dialog, "magEdit", "bright");
    dialog.getParams(mag, ops, solar);
    QCOMPARE(mag, 0.0);
    QVERIFY(!ops && solar);
}

void ParameterDialogsTest::localDetailsAreShownFromTheirStart()
{
    StLocalDialog dialog;
    QCOMPARE(dialog.size(), QSize(443, 460));
    dialog.setParams("first <b>line\nsecond line", 12);
    const auto* view = child<QTextEdit>(dialog, "textEdit");
    QVERIFY(view->isReadOnly());
    QCOMPARE(view->toPlainText(), QString("first <b>line\nsecond line"));
    QCOMPARE(view->font().pointSize(), 12);
    QVERIFY(view->textCursor().atStart());
    QVERIFY(opened(dialog));
    QVERIFY(button(dialog, "closeButton")->hasFocus());
}

void ParameterDialogsTest::matchLabelsFollowTheFormOfThePosition()
{
    StMatchDialog dialog;
    dialog.setParams(12.5, -45.25, 2.0, 90.0, -1.0, 0, 1, true);
    QVERIFY(opened(dialog));
    QCOMPARE(labelText(dialog, "raLabel"), QString("&Azimuth (deg):"));
    QCOMPARE(labelText(dialog, "elLabel"), QString("&Elevation (deg):"));
    click(dialog, "raBox");
    QCOMPARE(labelText(dialog, "raLabel"), QString("R.&A. (HH.MMSS):"));
    QCOMPARE(labelText(dialog, "elLabel"), QString("D&ec. (DD.MMSS):"));
    const Match m = read(dialog);
    QCOMPARE(m.az, 12.5);
    QCOMPARE(m.el, -45.25);
    QCOMPARE(m.mxa, 2.0);
    QCOMPARE(m.dra, 90.0);
    QCOMPARE(m.tm, -1.0);
    QCOMPARE(m.rdf, 1);
    QCOMPARE(m.drf, 1);
    QVERIFY(m.vis);
}

void ParameterDialogsTest::matchDirectionIsTypedOnlyWhileItCounts()
{
    StMatchDialog dialog;
    dialog.setParams(0, 0, 2.0, 90.0, 1.0, 1, 0, false);
    QVERIFY(opened(dialog));
    QVERIFY(!edit(dialog, "draEdit")->isEnabled());
    click(dialog, "drfBox");
    QVERIFY(edit(dialog, "draEdit")->isEnabled());
    for (const BadText& c : badTexts) {
        for (const char* name : {"azEdit", "elEdit", "mxaEdit", "draEdit", "tmEdit"})
            type(dialog, name, c.typed);
        const Match m = read(dialog);
        for (const double x : {m.az, m.el, m.mxa, m.dra, m.tm})
            QCOMPARE(x, c.number);
    }
}

QTEST_MAIN(ParameterDialogsTest)
#include "parameter_dialogs_test.moc"
