// The list of places that element files come from.
#pragma once

#include "elements/element_sources.h"

#include <QDialog>

class QTableWidget;

class StSourcesDialog : public QDialog
{
    Q_OBJECT

public:
    /// An empty list; `setSources` comes before the dialog is shown.
    explicit StSourcesDialog(QWidget* parent = nullptr);

    /// The row with the address in use becomes current.
    void setSources(const std::vector<ElementSource>& sources, const QString& inUse);
    /// Rows without an address are left out.
    std::vector<ElementSource> sources() const;
    /// The address of the current row; empty if there is none.
    QString chosen() const;

public Q_SLOTS:
    /// Waits until the chosen address can be kept.
    void accept() override;

private:
    void add(const ElementSource& source);
    void addNew();
    void removeCurrent();
    void restore();

    QTableWidget* table = nullptr;
};
