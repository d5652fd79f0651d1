// The window with the details of one pass.
#pragma once

#include <QDialog>

class QPushButton;
class QTextEdit;

class StPassDialog : public QDialog
{
    Q_OBJECT

public:
    explicit StPassDialog(QWidget* parent = nullptr);

public Q_SLOTS:
    /// Lists the pass chosen in the table. `size` is the size of the text in points.
    virtual void setParams(int size);
    virtual void saveSlot();
    virtual void gtrackSlot();

private:
    void save(int mode);

    QTextEdit* passEdit = nullptr;
    QPushButton* closeButton = nullptr;
    QPushButton* saveButton = nullptr;
    QPushButton* gtrackButton = nullptr;
};
