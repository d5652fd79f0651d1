// The coordinates of a star that was clicked on a picture.
#pragma once

#include <QDialog>

class QLineEdit;

class StAstDialog : public QDialog
{
    Q_OBJECT

public:
    explicit StAstDialog(QWidget* parent = nullptr);

public Q_SLOTS:
    /// Packed HH.MMSS and DD.MMSS; two zeros leave the fields empty.
    virtual void setParams(double ra, double dec);

    /// `abort` tells that the dialog was left by Abort.
    virtual void getParams(double& ra, double& dec, bool& abort);

    virtual void abortSlot();

private:
    QLineEdit* raEdit = nullptr;
    QLineEdit* decEdit = nullptr;
    bool aborted = false;
};
