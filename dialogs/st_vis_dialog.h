// The conditions under which a pass counts, and the modes that exclude each other: transits and occultations,
// flares, Iridium flares, solar eclipses.
#pragma once

#include <QDialog>

#include "design/visibility_rules.h"

class Field;
class QCheckBox;
class QGroupBox;
class QRadioButton;
class QVBoxLayout;

class StVisDialog : public QDialog
{
    Q_OBJECT

public:
    /// Empty fields; `setValues` comes before the dialog is shown.
    explicit StVisDialog(QWidget* parent = nullptr);

    /// When a pass counts. The two angles are packed R.A. and Dec., or degrees of yaw and pitch.
    struct Conditions
    {
        double sunel = 0, satel = 0;    // highest Sun, lowest satellite; degrees
        double yrepoch = 0;             // equinox of sky coordinates, a year; 0 for that of date
        double angle1 = 0, angle2 = 0;  // of an occultation, a surface or a cylinder
        bool visible = false;           // in the light only
        bool moonlight = false;         // the Moon's instead of the Sun's
    };

    /// The special modes, in the codes of the record.
    struct Modes
    {
        bool diskPlot = false;  // plots show Sun or Moon
        int occflg = 0;         // 0 off, in front of: 1 the Sun, 2 the Moon, 3 the two angles
        bool iridium = false;
        bool flares = false;
        FlareVariant variant;
        bool yawSteering = false;
        bool eclipse = false;
        bool solarPanels = false;
        bool flareMagnitude = false;  // shown in place of the flare's angle
        double brightest = 0;         // magnitude in the centre of a flare
        bool cylinder = false;        // of `modes` false with `solarPanels`
    };
    /// Comes first.
    void setConditions(const Conditions& values);
    /// What the fields say now, shown or not.
    Conditions conditions() const;

    /// Comes last: the angles are shown only where a mode uses them.
    void setModes(const Modes& values);
    /// What the boxes say now, shown or not.
    Modes modes() const;

public Q_SLOTS:
    /// `setConditions` and `conditions` one by one.
    virtual void setParams(double sunel, double satel, double yrepoch, double occra, double occdec, int visflg,
                           int moonflg);

    /// `values` one by one.
    virtual void getParams(double& sunel, double& satel, double& yrepoch, double& occra, double& occdec, int& visflg,
                           int& moonflg);

    /// Shows what makes sense with the boxes as they are and hides the rest. A hidden box keeps its check.
    virtual void showSlot();

    /// `setModes` and `modes` one by one; `flarmod` packs the variant of the flares, `iridflg` is 3 or 0.
    virtual void setParam2(int sunmplt, int occflg, int iridflg, int flarflg, int flarmod, int flaryst, bool eclflg,
                           bool solflar, bool flrmgf, double flrmgx, bool cylflg);

    virtual void getParam2(int& sunmplt, int& occflg, int& iridflg, int& flarflg, int& flarmod, int& flaryst,
                           bool& eclflg, bool& solflar, bool& flrmgf, double& flrmgx, bool& cylflg);

    /// A mode that has just been checked unchecks the other three.
    virtual void flarSlot();
    /// Transits exclude the others.
    virtual void occSlot();
    /// Iridium flares exclude the others.
    virtual void iridSlot();
    /// Solar eclipses exclude the others.
    virtual void eclSlot();

private:
    /// When a pass counts.
    void addConditions(QVBoxLayout* column);
    /// Transits, occultations and eclipses.
    void addTransit(QVBoxLayout* column);
    /// Reflections.
    void addFlares(QVBoxLayout* column);
    /// A magnitude and the two angles.
    void addAngles(QVBoxLayout* column);
    /// After all widgets exist.
    void connectSlots();
    /// Unchecks the other modes if this one is checked.
    void modeChecked(QCheckBox* mode);
    /// What belongs to transits, if they are checked.
    void showTransit();
    /// What belongs to flares, if they are checked.
    void showFlareOptions();
    /// The two angles, if a mode that is checked uses them, with the labels that it needs.
    void showAngles();

    Field* sunelEdit = nullptr;
    Field* satelEdit = nullptr;
    Field* epochEdit = nullptr;
    Field* flrmxEdit = nullptr;
    Field* yawEdit = nullptr;
    Field* pitchEdit = nullptr;
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
