// The window that shows a text of local details.
#pragma once

#include <QDialog>

class QPushButton;
class QTextEdit;

class StLocalDialog : public QDialog
{
    Q_OBJECT

public:
    /// `setParams` fills the window.
    explicit StLocalDialog(QWidget* parent = nullptr);

public Q_SLOTS:
    /// `fsz` is the size of the text in points.
    virtual void setParams(QString s, int fsz);

private:
    QTextEdit* textEdit = nullptr;
    QPushButton* closeButton = nullptr;
};
