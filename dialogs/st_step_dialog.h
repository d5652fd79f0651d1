// The time step of plots and listings.
#pragma once

#include <QDialog>

class Field;

class StStepDialog : public QDialog
{
    Q_OBJECT

public:
    explicit StStepDialog(QWidget* parent = nullptr);

    /// The two parts add up.
    struct Values
    {
        int minutes = 0;
        double seconds = 0;
    };
    void setValues(const Values& values);
    Values values() const;

public Q_SLOTS:
    /// `setValues` and `values` one by one.
    virtual void setParams(int min, double sec);

    virtual void getParams(int& min, double& sec);

private:
    Field* minEdit = nullptr;
    Field* secEdit = nullptr;
};
