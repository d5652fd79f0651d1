// Marks selected satellites for removal.
#pragma once

#include <QDialog>

#include <array>

class Field;
class QCheckBox;
class QVBoxLayout;

/// The rows in use of the dialog on show.
extern int nboxes;

class StRemSatDialog : public QDialog
{
    Q_OBJECT

public:
    /// Ten rows; `setParams` comes before the dialog is shown.
    explicit StRemSatDialog(QWidget* parent = nullptr);

    /// Which of the ten slots are marked; those beyond the rows in use never are.
    std::array<bool, 10> values() const;

public Q_SLOTS:
    /// Shows the first `satnr` satellites of the record.
    virtual void setParams(int satnr);

    /// `values` as ten flags, all of them written.
    virtual void getParams(bool* sats);

    /// Marks all satellites; nothing is removed before OK.
    virtual void alldlt();

private:
    /// Row i, counted from 0.
    void addRow(QVBoxLayout* column, int i);

    std::array<QCheckBox*, 10> boxes{};
    std::array<Field*, 10> names{};
};
