// Two sightings of one satellite.
#pragma once

#include <QDialog>

class Field;
class QCheckBox;
class QFormLayout;
class QPushButton;

class StOrbDetDialog : public QDialog
{
    Q_OBJECT

public:
    /// Empty fields; `setValues` comes before the dialog is shown.
    explicit StOrbDetDialog(QWidget* parent = nullptr);

    /// Where a satellite was seen.
    struct Sighting
    {
        double az = 0, el = 0;   // degrees; with `celestial` packed HH.MMSS and DD.MMSS
        bool celestial = false;  // the position is right ascension and declination
    };

    /// Two sightings, and whether catalogue satellites are compared with them.
    struct Values
    {
        Sighting first, second;
        double deltm = 0;  // seconds from the first to the second
        bool match = false;
    };

    /// `picture`: a picture has two trail ends to offer.
    void setValues(const Values& values, bool picture);
    /// What the fields say now; a field left alone gives back its value to the last bit.
    Values values() const;

public Q_SLOTS:
    /// `setValues` and `values` one by one.
    virtual void setParams(double az1, double el1, double az2, double el2, double deltm, int az1flg, int az2flg,
                           bool odm, bool odp);

    /// `values` one by one.
    virtual void getParams(double& az1, double& el1, double& az2, double& el2, double& deltm, int& az1flg,
                           int& az2flg, bool& odm);

    /// The labels of a position follow its form.
    virtual void obs1Slot();
    /// The same for the second position.
    virtual void obs2Slot();

    /// Interchanges the two positions.
    virtual void revSlot();

    /// Takes the two trail ends marked on the picture.
    virtual void picSlot();

private:
    /// Both positions with their forms.
    void showSightings(const Sighting& first, const Sighting& second);
    /// The forms, and the comparison with the catalogue.
    void addBoxes(QFormLayout* rows);

    Field* az1Edit = nullptr;
    Field* el1Edit = nullptr;
    Field* az2Edit = nullptr;
    Field* el2Edit = nullptr;
    Field* deltmEdit = nullptr;
    QCheckBox* obs1Box = nullptr;
    QCheckBox* obs2Box = nullptr;
    QCheckBox* matchBox = nullptr;
    QPushButton* picButton = nullptr;
};
