// Earth orientation: UTC minus TAI, UT1 minus UTC and the pole.
#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;

class StIersDialog : public QDialog
{
    Q_OBJECT

public:
    explicit StIersDialog(QWidget* parent = nullptr);

public Q_SLOTS:
    /// Arc seconds and seconds. Without `IERSflg` the defaults are in force and the fields are locked.
    virtual void setParams(bool IERSflg, double IERSxp, double IERSyp, int UtcTai, double Ut1Utc);

    virtual void getParams(bool& IERSflg, double& IERSxp, double& IERSyp, int& UtcTai, double& Ut1Utc);

    /// The fields can be typed only without the defaults.
    virtual void refreshSlot();

private:
    QCheckBox* ckDefault = nullptr;
    QLineEdit* taiEdit = nullptr;
    QLineEdit* ut1Edit = nullptr;
    QLineEdit* xEdit = nullptr;
    QLineEdit* yEdit = nullptr;
};
