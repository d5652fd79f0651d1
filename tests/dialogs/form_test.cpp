// What all dialogs have in common.

#include <algorithm>
#include <memory>
#include <tuple>

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QMap>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTextEdit>

#include "dialogs/dialog_helper.h"
#include "dialogs/form.h"
#include "dialogs/st_adj_dialog.h"
#include "dialogs/st_ast_dialog.h"
#include "dialogs/st_brightest_dialog.h"
#include "dialogs/st_chart_dialog.h"
#include "dialogs/st_date_dialog.h"
#include "dialogs/st_delta_dialog.h"
#include "dialogs/st_edit_orb_dialog.h"
#include "dialogs/st_field_dialog.h"
#include "dialogs/st_fit_dialog.h"
#include "dialogs/st_follow_dialog.h"
#include "dialogs/st_horizon_dialog.h"
#include "dialogs/st_iers_dialog.h"
#include "dialogs/st_iridium_dialog.h"
#include "dialogs/st_launch_dialog.h"
#include "dialogs/st_local_dialog.h"
#include "dialogs/st_magnitudes_dialog.h"
#include "dialogs/st_map_dialog.h"
#include "dialogs/st_match_dialog.h"
#include "dialogs/st_models_dialog.h"
#include "dialogs/st_obs_dialog.h"
#include "dialogs/st_observation_dialog.h"
#include "dialogs/st_orb_det_dialog.h"
#include "dialogs/st_pass_dialog.h"
#include "dialogs/st_quick_dialog.h"
#include "dialogs/st_rem_sat_dialog.h"
#include "dialogs/st_sel_sat_dialog.h"
#include "dialogs/st_sources_dialog.h"
#include "dialogs/st_state_dialog.h"
#include "dialogs/st_station_dialog.h"
#include "dialogs/st_step_dialog.h"
#include "dialogs/st_switch_dialog.h"
#include "dialogs/st_sys_conf_dialog.h"
#include "dialogs/st_vis_dialog.h"
#include "record/text.h"
#include "record/winp_data.h"

namespace {

using Maker = QDialog* (*)();

template <class Dialog>
QDialog* make()
{
    return new Dialog;
}

struct DialogCase
{
    const char* title;
    Maker maker;
    const char* sharedKeys;  // keys that two widgets share because their texts are given so
    const char* ok;          // buttons that accept and reject, if any
    const char* cancel;
    const char* whole = "";  // fields that take a whole number
    const char* texts = "";  // fields that take any text
};

const DialogCase dialogCases[] = {
    {"Date, Time and Timezone", make<StDateDialog>, "Alt+M Alt+Y", "okButton", "cancelButton",
     "yearEdit monthEdit dayEdit hourEdit minEdit secEdit"},
    {"Observer's Location", make<StObsDialog>, "Alt+O", "okButton", "cancelButton", "", "locEdit"},
    {"IERS Parameters", make<StIersDialog>, "", "okButton", "cancelButton", "taiEdit"},
    {"Time Step", make<StStepDialog>, "", "okButton", "cancelButton", "minEdit"},
    {"Visibility Settings", make<StVisDialog>, "", "okButton", "cancelButton"},
    {"Map Settings", make<StMapDialog>, "Alt+T", "okButton", "cancelButton"},
    {"Select Prime Satellite", make<StSwitchDialog>, "", "closeButton", nullptr},
    {"Configure System Parameters", make<StSysConfDialog>, "", "okButton", "cancelButton", "mxiEdit"},
    {"Iridium Flares", make<StIridiumDialog>, "", "okButton", "cancelButton"},
    {"Local Details", make<StLocalDialog>, "", "closeButton", nullptr},
    {"Select Satellite", make<StSelSatDialog>, "", "closeButton", nullptr, "noradEdit", "satnameEdit"},
    {"Remove Satellites", make<StRemSatDialog>, "", "okButton", "cancelButton"},
    {"Find Matching Satellites", make<StMatchDialog>, "", "okButton", "cancelButton"},
    {"Edit Orbit Elements", make<StEditOrbDialog>, "", "okButton", "cancelButton", "noradEdit", "nameEdit idsnEdit"},
    {"Models", make<StModelsDialog>, "", "okButton", "cancelButton"},
    {"Adjust Orbit Elements", make<StAdjDialog>, "", "okButton", "cancelButton"},
    {"State Vector", make<StStateDialog>, "", "okButton", "cancelButton"},
    {"Delta-V Maneuver", make<StDeltaDialog>, "", "executeButton", "cancelButton"},
    {"Launch Data", make<StLaunchDialog>, "Alt+A Alt+O Alt+S", "okButton", "cancelButton"},
    {"Orbit Determination", make<StOrbDetDialog>, "", "okButton", "cancelButton"},
    {"Astrometry", make<StAstDialog>, "", "okButton", "cancelButton"},
    {"Pass Details", make<StPassDialog>, "", "closeButton", nullptr},
    {"Chart", []() -> QDialog* { return new StChartDialog(PassChart()); }, "", "closeButton", nullptr},
    {"Horizon", make<StHorizonDialog>, "", "okButton", "cancelButton", "", "fileEdit"},
    {"Element Sources", make<StSourcesDialog>, "", "okButton", "cancelButton"},
    {"Brightest Passes", make<StBrightestDialog>, "", "mapButton", "closeButton"},
    {"Magnitudes", make<StMagnitudesDialog>, "", "okButton", "cancelButton", "", "fileEdit"},
    {"Observing Station", make<StStationDialog>, "", "okButton", "cancelButton", "numberEdit"},
    {"Save Observation", make<StObservationDialog>, "", "okButton", "cancelButton", "numberEdit",
     "designatorEdit timeEdit magnitudeEdit fileEdit"},
    {"Follow with a Mount", make<StFollowDialog>, "", "okButton", "cancelButton", "portEdit", "hostEdit deviceEdit"},
    {"Passes through Field", make<StFieldDialog>, "", "okButton", "cancelButton"},
    {"Fit Elements", make<StFitDialog>, "", "addButton", "cancelButton"},
    {"Quick Help", make<StQuickDialog>, "", "okButton", nullptr},
};

/// The widgets a user works with.
QList<QWidget*> controls(const QDialog& dialog)
{
    QList<QWidget*> found;
    for (QWidget* widget : dialog.findChildren<QWidget*>())
        if (qobject_cast<QLineEdit*>(widget) || qobject_cast<QAbstractButton*>(widget) ||
            qobject_cast<QGroupBox*>(widget) || qobject_cast<QTextEdit*>(widget) || qobject_cast<QComboBox*>(widget))
            found.append(widget);
    return found;
}

/// What a screen reader calls a widget.
QString spokenName(QWidget* widget)
{
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

bool isMarked(const Field* field)
{
    const QPalette usual = QApplication::palette(field);
    const bool coloured = field->palette().color(QPalette::Base) != usual.color(QPalette::Base);
    return coloured && !field->toolTip().isEmpty() && field->toolTip() == field->accessibleDescription();
}

/// The key of a widget: its shortcut, or the mnemonic of its text.
QString keyOf(const QWidget* widget)
{
    if (const auto* abstractButton = qobject_cast<const QAbstractButton*>(widget))
        return abstractButton->shortcut().toString();
    if (const auto* group = qobject_cast<const QGroupBox*>(widget))
        return QKeySequence::mnemonic(group->title()).toString();
    if (const auto* label = qobject_cast<const QLabel*>(widget); label && label->buddy())
        return QKeySequence::mnemonic(label->text()).toString();
    return {};
}

/// The keys that lead to more than one widget.
QString sharedKeys(const QDialog& dialog)
{
    QMap<QString, int> count;
    for (const QWidget* widget : dialog.findChildren<QWidget*>())
        if (const QString key = keyOf(widget); !key.isEmpty())
            ++count[key];
    QStringList shared;
    for (auto it = count.cbegin(); it != count.cend(); ++it)
        if (it.value() > 1)
            shared.append(it.key());
    return shared.join(' ');
}

/// The fields that are locked while their label is not, or the reverse.
QString strayLabels(const QDialog& dialog)
{
    QStringList stray;
    for (const QLabel* label : dialog.findChildren<QLabel*>())
        if (label->buddy() && label->isEnabledTo(&dialog) != label->buddy()->isEnabledTo(&dialog))
            stray.append(label->objectName());
    return stray.join(' ');
}

/// The dialogs that there are: a class for each pair of files.
QStringList dialogFiles()
{
    return QDir(SOURCE_DIR "/dialogs").entryList({"st_*_dialog.cpp"});
}

}  // namespace

class FormTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noDialogIsLeftOut() { QCOMPARE(dialogFiles().size(), qsizetype(std::size(dialogCases))); }

    void everyDialogHasItsTitleAndEveryWidgetItsNameAndText()
    {
        for (const DialogCase& c : dialogCases) {
            const std::unique_ptr<QDialog> dialog(c.maker());
            QCOMPARE(dialog->windowTitle(), QString(c.title));
            const QList<QWidget*> widgets = controls(*dialog);
            QVERIFY2(widgets.size() >= 2, c.title);
            QSet<QString> names;
            for (QWidget* widget : widgets) {
                QVERIFY2(!widget->objectName().isEmpty(), c.title);
                QVERIFY2(!names.contains(widget->objectName()), qPrintable(widget->objectName()));
                names.insert(widget->objectName());
                QVERIFY2(widget->whatsThis().size() > 10, qPrintable(widget->objectName()));
                QVERIFY2(!spokenName(widget).isEmpty() || c.maker == Maker(make<StSwitchDialog>),
                         qPrintable(widget->objectName()));
            }
        }
    }

    void everyEditHasALabelThatLeadsToIt()
    {
        for (const DialogCase& c : dialogCases) {
            if (qstrcmp(c.title, "Remove Satellites") == 0)
                continue;  // its edits stand beside boxes
            const std::unique_ptr<QDialog> dialog(c.maker());
            QSet<const QWidget*> buddies;
            for (const QLabel* label : dialog->findChildren<QLabel*>())
                buddies.insert(label->buddy());
            for (const QLineEdit* field : dialog->findChildren<QLineEdit*>())
                QVERIFY2(buddies.contains(field), qPrintable(field->objectName()));
        }
    }

    // A box can change the labels around it.
    void keysAreUniqueAndLabelsFollowTheirFieldsWhateverIsMarked()
    {
        for (const DialogCase& c : dialogCases) {
            const std::unique_ptr<QDialog> first(c.maker());
            QCOMPARE(QString(c.title) + ": " + sharedKeys(*first), QString(c.title) + ": " + c.sharedKeys);
            for (const auto* box : first->findChildren<QCheckBox*>()) {
                const std::unique_ptr<QDialog> dialog(c.maker());
                auto* same = dialog->findChild<QCheckBox*>(box->objectName());
                same->toggle();
                const QString where = QString(c.title) + ", " + box->objectName() + ": ";
                QCOMPARE(where + sharedKeys(*dialog), where + c.sharedKeys);
                QCOMPARE(where + strayLabels(*dialog), where);
                same->toggle();
                QCOMPARE(where + strayLabels(*dialog), where);
            }
        }
    }

    void aTextThatIsNoNumberIsMarkedWhileItStands()
    {
        const struct
        {
            const char* text;
            bool number, whole;
        } texts[] = {{"1205", true, true}, {" -3", true, true},   {"5.5", true, false},
                     {"5.0", true, false}, {"1e3", true, false},  {"5,5", false, false},
                     {"", false, false},   {"abc", false, false}, {"inf", false, false}};
        for (const DialogCase& c : dialogCases) {
            const std::unique_ptr<QDialog> dialog(c.maker());
            for (Field* field : dialog->findChildren<Field*>()) {
                if (field->isReadOnly())
                    continue;
                const bool whole = QString(c.whole).split(' ').contains(field->objectName());
                const bool any = QString(c.texts).split(' ').contains(field->objectName());
                field->setDoubt({});
                field->setText("x");
                for (const auto& t : texts) {
                    field->setText(t.text);
                    QVERIFY2(isMarked(field) == !(any || (whole ? t.whole : t.number)),
                             qPrintable(c.title + (": " + field->objectName()) + ": " + t.text));
                }
                field->setText("7");
                QCOMPARE(field->toolTip(), form::labelOf(field)->toolTip());
            }
        }
    }

    void aDayThatDoesNotExistIsMarked()
    {
        const struct
        {
            int year, month, day;
            const char* marked;
        } dates[] = {{2018, 1, 31, ""},
                     {2018, 4, 31, "dayEdit"},
                     {2016, 2, 29, ""},
                     {2018, 2, 29, "dayEdit"},
                     {2018, 1, 0, "dayEdit"},
                     {2018, 13, 1, "monthEdit dayEdit"},
                     {1000, 5, 5, ""},
                     {999, 5, 5, "yearEdit"},
                     {3000, 5, 5, ""},
                     {3001, 5, 5, "yearEdit"},
                     {1582, 10, 4, ""},
                     {1582, 10, 14, "dayEdit"},
                     {20262018, 1, 1, "yearEdit"}};
        for (const auto& d : dates) {
            StDateDialog dialog;
            dialog.setParams(d.year, d.month, d.day, 0, 0, 0, 0, 0, 1, 0);
            QStringList marked;
            for (const char* name : {"yearEdit", "monthEdit", "dayEdit"})
                if (isMarked(child<Field>(dialog, name)))
                    marked += name;
            QCOMPARE(QString::number(d.year) + ": " + marked.join(' '), QString::number(d.year) + ": " + d.marked);
        }
        for (const auto& [year, day, marked] :
             {std::tuple{"2018", "366.9", 0}, {"999", "1", 1}, {"3001", "0.9", 2}}) {
            StStateDialog dialog;
            child<Field>(dialog, "yearEdit")->setText(year);
            child<Field>(dialog, "dayEdit")->setText(day);
            QCOMPARE(isMarked(child<Field>(dialog, "yearEdit")) + isMarked(child<Field>(dialog, "dayEdit")), marked);
        }
    }

    void theFieldWithTheKeyboardIsReplacedByWhatIsTyped()
    {
        for (const DialogCase& c : dialogCases) {
            const std::unique_ptr<QDialog> dialog(c.maker());
            const auto fields = dialog->findChildren<Field*>();
            for (Field* field : fields)
                field->setText("77");
            QVERIFY2(opened(*dialog), c.title);
            for (int i = 0; i < 40; ++i) {
                if (auto* field = qobject_cast<Field*>(dialog->focusWidget()); field && !field->isReadOnly()) {
                    QTest::keyClicks(field, "2018");
                    QCOMPARE(c.title + (": " + field->text()), QString(c.title) + ": 2018");
                    field->setText("77");
                }
                QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
            }
        }
    }

    void aKeyThatTwoWidgetsShareOnlyMovesTheKeyboard()
    {
        const struct
        {
            const char* title;
            Qt::Key key;
            QStringList stops;
        } cases[] = {{"Date, Time and Timezone", Qt::Key_Y, {"yearEdit", "systemBox"}},
                     {"Date, Time and Timezone", Qt::Key_M, {"monthEdit", "minEdit"}},
                     {"Observer's Location", Qt::Key_O, {"lngEdit", "okButton"}},
                     {"Launch Data", Qt::Key_S, {"siteBox", "southButton"}},
                     {"Launch Data", Qt::Key_O, {"lngEdit", "okButton"}}};
        for (const auto& c : cases) {
            const auto* row = std::ranges::find_if(
                dialogCases, [&](const DialogCase& d) { return qstrcmp(d.title, c.title) == 0; });
            const std::unique_ptr<QDialog> dialog(row->maker());
            QVERIFY(opened(*dialog));
            QStringList reached;
            for (int i = 0; i < 4; ++i) {
                QTest::keyClick(dialog->focusWidget(), c.key, Qt::AltModifier);
                reached += dialog->focusWidget()->objectName();
            }
            for (const QString& stop : c.stops)
                QCOMPARE(c.title + stop + QString::number(reached.count(stop)), c.title + stop + "2");
            for (const QAbstractButton* box : dialog->findChildren<QAbstractButton*>())
                QVERIFY2(!box->isChecked() || box->objectName() == "northButton", qPrintable(box->objectName()));
            QVERIFY(dialog->isVisible());
        }
    }

    void foreignTextIsPlain()
    {
        constexpr const char* foreign = "<h1>x<img src=y>";
        *indata = {};
        setDefaults(indata);
        indata->satn = maxSatellites;
        for (auto& name : indata->fsname)
            assignField(name, foreign);
        for (char* field : {indata->geoname, indata->tlename, indata->savename})
            qstrncpy(field, foreign, 30);
        StSwitchDialog prime;
        prime.setParams(0, 0, maxSatellites);
        StRemSatDialog removal;
        removal.setParams(maxSatellites);
        StSelSatDialog selection;
        selection.setParams();
        StObsDialog place;
        place.setParams(0, 0, 0, indata->geoname, false);
        StEditOrbDialog editor;
        editor.setParam1(foreign, 1, 0, 0, 58000, 0);
        StLocalDialog local;
        local.setParams(foreign, 10);
        StQuickDialog help;
        help.setHelpLine(foreign);
        for (const QDialog* dialog :
             std::initializer_list<const QDialog*>{&prime, &removal, &selection, &place, &editor, &local, &help}) {
            for (const auto* view : dialog->findChildren<QTextEdit*>())
                QVERIFY(view->toPlainText().contains(foreign));
            for (const auto* widget : dialog->findChildren<QWidget*>())
                QVERIFY(!Qt::mightBeRichText(widget->toolTip()) && !Qt::mightBeRichText(widget->whatsThis()));
        }
        for (const DialogCase& c : dialogCases) {
            const std::unique_ptr<QDialog> dialog(c.maker());
            for (const auto* label : dialog->findChildren<QLabel*>())
                QCOMPARE(label->textFormat(), Qt::PlainText);
        }
        whenDialogOpens([](QDialog& box) {
            QCOMPARE(qobject_cast<QMessageBox*>(&box)->textFormat(), Qt::PlainText);
            box.accept();
        });
        form::say(&prime, foreign);
    }

    void okIsTheDefaultAndAcceptsAndCancelRejects()
    {
        const QMap<QString, const char*> searches{
            {"Select Satellite", "findButton"}, {"Fit Elements", "fitButton"}, {"Brightest Passes", "searchButton"}};
        for (const DialogCase& c : dialogCases) {
            const std::unique_ptr<QDialog> fresh(c.maker());
            const char* search = searches.value(c.title, nullptr);
            QVERIFY2(child<QPushButton>(*fresh, search ? search : c.ok)->isDefault(), c.title);
            QCOMPARE(child<QPushButton>(*fresh, c.ok)->autoDefault(), !search);
            for (const char* name : {c.ok, c.cancel}) {
                if (!name || !child<QPushButton>(*fresh, name)->isEnabled())
                    continue;
                const std::unique_ptr<QDialog> dialog(c.maker());
                QVERIFY2(opened(*dialog), c.title);
                dialog->setResult(-1);
                click(*dialog, name);
                QVERIFY2(!dialog->isVisible(), c.title);
                QCOMPARE(dialog->result(), name == c.ok ? int(QDialog::Accepted) : int(QDialog::Rejected));
            }
        }
    }

    void tabReachesEveryWidgetInUse()
    {
        for (const DialogCase& c : dialogCases) {
            const std::unique_ptr<QDialog> dialog(c.maker());
            QVERIFY2(opened(*dialog), c.title);
            QSet<QWidget*> reached;
            for (int i = 0; i < 60; ++i) {
                reached.insert(dialog->focusWidget());
                QTest::keyClick(dialog->focusWidget() ? dialog->focusWidget() : dialog.get(), Qt::Key_Tab);
            }
            for (QWidget* widget : controls(*dialog)) {
                const bool radio = qobject_cast<QRadioButton*>(widget);  // the arrow keys lead to these
                if (widget->isVisible() && widget->isEnabled() && !radio && (widget->focusPolicy() & Qt::TabFocus))
                    QVERIFY2(reached.contains(widget), qPrintable(widget->objectName()));
            }
        }
    }

    void noTextIsCutOff()
    {
        for (const DialogCase& c : dialogCases) {
            const std::unique_ptr<QDialog> dialog(c.maker());
            QVERIFY2(opened(*dialog), c.title);
            for (const QWidget* widget : dialog->findChildren<QWidget*>())
                if (widget->isVisible() &&
                    (qobject_cast<const QLabel*>(widget) || qobject_cast<const QAbstractButton*>(widget)))
                    QVERIFY2(widget->width() >= widget->sizeHint().width(), qPrintable(widget->objectName()));
        }
    }
};

QTEST_MAIN(FormTest)
#include "form_test.moc"
