// The horizon of the observing place, from a file.
#pragma once

#include "observing/horizon_file.h"

#include <QDialog>
#include <QWidget>
#include <memory>

class QLabel;
class QLineEdit;

/// The panorama under a line, from north through east to north.
class HorizonPlot : public QWidget
{
    Q_OBJECT

public:
    explicit HorizonPlot(QWidget* parent = nullptr);
    /// Null shows an empty panorama.
    void setLine(std::shared_ptr<const HorizonLine> shown);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::shared_ptr<const HorizonLine> line;
};

class StHorizonDialog : public QDialog
{
    Q_OBJECT

public:
    /// No file; `setFile` comes before the dialog is shown.
    explicit StHorizonDialog(QWidget* parent = nullptr);

    /// Empty for none.
    void setFile(const QString& name);
    QString file() const;
    /// What the file holds; OK waits until it is a line, or until there is no file.
    const std::shared_ptr<const HorizonLine>& line() const { return shown.line; }

public Q_SLOTS:
    void accept() override;

private:
    void browse();
    void read();

    HorizonText shown;
    QLineEdit* fileEdit = nullptr;
    QLabel* contentLabel = nullptr;
    HorizonPlot* plot = nullptr;
};
