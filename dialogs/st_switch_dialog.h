// The choice of the prime satellite and of the relative mode.
#pragma once

#include <QDialog>

#include <array>

class QCheckBox;
class QRadioButton;

class StSwitchDialog : public QDialog
{
    Q_OBJECT

public:
    /// Empty fields; `setValues` comes before the dialog is shown.
    explicit StSwitchDialog(QWidget* parent = nullptr);

    /// The prime satellite, counted from 0, and whether the others are shown relative to it.
    struct Values
    {
        int prime = 0;
        bool relative = false;
    };

    /// Offers the first `count` satellites of the record.
    void setValues(const Values& values, int count);
    /// What the fields say now; a field left alone gives back its value to the last bit.
    Values values() const;

public Q_SLOTS:
    /// `setValues` and `values` one by one; `rlm` is 1 in relative mode.
    virtual void setParams(int prs, int rlm, int satn);

    /// `values` one by one.
    virtual void getParams(int& prs, int& rlm);

private:
    std::array<QRadioButton*, 10> satButtons{};
    QCheckBox* relativeBox = nullptr;
};
