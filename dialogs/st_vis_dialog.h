// The conditions under which a pass counts, and the modes that exclude each other: transits and occultations,
// flares, Iridium flares, solar eclipses.
#pragma once

#include <QDialog>

class QCheckBox;
class QGroupBox;
class QLineEdit;
class QRadioButton;
class QVBoxLayout;

class StVisDialog : public QDialog
{
    Q_OBJECT

public:
    explicit StVisDialog(QWidget* parent = nullptr);

public Q_SLOTS:
    /// Elevations in degrees; `yrepoch` is a year, 0 for coordinates of date. The two angles are packed R.A. and Dec. or
    /// degrees of yaw and pitch.
    virtual void setParams(double sunel, double satel, double yrepoch, double occra, double occdec, int visflg,
                           int moonflg);

    virtual void getParams(double& sunel, double& satel, double& yrepoch, double& occra, double& occdec, int& visflg,
                           int& moonflg);

    /// Shows what makes sense with the boxes as they are and hides the rest. A hidden box keeps its check.
    virtual void showSlot();

    virtual void setParam2(int sunmplt, int occflg, int iridflg, int flarflg, int flarmod, int flaryst, bool eclflg,
                           bool solflar, bool flrmgf, double flrmgx, bool cylflg);

    /// `iridflg` is 3 or 0. `cylflg` comes out false while solar panel flares are checked.
    virtual void getParam2(int& sunmplt, int& occflg, int& iridflg, int& flarflg, int& flarmod, int& flaryst,
                           bool& eclflg, bool& solflar, bool& flrmgf, double& flrmgx, bool& cylflg);

    /// A mode that has just been checked unchecks the other three.
    virtual void flarSlot();
    virtual void occSlot();
    virtual void iridSlot();
    virtual void eclSlot();

private:
    void addConditions(QVBoxLayout* column);
    void addTransit(QVBoxLayout* column);
    void addFlares(QVBoxLayout* column);
    void addAngles(QVBoxLayout* column);
    void connectSlots();
    void modeChecked(QCheckBox* mode);
    void showTransit();
    void showFlareOptions();
    void showAngles();

    QLineEdit* sunelEdit = nullptr;
    QLineEdit* satelEdit = nullptr;
    QLineEdit* epochEdit = nullptr;
    QLineEdit* flrmxEdit = nullptr;
    QLineEdit* yawEdit = nullptr;
    QLineEdit* pitchEdit = nullptr;
    QCheckBox* visBox = nullptr;
    QCheckBox* moonBox = nullptr;
    QCheckBox* occBox = nullptr;
    QCheckBox* smplotBox = nullptr;
    QCheckBox* eclBox = nullptr;
    QCheckBox* flarBox = nullptr;
    QCheckBox* knownBox = nullptr;
    QCheckBox* localBox = nullptr;
    QCheckBox* solfBox = nullptr;
    QCheckBox* ystBox = nullptr;
    QCheckBox* cylBox = nullptr;
    QCheckBox* iridBox = nullptr;
    QCheckBox* flrmagBox = nullptr;
    QGroupBox* occGroup = nullptr;
    QRadioButton* sunButton = nullptr;
    QRadioButton* moonButton = nullptr;
    QRadioButton* radecButton = nullptr;
};
