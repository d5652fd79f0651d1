// Marks selected satellites for removal.
#pragma once

#include <QDialog>

#include <array>

class QCheckBox;
class QLineEdit;
class QVBoxLayout;

/// The rows in use of the dialog on show.
extern int nboxes;

class StRemSatDialog : public QDialog
{
    Q_OBJECT

public:
    explicit StRemSatDialog(QWidget* parent = nullptr);

public Q_SLOTS:
    virtual void setParams(int satnr);

    /// @param sats  ten flags, all of them written
    virtual void getParams(bool* sats);

    /// Marks all satellites; nothing is removed before OK.
    virtual void alldlt();

private:
    void addRow(QVBoxLayout* column, int i);

    std::array<QCheckBox*, 10> boxes{};
    std::array<QLineEdit*, 10> names{};
};
