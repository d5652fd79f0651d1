// The time step of plots and listings.
#pragma once

#include <QDialog>

class Field;

class StStepDialog : public QDialog
{
    Q_OBJECT

public:
    /// Empty fields; `setValues` comes before the dialog is shown.
    explicit StStepDialog(QWidget* parent = nullptr);

    /// The two parts add up.
    struct Values
    {
        int minutes = 0;
        double seconds = 0;
    };
    /// Fills the fields; what is locked or hidden follows.
    void setValues(const Values& values);
    /// What the fields say now; a field left alone gives back its value to the last bit.
    Values values() const;

public Q_SLOTS:
    /// `setValues` and `values` one by one.
    virtual void setParams(int min, double sec);

    /// `values` one by one.
    virtual void getParams(int& min, double& sec);

private:
    Field* minEdit = nullptr;
    Field* secEdit = nullptr;
};
