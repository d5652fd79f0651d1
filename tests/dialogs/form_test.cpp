// What all dialogs have in common.

#include <memory>

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QMap>
#include <QPushButton>
#include <QRadioButton>
#include <QTextEdit>

#include "dialogs/dialog_helper.h"
#include "dialogs/st_adj_dialog.h"
#include "dialogs/st_ast_dialog.h"
#include "dialogs/st_date_dialog.h"
#include "dialogs/st_delta_dialog.h"
#include "dialogs/st_edit_orb_dialog.h"
#include "dialogs/st_iers_dialog.h"
#include "dialogs/st_iridium_dialog.h"
#include "dialogs/st_launch_dialog.h"
#include "dialogs/st_local_dialog.h"
#include "dialogs/st_map_dialog.h"
#include "dialogs/st_match_dialog.h"
#include "dialogs/st_obs_dialog.h"
#include "dialogs/st_orb_det_dialog.h"
#include "dialogs/st_pass_dialog.h"
#include "dialogs/st_quick_dialog.h"
#include "dialogs/st_rem_sat_dialog.h"
#include "dialogs/st_sel_sat_dialog.h"
#include "dialogs/st_state_dialog.h"
#include "dialogs/st_step_dialog.h"
#include "dialogs/st_switch_dialog.h"
#include "dialogs/st_sys_conf_dialog.h"
#include "dialogs/st_vis_dialog.h"

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
};

const DialogCase dialogCases[] = {
    {"Date, Time and Timezone", make<StDateDialog>, "Alt+M Alt+Y", "okButton", "cancelButton"},
    {"Observer's Location", make<StObsDialog>, "Alt+O", "okButton", "cancelButton"},
    {"IERS Parameters", make<StIersDialog>, "", "okButton", "cancelButton"},
    {"Time Step", make<StStepDialog>, "", "okButton", "cancelButton"},
    {"Visibility Settings", make<StVisDialog>, "", "okButton", "cancelButton"},
    {"Map Settings", make<StMapDialog>, "Alt+T", "okButton", "cancelButton"},
    {"Select Prime Satellite", make<StSwitchDialog>, "", "closeButton", nullptr},
    {"Configure System Parameters", make<StSysConfDialog>, "", "okButton", "cancelButton"},
    {"Iridium Flares", make<StIridiumDialog>, "", "okButton", "cancelButton"},
    {"Local Details", make<StLocalDialog>, "", "closeButton", nullptr},
    {"Select Satellite", make<StSelSatDialog>, "", "closeButton", nullptr},
    {"Remove Satellites", make<StRemSatDialog>, "", "okButton", "cancelButton"},
    {"Find Matching Satellites", make<StMatchDialog>, "", "okButton", "cancelButton"},
    {"Edit Orbit Elements", make<StEditOrbDialog>, "", "okButton", "cancelButton"},
    {"Adjust Orbit Elements", make<StAdjDialog>, "", "okButton", "cancelButton"},
    {"State Vector", make<StStateDialog>, "", "okButton", "cancelButton"},
    {"Delta-V Maneuver", make<StDeltaDialog>, "", "executeButton", "cancelButton"},
    {"Launch Data", make<StLaunchDialog>, "Alt+A Alt+O Alt+S", "okButton", "cancelButton"},
    {"Orbit Determination", make<StOrbDetDialog>, "", "okButton", "cancelButton"},
    {"Astrometry", make<StAstDialog>, "", "okButton", "cancelButton"},
    {"Pass Details", make<StPassDialog>, "", "closeButton", nullptr},
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
            for (const QWidget* widget : widgets) {
                QVERIFY2(!widget->objectName().isEmpty(), c.title);
                QVERIFY2(!names.contains(widget->objectName()), qPrintable(widget->objectName()));
                names.insert(widget->objectName());
                QVERIFY2(widget->whatsThis().size() > 10, qPrintable(widget->objectName()));
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

    void okIsTheDefaultAndAcceptsAndCancelRejects()
    {
        for (const DialogCase& c : dialogCases) {
            const std::unique_ptr<QDialog> fresh(c.maker());
            const bool searches = qstrcmp(c.title, "Select Satellite") == 0;
            QVERIFY2(child<QPushButton>(*fresh, searches ? "findButton" : c.ok)->isDefault(), c.title);
            QCOMPARE(child<QPushButton>(*fresh, c.ok)->autoDefault(), !searches);
            for (const char* name : {c.ok, c.cancel}) {
                if (!name)
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
