// Earth orientation: UTC minus TAI, UT1 minus UTC and the pole.
#pragma once

#include <QDialog>

class Field;
class QCheckBox;

class StIersDialog : public QDialog
{
    Q_OBJECT

public:
    /// Empty fields; `setValues` comes before the dialog is shown.
    explicit StIersDialog(QWidget* parent = nullptr);

    /// Published values of the Earth's rotation.
    struct Values
    {
        bool inForce = false;   // otherwise defaults are, and the fields are locked
        double xp = 0, yp = 0;  // pole, arc seconds
        int utcTai = 0;         // seconds
        double ut1Utc = 0;      // seconds
    };
    /// Fills the fields; what is locked or hidden follows.
    void setValues(const Values& values);
    /// What the fields say now; a field left alone gives back its value to the last bit.
    Values values() const;

public Q_SLOTS:
    /// `setValues` one by one.
    virtual void setParams(bool IERSflg, double IERSxp, double IERSyp, int UtcTai, double Ut1Utc);

    /// `values` one by one.
    virtual void getParams(bool& IERSflg, double& IERSxp, double& IERSyp, int& UtcTai, double& Ut1Utc);

    /// The fields can be typed only without the defaults.
    virtual void refreshSlot();

private:
    QCheckBox* ckDefault = nullptr;
    Field* taiEdit = nullptr;
    Field* ut1Edit = nullptr;
    Field* xEdit = nullptr;
    Field* yEdit = nullptr;
};
