// The state vector of the prime satellite at its epoch, in four frames, with the parameters of its forces.
#pragma once

#include <QDialog>

#include <array>

#include "design/editor_rules.h"
#include "orbit/prime_state.h"

class Field;
class QCheckBox;
class QFormLayout;
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
    /// Empty fields; `setValues` comes before the dialog is shown.
    explicit StStateDialog(QWidget* parent = nullptr);

    /// x, y, z in km, then the velocity in km/s.
    using State = std::array<double, 6>;

    /// Properties of a numeric satellite and of the space around it.
    struct Forces
    {
        double F107 = 0;   // daily solar flux at 10.7 cm
        double FB107 = 0;  // its average
        double Kp = 0;     // geomagnetic index
        double Cr = 0;     // radiation pressure coefficient
        double Cd = 0;     // drag coefficient
        double Am = 0;     // area/mass ratio, m^2/kg

        bool operator==(const Forces&) const = default;
    };

    /// A state vector at its epoch.
    struct Values
    {
        bool numeric = false;  // the forces count
        editor::YearDay epoch;
        State state{};  // mean equator of date
        Forces forces;
        int frame = frame::meanOfDate;  // in which the numbers are shown, a code of `vsRefState`
        bool reset = true;              // the current state becomes that of the epoch
    };
    /// Fills the fields; what is locked or hidden follows.
    void setValues(const Values& values);
    /// What the fields say now; a field left alone gives back its value to the last bit.
    Values values() const;

    /// Whether epoch, state or forces are no longer those of `setValues`.
    bool isEdited() const;

    /// Stores what is to be kept of a dialog without an edit: the frame and, of a numeric satellite with the box
    /// marked, the return to its epoch state.
    void storeUnedited() const;

public Q_SLOTS:
    /// `setValues` one by one: km and km/s in the mean equator of date. With `nmflg` the epoch state of the prime
    /// satellite is shown in place of it, if there is one.
    virtual void setParams(bool nmflg, double year, double day, double r0, double r1, double r2, double v0, double v1,
                           double v2, double ecc);

    /// The state in the mean equator of date; stores it in the record, with `nmflg` the force parameters too.
    virtual void getParams(double& year, double& day, double& r0, double& r1, double& r2, double& v0, double& v1,
                           double& v2);

    /// The date dialog on the epoch.
    virtual void timeSlot();

    /// Turns the numbers into the frame just chosen, if the current state follows them; otherwise they stay.
    virtual void refSlot();

private:
    /// Year and day.
    void addEpoch(QFormLayout* rows);
    /// Six numbers, in the order of `State`.
    void addState(QFormLayout* rows);
    /// In the order of their codes.
    void addFrames(QVBoxLayout* column);
    /// What is there for a numeric satellite only.
    void addForces(QVBoxLayout* column);
    /// Shows them for a numeric satellite and hides them for others.
    void showForces(const Values& values);
    /// The state in the frame of the dialog, at its epoch.
    void showState(const State& numbers);
    /// MJD of the fields.
    double epoch() const;
    /// Code of the button that is checked.
    int checkedFrame() const;
    /// The six numbers in the frame of the dialog.
    State typedState() const;
    /// In the mean equator of date; to the last bit as it came in while nobody has typed over it.
    State meanState() const;

    Values given;           // by the caller
    State state{};          // that on show, mean equator of date,
    State shownState{};     // in the frame of the dialog,
    double shownEpoch = 0;  // at this MJD

    Field* yearEdit = nullptr;
    Field* dayEdit = nullptr;
    std::array<Field*, 6> stateEdits{};           // x, y, z, vx, vy, vz
    std::array<QRadioButton*, 4> frameButtons{};  // in the order of the frame codes
    QCheckBox* cstateBox = nullptr;
    Field* f107Edit = nullptr;
    Field* fb107Edit = nullptr;
    Field* kpEdit = nullptr;
    Field* amEdit = nullptr;
    Field* cdEdit = nullptr;
    Field* crEdit = nullptr;
};
