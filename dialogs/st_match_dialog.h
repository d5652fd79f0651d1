// A sighting, and how near a satellite of the element file must have come to it.
#pragma once

#include <QDialog>

class Field;
class QCheckBox;
class QLabel;

class StMatchDialog : public QDialog
{
    Q_OBJECT

public:
    /// Empty fields; `setValues` comes before the dialog is shown.
    explicit StMatchDialog(QWidget* parent = nullptr);

    /// A sighting, and how near to it a satellite must come.
    struct Values
    {
        double az = 0, el = 0;   // degrees; with `celestial` packed HH.MMSS and DD.MMSS
        double mxa = 0;          // greatest distance, degrees
        double dra = 0;          // direction of the movement, degrees: 0 up, 90 to the right
        double tm = 0;           // time either way, minutes
        bool celestial = false;  // the position is right ascension and declination
        bool directed = false;   // `dra` counts
        bool majorOnly = false;  // fragments are left out
    };
    /// Fills the fields; what is locked or hidden follows.
    void setValues(const Values& values);
    /// What the fields say now; a field left alone gives back its value to the last bit.
    Values values() const;

public Q_SLOTS:
    /// `setValues` and `values` one by one.
    virtual void setParams(double az, double el, double mxa, double dra, double tm, int rdf, int drf, bool vis);

    /// `values` one by one.
    virtual void getParams(double& az, double& el, double& mxa, double& dra, double& tm, int& rdf, int& drf,
                           bool& vis);

    /// The labels of the position follow its form.
    virtual void raSlot();

    /// The direction can be typed only while it counts.
    virtual void dirSlot();

private:
    Field* azEdit = nullptr;
    Field* elEdit = nullptr;
    Field* mxaEdit = nullptr;
    Field* draEdit = nullptr;
    Field* tmEdit = nullptr;
    QCheckBox* raBox = nullptr;
    QCheckBox* drfBox = nullptr;
    QCheckBox* visBox = nullptr;
    QLabel* raLabel = nullptr;
    QLabel* elLabel = nullptr;
};
