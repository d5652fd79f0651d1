// The system parameters of the numeric propagation, of elevations and of magnitudes.
#pragma once

#include <QDialog>

class Field;
class QCheckBox;
class QVBoxLayout;

class StSysConfDialog : public QDialog
{
    Q_OBJECT

public:
    /// Empty fields; `setValues` comes before the dialog is shown.
    explicit StSysConfDialog(QWidget* parent = nullptr);

    /// Settings of all satellites, and the defaults of a state vector that is newly defined.
    struct Values
    {
        double tolerance = 0;   // relative error of an integration step
        int maxIterations = 0;  // tries of a step, 0 for any number
        double lift = 0;        // share of the drag
        double F107 = 0;        // solar flux at 10.7 cm: of the day, and its average
        double FB107 = 0;
        double Kp = 0;            // geomagnetic index
        double Cd = 0;            // drag coefficient
        double Cr = 0;            // radiation pressure coefficient
        double Am = 0;            // area/mass ratio, m^2/kg
        bool sun = false;         // attraction of the Sun
        bool moon = false;        // attraction of the Moon
        bool refraction = false;  // of elevations
        bool extinction = false;  // of magnitudes
    };
    /// Fills the fields; what is locked or hidden follows.
    void setValues(const Values& values);
    /// What the fields say now; a field left alone gives back its value to the last bit.
    Values values() const;

public Q_SLOTS:
    /// `setValues` and `values` one by one.
    virtual void setParams(double RKFtol, double dF107, double dFB107, double dKp, double dCd, double dCr, double dAm,
                           double lift, bool sunf, bool moonf, bool refrc, int mxit, bool atmx);

    /// `values` one by one.
    virtual void getParams(double& RKFtol, double& dF107, double& dFB107, double& dKp, double& dCd, double& dCr,
                           double& dAm, double& lift, bool& sunf, bool& moonf, bool& refrc, int& mxit, bool& atmx);

private:
    /// What the integrator may do.
    void addIntegration(QVBoxLayout* column);
    /// Space weather and properties of new satellites.
    void addDefaults(QVBoxLayout* column);
    /// Attraction of Sun and Moon, refraction and extinction.
    void addCorrections(QVBoxLayout* column);

    Field* tolEdit = nullptr;
    Field* mxiEdit = nullptr;
    Field* liftEdit = nullptr;
    Field* fb107Edit = nullptr;
    Field* f107Edit = nullptr;
    Field* kpEdit = nullptr;
    Field* dragEdit = nullptr;
    Field* crEdit = nullptr;
    Field* amEdit = nullptr;
    QCheckBox* sunBox = nullptr;
    QCheckBox* moonBox = nullptr;
    QCheckBox* refractBox = nullptr;
    QCheckBox* atxBox = nullptr;
};
