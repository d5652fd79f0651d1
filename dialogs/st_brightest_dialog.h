// The brightest passes of a whole element file, as a list that can be sorted and opened.
#pragma once

#include "exports/rows.h"
#include "scan/brightest.h"

#include <QDialog>
#include <functional>
#include <optional>

class Field;
class QCheckBox;
class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

class StBrightestDialog : public QDialog
{
    Q_OBJECT

public:
    /// What is asked for.
    struct Values
    {
        double faintest = 4;  // magnitude
        bool sky = true;      // without those that twilight and moonlight hide
        bool night = true;    // from sunset to sunrise; else the interval that is set
        bool joined = true;   // passes of one launch as one line
    };

    /// What the dialog works with.
    struct Setup
    {
        QString about;         // file and place
        double zoneHours = 0;  // of the times on show
        /// May be long; nothing if it was ended or failed, after a message.
        std::function<std::optional<BrightList>(const Values&)> search;
        std::function<void(const BrightPass&)> details;
    };

    /// What the person wants to see of the chosen pass.
    enum class Wanted
    {
        nothing,
        map,
        sky
    };

    /// An empty list; `setUp` comes before the dialog is shown.
    explicit StBrightestDialog(QWidget* parent = nullptr);

    /// Takes the functions; a list about something else is dropped.
    void setUp(const Setup& setup);
    void setValues(const Values& values);
    Values values() const;

    Wanted wanted() const { return want; }
    /// The pass of the row that is current; null if there is none.
    const BrightPass* chosen() const;

    /// The list on show as CSV, in its order.
    std::string csv() const;

private:
    void addConditions(class QVBoxLayout* column);
    void addTree(QVBoxLayout* column);
    void addButtons(QVBoxLayout* column);
    void search();
    void showList();
    QString countText() const;
    QTreeWidgetItem* rowOf(std::size_t pass) const;
    void showDetails();
    void end(Wanted what);
    void copy() const;

    Setup given;
    BrightList list;
    bool searched = false;
    Wanted want = Wanted::nothing;

    Field* magnitudeEdit = nullptr;
    QCheckBox* skyBox = nullptr;
    QCheckBox* nightBox = nullptr;
    QCheckBox* joinBox = nullptr;
    QTreeWidget* tree = nullptr;
    QLabel* aboutLabel = nullptr;
    QLabel* countLabel = nullptr;
    QPushButton* detailsButton = nullptr;
    QPushButton* mapButton = nullptr;
    QPushButton* skyButton = nullptr;
    QPushButton* copyButton = nullptr;
};
