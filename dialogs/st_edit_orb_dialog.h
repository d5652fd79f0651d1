// The editor of one orbit in all its redundant forms.
#pragma once

#include <QDialog>

#include "astro/vec3.h"
#include "design/editor_rules.h"

class QBoxLayout;
class QCheckBox;
class QFormLayout;
class QLineEdit;
class QPushButton;

class StEditOrbDialog : public QDialog
{
    Q_OBJECT

public:
    explicit StEditOrbDialog(QWidget* parent = nullptr);

public Q_SLOTS:
    /// `mjdep` is the epoch; with `lcflg` the epoch and the angles that a launch computes are locked.
    virtual void setParam1(const QString& fsname, int norad, int aflg, int paflg, double mjdep, int lcflg);

    /// Comes after setParam1. km, degrees, revolutions per day; `n0` of a hyperbola is its perigee distance.
    virtual void setParam2(double a, double ra, double aper, double inc, double ecc, double m0, double n0,
                           double adot, double ndot, double n6dot, double bstar);

    /// `day` is the day of the year with its fraction.
    virtual void getParam1(QString& fsname, int& norad, int& aflg, int& paflg, double& year, double& day);

    /// Makes the elements consistent first.
    virtual void getParam2(double& a, double& ra, double& aper, double& inc, double& ecc, double& m0, double& n0,
                           double& adot, double& ndot, double& n6dot, double& bstar);

    /// Brings all forms of the orbit in line with what was edited last.
    virtual void refreshSlot();

    virtual void spgSlot();
    virtual void perapoSlot();

    /// Each notes which of several forms of a quantity was edited last.
    virtual void n0Slot();
    virtual void smaxSlot();
    virtual void ndotSlot();
    virtual void adotSlot();
    virtual void perSlot();
    virtual void apoSlot();
    virtual void eccincSlot();

    /// The state vector dialog; its result is stored in the record at once.
    virtual void stateSlot();

    virtual void eccSlot();
    virtual void timeSlot();
    virtual void adjSlot();
    virtual void geoSlot();

    /// Comes last of the three.
    virtual void setParam3(const QString& ldsn, int numflg);

    /// `nwsflg` tells that New was pressed: a further satellite is wanted.
    virtual void getParam3(QString& ldsn, int& numflg, bool& nwsflg);

    virtual void numSlot();
    virtual void nwsSlot();

private:
    void addNames(QFormLayout* rows);
    void addAngles(QFormLayout* rows);
    void addShape(QFormLayout* rows);
    void addRates(QFormLayout* rows);
    void addModels(QBoxLayout* row);
    void addCommands(QBoxLayout* row);
    void connectEdits();
    QPushButton* command(QBoxLayout* row, const char* name, const QString& text, const QString& help,
                         void (StEditOrbDialog::*slot)());
    editor::Orbit typedOrbit() const;
    double typedEpoch() const;
    void showEpoch(double mjd, const char* format);
    void showShape();
    void showAngles(double inc, double ra, double aper, double m0);
    void allowForModel();
    void takeState(double year, double day, const Vec3& r, const Vec3& v);
    void takeMeanElements();

    editor::Orbit orbit;  // the working values
    editor::Edits edits;
    bool ednwsflg = false;

    QLineEdit* nameEdit = nullptr;
    QLineEdit* noradEdit = nullptr;
    QLineEdit* idsnEdit = nullptr;
    QLineEdit* yearEdit = nullptr;
    QLineEdit* dayEdit = nullptr;
    QLineEdit* raEdit = nullptr;
    QLineEdit* aperEdit = nullptr;
    QLineEdit* incEdit = nullptr;
    QLineEdit* m0Edit = nullptr;
    QLineEdit* eccEdit = nullptr;
    QLineEdit* n0Edit = nullptr;
    QLineEdit* aEdit = nullptr;
    QLineEdit* adotEdit = nullptr;
    QLineEdit* ndotEdit = nullptr;
    QLineEdit* n2dotEdit = nullptr;
    QLineEdit* bstarEdit = nullptr;
    QLineEdit* periEdit = nullptr;
    QLineEdit* apoEdit = nullptr;
    QCheckBox* perapBox = nullptr;
    QCheckBox* spg4Box = nullptr;
    QCheckBox* numBox = nullptr;
};
