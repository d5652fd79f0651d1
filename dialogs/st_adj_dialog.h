// How elements read from an older file are adjusted, and the variants of the analytic model.
#pragma once

#include <QDialog>

class Field;
class QCheckBox;

class StAdjDialog : public QDialog
{
    Q_OBJECT

public:
    /// Empty fields; `setValues` comes before the dialog is shown.
    explicit StAdjDialog(QWidget* parent = nullptr);

    /// What is done to elements as they are read, and two variants of the analytic model.
    struct Values
    {
        bool sdp4 = false;    // SDP4 for periods above 225 minutes
        bool adjflg = false;  // the three adjustments below are in force
        double adjtim = 0;    // added to the epoch, seconds
        double adjn0 = 0;     // replaces the mean motion, rev/day; 0 leaves it
        double adjra = 0;     // added to the node, degrees
        bool wgs84 = false;   // constants of WGS84 instead of WGS72
    };
    /// Fills the fields; what is locked or hidden follows.
    void setValues(const Values& values);
    /// What the fields say now; a field left alone gives back its value to the last bit.
    Values values() const;

public Q_SLOTS:
    /// `setValues` and `values` one by one; `wgs` is 1 for WGS84, otherwise 0.
    virtual void setParams(bool sdp4, bool adjflg, double adjtim, double adjn0, double adjra, int wgs);

    /// `values` one by one.
    virtual void getParams(bool& sdp4, bool& adjflg, double& adjtim, double& adjn0, double& adjra, int& wgs);

private:
    QCheckBox* adjBox = nullptr;
    QCheckBox* sdp4Box = nullptr;
    QCheckBox* wgsBox = nullptr;
    Field* n0Edit = nullptr;
    Field* timEdit = nullptr;
    Field* raEdit = nullptr;
};
