// The search for Iridium flares.
#pragma once

#include <QDialog>

class Field;
class QCheckBox;

class StIridiumDialog : public QDialog
{
    Q_OBJECT

public:
    /// Empty fields; `setValues` comes before the dialog is shown.
    explicit StIridiumDialog(QWidget* parent = nullptr);

    /// What a search for flares lists.
    struct Values
    {
        double magnitude = 0;      // fainter flares are left out
        bool operational = false;  // satellites in operational orbits only
        bool solarPanels = false;  // flares of the solar panels as well
    };
    /// Fills the fields; what is locked or hidden follows.
    void setValues(const Values& values);
    /// What the fields say now; a field left alone gives back its value to the last bit.
    Values values() const;

public Q_SLOTS:
    /// `setValues` and `values` one by one.
    virtual void setParams(double mag, bool ops, bool irsol);

    /// `values` one by one.
    virtual void getParams(double& mag, bool& ops, bool& irsol);

private:
    Field* magEdit = nullptr;
    QCheckBox* opsBox = nullptr;
    QCheckBox* solpBox = nullptr;
};
