// A velocity change, or the continuous thrust of a numerically flown satellite.
#pragma once

#include <QDialog>

#include "design/delta_v.h"

class Field;
class QCheckBox;

class StDeltaDialog : public QDialog
{
    Q_OBJECT

public:
    /// Empty fields; `setValues` comes before the dialog is shown.
    explicit StDeltaDialog(QWidget* parent = nullptr);

    /// Only a numerically flown satellite can have continuous thrust.
    void setValues(const Maneuver& maneuver, bool numeric);
    /// The maneuver in the units on show.
    Maneuver values() const;

public Q_SLOTS:
    /// `setValues` one by one: m/s, or mm/s^2 with `ionf`; degrees.
    virtual void setParams(double deltv, double yaw, double pitch, bool ionf, bool suns, bool nmflg, bool epu);

    /// `values` one by one.
    virtual void getParams(double& deltv, double& yaw, double& pitch, bool& ionf, bool& suns, bool& epu);

    /// The label and the two boxes of thrust follow the kind of maneuver.
    virtual void ionSlot();

private:
    Field* deltavEdit = nullptr;
    Field* yawEdit = nullptr;
    Field* pitchEdit = nullptr;
    QCheckBox* ionBox = nullptr;
    QCheckBox* sunBox = nullptr;
    QCheckBox* epuBox = nullptr;
};
