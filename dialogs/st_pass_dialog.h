// The window with the details of one pass.
#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <utility>

class HorizonLine;
class QPushButton;
class QTextEdit;

class StPassDialog : public QDialog
{
    Q_OBJECT

public:
    /// `setParams` fills the window.
    explicit StPassDialog(QWidget* parent = nullptr);

    /// The line of the place that cuts the pass; before `setParams`. Null: none.
    void setHorizon(std::shared_ptr<const HorizonLine> line) { horizon = std::move(line); }

    /// Shows a button for a chart of the pass, which does this.
    void offerChart(const std::function<void()>& show);

public Q_SLOTS:
    /// Lists the pass chosen in the table. `size` is the size of the text in points.
    virtual void setParams(int size);
    /// Appends the listing to the save file.
    virtual void saveSlot();
    /// Appends time, latitude and longitude of each step to the save file.
    virtual void gtrackSlot();

private:
    /// A code of `passform`; says so when it has been written.
    void save(int mode);

    std::shared_ptr<const HorizonLine> horizon;
    QTextEdit* passEdit = nullptr;
    QPushButton* closeButton = nullptr;
    QPushButton* saveButton = nullptr;
    QPushButton* gtrackButton = nullptr;
    QPushButton* chartButton = nullptr;
};
