// The time step of plots and listings.
#pragma once

#include <QDialog>

class QLineEdit;

class StStepDialog : public QDialog
{
    Q_OBJECT

public:
    explicit StStepDialog(QWidget* parent = nullptr);

public Q_SLOTS:
    virtual void setParams(int min, double sec);

    virtual void getParams(int& min, double& sec);

private:
    QLineEdit* minEdit = nullptr;
    QLineEdit* secEdit = nullptr;
};
