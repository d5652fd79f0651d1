// Searches the element file that is open in `satfle` and adds entries to the selection, at once.
#pragma once

#include <QDialog>

class Field;
class QBoxLayout;
class QCheckBox;
class QLabel;
class QPushButton;
class QTextEdit;
class QVBoxLayout;

class StSelSatDialog : public QDialog
{
    Q_OBJECT

public:
    /// Needs an open element file; `setParams` comes before the dialog is shown.
    explicit StSelSatDialog(QWidget* parent = nullptr);

public Q_SLOTS:
    /// Opens with the search of the last time.
    virtual void setParams();

    /// Shows the list of the selected satellites.
    virtual void dSatList();

    /// Adds the entry found.
    virtual void selectSlot();

    /// Searches on from where the file stands.
    virtual void moreSlot();

    /// Empties the selection.
    virtual void newsSlot();

    /// Searches from the start of the file.
    virtual void findSlot();

    /// A launch designator is searched for in place of a name.
    virtual void idsnSlot();
    /// A catalogue number is searched for in place of a name.
    virtual void noradSlot();
    /// Stores the two filters at once.
    virtual void lowSlot();

    /// Shows a report, and the search fields as the search left them.
    virtual void dSatInfo(QString s1);

private:
    /// What is searched for, and the filters.
    void addSearch(QVBoxLayout* column);
    /// From New Set to Close.
    void addButtons(QBoxLayout* row);
    /// After all widgets exist.
    void connectSlots();
    /// Shows the first entry that fits, from the start of the file or with `more` from where it stands.
    void search(bool more);

    struct LastSearch
    {
        int mode = 0, selected = 0, low = 0, recent = 0;
    };
    /// Puts name and number of the search last made into their fields.
    LastSearch showLastSearch();

    QTextEdit* satinfEdit = nullptr;
    QPushButton* closeButton = nullptr;
    QPushButton* newButton = nullptr;
    QPushButton* findButton = nullptr;
    QPushButton* moreButton = nullptr;
    QPushButton* selectButton = nullptr;
    Field* noradEdit = nullptr;
    Field* satnameEdit = nullptr;
    QCheckBox* noradBox = nullptr;
    QCheckBox* lowBox = nullptr;
    QCheckBox* recentBox = nullptr;
    QCheckBox* idsnBox = nullptr;
    QLabel* nameLabel = nullptr;
};
