// Two sightings of one satellite.
#pragma once

#include <QDialog>

class QCheckBox;
class QFormLayout;
class QLineEdit;
class QPushButton;

class StOrbDetDialog : public QDialog
{
    Q_OBJECT

public:
    explicit StOrbDetDialog(QWidget* parent = nullptr);

public Q_SLOTS:
    /// Each position is azimuth and elevation in degrees or, with its flag, packed HH.MMSS and DD.MMSS; `deltm` is
    /// seconds. `odp`: a picture has two trail ends to offer.
    virtual void setParams(double az1, double el1, double az2, double el2, double deltm, int az1flg, int az2flg,
                           bool odm, bool odp);

    virtual void getParams(double& az1, double& el1, double& az2, double& el2, double& deltm, int& az1flg,
                           int& az2flg, bool& odm);

    virtual void obs1Slot();
    virtual void obs2Slot();

    /// Interchanges the two positions.
    virtual void revSlot();

    /// Takes the two trail ends marked on the picture.
    virtual void picSlot();

private:
    void addBoxes(QFormLayout* rows);

    QLineEdit* az1Edit = nullptr;
    QLineEdit* el1Edit = nullptr;
    QLineEdit* az2Edit = nullptr;
    QLineEdit* el2Edit = nullptr;
    QLineEdit* deltmEdit = nullptr;
    QCheckBox* obs1Box = nullptr;
    QCheckBox* obs2Box = nullptr;
    QCheckBox* matchBox = nullptr;
    QPushButton* picButton = nullptr;
};
