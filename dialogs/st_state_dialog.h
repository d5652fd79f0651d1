// The state vector of the prime satellite at its epoch, in four frames, with the parameters of its forces.
#pragma once

#include <QDialog>

#include <array>

class QCheckBox;
class QFormLayout;
class QLineEdit;
class QRadioButton;
class QVBoxLayout;

/// The frame of the numbers in the dialog on show, a code of `vsRefState`.
extern int stdtmje;

/// Whether the dialog on show is about a numerically flown satellite.
extern bool stdnmflg;

class StStateDialog : public QDialog
{
    Q_OBJECT

public:
    explicit StStateDialog(QWidget* parent = nullptr);

public Q_SLOTS:
    /// km and km/s in the mean equator of date; with `nmflg` the stored epoch state is shown in place of it.
    virtual void setParams(bool nmflg, double year, double day, double r0, double r1, double r2, double v0, double v1,
                           double v2, double ecc);

    /// The state in the mean equator of date; stores it in the record, with `nmflg` the force parameters too.
    virtual void getParams(double& year, double& day, double& r0, double& r1, double& r2, double& v0, double& v1,
                           double& v2);

    virtual void timeSlot();

    /// Turns the numbers into the frame just chosen, if the current state follows them.
    virtual void refSlot();

private:
    void addEpoch(QFormLayout* rows);
    void addState(QFormLayout* rows);
    void addFrames(QVBoxLayout* column);
    void addForces(QVBoxLayout* column);
    void showForces(bool shown);
    double epoch() const;
    int checkedFrame() const;
    struct State
    {
        double x = 0, y = 0, z = 0, vx = 0, vy = 0, vz = 0;  // km, km/s
    };
    State typedState() const;
    void showState(const State& state);

    QLineEdit* yearEdit = nullptr;
    QLineEdit* dayEdit = nullptr;
    std::array<QLineEdit*, 6> stateEdits{};       // x, y, z, vx, vy, vz
    std::array<QRadioButton*, 4> frameButtons{};  // in the order of the frame codes
    QCheckBox* cstateBox = nullptr;
    QLineEdit* f107Edit = nullptr;
    QLineEdit* fb107Edit = nullptr;
    QLineEdit* kpEdit = nullptr;
    QLineEdit* amEdit = nullptr;
    QLineEdit* cdEdit = nullptr;
    QLineEdit* crEdit = nullptr;
};
