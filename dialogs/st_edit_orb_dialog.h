// The editor of one orbit in all its redundant forms.
#pragma once

#include <QDialog>

#include "design/editor_rules.h"
#include "design/editor_state.h"
#include "dialogs/form.h"

class QBoxLayout;
class QCheckBox;
class QFormLayout;
class QPushButton;

class StEditOrbDialog : public QDialog
{
    Q_OBJECT

public:
    /// Empty fields; `setValues` comes before the dialog is shown.
    explicit StEditOrbDialog(QWidget* parent = nullptr);

    /// One satellite as the editor knows it.
    struct Values
    {
        QString name;
        QString designator;
        int norad = 0;
        bool sgp4 = false;       // flown by the analytic model
        bool byHeights = false;  // perigee and apogee can be typed
        bool numeric = false;    // integrated numerically
        Elements elements;
    };

    /// `launch` locks the epoch and the angles that a launch computes.
    void setValues(const Values& values, bool launch);

    /// Makes the elements consistent first. Without an edit they are those of `setValues`, to the last bit.
    Values takeValues();

public Q_SLOTS:
    // setParam1 to setParam3 are `setValues` one by one and in this order; getParam1 to getParam3 are `takeValues`.

    /// `mjdep` is the epoch; `lcflg` not 0 means a launch.
    virtual void setParam1(const QString& fsname, int norad, int aflg, int paflg, double mjdep, int lcflg);

    /// km, degrees, revolutions per day; `n0` of a hyperbola is its perigee distance.
    virtual void setParam2(double a, double ra, double aper, double inc, double ecc, double m0, double n0,
                           double adot, double ndot, double n6dot, double bstar);

    /// `day` is the day of the year with its fraction.
    virtual void getParam1(QString& fsname, int& norad, int& aflg, int& paflg, double& year, double& day);

    /// Makes the elements consistent first.
    virtual void getParam2(double& a, double& ra, double& aper, double& inc, double& ecc, double& m0, double& n0,
                           double& adot, double& ndot, double& n6dot, double& bstar);

    /// Brings all forms of the orbit in line with what was edited last.
    virtual void refreshSlot();

    /// Each enables the fields that belong to its box.
    virtual void spgSlot();
    /// Heights can be typed, or eccentricity, axis and mean motion.
    virtual void perapoSlot();

    /// Each notes which of several forms of a quantity was edited last.
    virtual void n0Slot();
    /// The axis decides over the mean motion.
    virtual void smaxSlot();
    /// The change of the mean motion decides over that of the axis.
    virtual void ndotSlot();
    /// The reverse.
    virtual void adotSlot();
    /// The heights decide.
    virtual void perSlot();
    /// The heights decide.
    virtual void apoSlot();
    /// Heights and rates follow; an edit of the mean motion before is dropped.
    virtual void eccincSlot();

    /// The state vector dialog. An edit in it is stored in the record at once and makes the elements here anew.
    virtual void stateSlot();

    /// A hyperbola has neither SGP4 nor rates.
    virtual void eccSlot();

    /// The date dialog on the epoch.
    virtual void timeSlot();

    /// The dialog of the adjustments, which are stored at once.
    virtual void adjSlot();

    /// Asks for a longitude and makes the orbit geostationary above it.
    virtual void geoSlot();

    /// With `numflg` not 0 a hyperbola shows the time of perigee of its state.
    virtual void setParam3(const QString& ldsn, int numflg);

    /// `nwsflg` tells that New was pressed: a further satellite is wanted.
    virtual void getParam3(QString& ldsn, int& numflg, bool& nwsflg);

    /// Does nothing: no field depends on how the orbit is flown.
    virtual void numSlot();

    /// Accepts the dialog and asks for a further satellite.
    virtual void nwsSlot();

private:
    // the form, in a file of its own
    void addNames(QFormLayout* rows);
    /// Orientation, anomaly and eccentricity.
    void addAngles(QFormLayout* rows);
    /// Mean motion, axis and heights.
    void addShape(QFormLayout* rows);
    /// Their changes, and the drag.
    void addRates(QFormLayout* rows);
    /// How the orbit is flown and typed.
    void addModels(QBoxLayout* row);
    /// From Refresh to New.
    void addCommands(QBoxLayout* row);
    QPushButton* addCommand(QBoxLayout* row, const char* name, const QString& text, const form::Help& help,
                            void (StEditOrbDialog::*slot)());
    /// After all widgets exist.
    void connectEdits();

    /// What setParam1 hands over.
    void showSatellite(const Values& values, bool launch);
    /// Elements that nobody has edited yet.
    void showElements(const Elements& elements);
    /// What setParam3 hands over.
    void showFlight(const Values& values);
    /// The working values, with which the fields are in line again.
    void showShape();
    /// The four angles.
    void showAngles(const Elements& elements);
    /// The MJD in its two fields.
    void showEpoch(double mjd);
    /// As they stand in the fields.
    Elements typedElements() const;
    /// As it stands in the fields.
    editor::Shape typedShape() const;
    /// Rates are for the simple model, BSTAR is for SGP4.
    void allowForModel();
    /// Makes the elements anew from a state that was edited.
    void takeState(const editor::State& state, const editor::YearDay& epoch);

    editor::Shape shape;  // the working values
    editor::Edits edits;
    bool ednwsflg = false;

    Field* nameEdit = nullptr;
    Field* noradEdit = nullptr;
    Field* idsnEdit = nullptr;
    Field* yearEdit = nullptr;
    Field* dayEdit = nullptr;
    Field* raEdit = nullptr;
    Field* aperEdit = nullptr;
    Field* incEdit = nullptr;
    Field* m0Edit = nullptr;
    Field* eccEdit = nullptr;
    Field* n0Edit = nullptr;
    Field* aEdit = nullptr;
    Field* adotEdit = nullptr;
    Field* ndotEdit = nullptr;
    Field* n2dotEdit = nullptr;
    Field* bstarEdit = nullptr;
    Field* periEdit = nullptr;
    Field* apoEdit = nullptr;
    QCheckBox* perapBox = nullptr;
    QCheckBox* spg4Box = nullptr;
    QCheckBox* numBox = nullptr;
};

/// A message titled "Vorlix": an orbit that is no orbit of SGP4 stays with the model that it has.
void sayNoSgp4Elements(QWidget* parent);
