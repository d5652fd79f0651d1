// A velocity change, or the continuous thrust of a numerically flown satellite.
#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;

class StDeltaDialog : public QDialog
{
    Q_OBJECT

public:
    explicit StDeltaDialog(QWidget* parent = nullptr);

public Q_SLOTS:
    /// m/s, or mm/s^2 with `ionf`; degrees. Only with `nmflg` can thrust be continuous.
    virtual void setParams(double deltv, double yaw, double pitch, bool ionf, bool suns, bool nmflg, bool epu);

    virtual void getParams(double& deltv, double& yaw, double& pitch, bool& ionf, bool& suns, bool& epu);

    /// The label and the two boxes of thrust follow the kind of maneuver.
    virtual void ionSlot();

private:
    QLineEdit* deltavEdit = nullptr;
    QLineEdit* yawEdit = nullptr;
    QLineEdit* pitchEdit = nullptr;
    QCheckBox* ionBox = nullptr;
    QCheckBox* sunBox = nullptr;
    QCheckBox* epuBox = nullptr;
};
