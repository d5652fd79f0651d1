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
    explicit StSwitchDialog(QWidget* parent = nullptr);

public Q_SLOTS:
    /// `prs` counts from 0; buttons above `satn` are hidden.
    virtual void setParams(int prs, int rlm, int satn);

    virtual void getParams(int& prs, int& rlm);

private:
    std::array<QRadioButton*, 10> satButtons{};
    QCheckBox* relativeBox = nullptr;
};
