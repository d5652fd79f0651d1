// The coordinates of a star that was clicked on a picture.
#pragma once

#include <QDialog>

class Field;

class StAstDialog : public QDialog
{
    Q_OBJECT

public:
    /// Empty fields; `setValues` comes before the dialog is shown.
    explicit StAstDialog(QWidget* parent = nullptr);

    /// A place among the stars, packed.
    struct Values
    {
        double ra = 0;   // HH.MMSS
        double dec = 0;  // DD.MMSS
    };

    /// Two zeros leave the fields empty.
    void setValues(const Values& values);
    /// What the fields say now; a field left alone gives back its value to the last bit.
    Values values() const;

    /// Says in the title which star of how many is asked for; both count from 1.
    void setStar(int number, int count);

public Q_SLOTS:
    /// `setValues` one by one.
    virtual void setParams(double ra, double dec);

    /// `abort` tells that Abort has closed the dialog.
    virtual void getParams(double& ra, double& dec, bool& abort);

    /// Accepts the dialog with the flag of `getParams` set.
    virtual void abortSlot();

private:
    Field* raEdit = nullptr;
    Field* decEdit = nullptr;
    bool aborted = false;
};
