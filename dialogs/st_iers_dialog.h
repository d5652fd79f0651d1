// Earth orientation: UTC minus TAI, UT1 minus UTC and the pole.
#pragma once

#include <QDialog>

class Field;
class QCheckBox;

class StIersDialog : public QDialog
{
    Q_OBJECT

public:
    explicit StIersDialog(QWidget* parent = nullptr);

    /// Published values of the Earth's rotation.
    struct Values
    {
        bool inForce = false;   // otherwise defaults are, and the fields are locked
        double xp = 0, yp = 0;  // pole, arc seconds
        int utcTai = 0;         // seconds
        double ut1Utc = 0;      // seconds
    };
    void setValues(const Values& values);
    Values values() const;

public Q_SLOTS:
    /// `setValues` one by one.
    virtual void setParams(bool IERSflg, double IERSxp, double IERSyp, int UtcTai, double Ut1Utc);

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
