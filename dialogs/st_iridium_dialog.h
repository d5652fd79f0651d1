// The search for Iridium flares.
#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;

class StIridiumDialog : public QDialog
{
    Q_OBJECT

public:
    explicit StIridiumDialog(QWidget* parent = nullptr);

public Q_SLOTS:
    virtual void setParams(double mag, bool ops, bool irsol);

    virtual void getParams(double& mag, bool& ops, bool& irsol);

private:
    QLineEdit* magEdit = nullptr;
    QCheckBox* opsBox = nullptr;
    QCheckBox* solpBox = nullptr;
};
