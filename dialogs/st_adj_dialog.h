// How elements read from an older file are adjusted, and the variants of the analytic model.
#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;

class StAdjDialog : public QDialog
{
    Q_OBJECT

public:
    explicit StAdjDialog(QWidget* parent = nullptr);

public Q_SLOTS:
    /// `adjtim` is seconds, `adjn0` revolutions per day, `adjra` degrees.
    virtual void setParams(bool sdp4, bool adjflg, double adjtim, double adjn0, double adjra, int wgs);

    virtual void getParams(bool& sdp4, bool& adjflg, double& adjtim, double& adjn0, double& adjra, int& wgs);

private:
    QCheckBox* adjBox = nullptr;
    QCheckBox* sdp4Box = nullptr;
    QCheckBox* wgsBox = nullptr;
    QLineEdit* n0Edit = nullptr;
    QLineEdit* timEdit = nullptr;
    QLineEdit* raEdit = nullptr;
};
