// The window of the built-in manual.
#pragma once

#include <QDialog>

class QString;
class QTextEdit;

class StQuickDialog : public QDialog
{
    Q_OBJECT

public:
    /// `setHelpLine` fills the window.
    explicit StQuickDialog(QWidget* parent = nullptr);

    /// Inserts the text where the cursor stands; "$$$" moves the cursor to the start instead.
    void setHelpLine(const QString& s);

private:
    QTextEdit* textEdit1;
};
