// What the tests of the windows share: a folder to work in, a clock that stands, and a person who answers the dialogs.
#pragma once

#include <ctime>
#include <functional>
#include <vector>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QString>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "elements/selection.h"
#include "record/clock.h"
#include "record/files.h"
#include "record/keep.h"
#include "record/winp_data.h"

namespace windows {

/// A working directory of its own, with the sample elements of January 2018 as visual.txt if wanted.
class Workplace
{
public:
    explicit Workplace(bool withElements = true)
    {
        QDir::setCurrent(folder.path());
        if (withElements)
            QFile::copy(QStringLiteral(TEST_DATA "/elements/visual_2018.txt"), path("visual.txt"));
    }
    ~Workplace() { QDir::setCurrent(before); }
    Workplace(const Workplace&) = delete;
    Workplace& operator=(const Workplace&) = delete;

    QString path(const QString& name) const { return folder.filePath(name); }

    QByteArray read(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
    }

    void write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
    }

private:
    const QString before = QDir::currentPath();
    const QTemporaryDir folder;
};

/// The seconds since 1970 that the program sees.
inline std::time_t clockSeconds = 1516467909;  // 2018-01-20 17:05:09 UTC

inline void stopTheClock()
{
    clockSeconds = 1516467909;
    systemSeconds = [] { return clockSeconds; };
}

/// Runs a command and answers the modal windows that it opens, one handler each; a window
/// that its handler leaves open, or that has none, is rejected.
/// @return  how many windows came
inline int answering(const std::function<void()>& command, const std::vector<std::function<void(QDialog*)>>& handlers)
{
    int served = 0;
    QDialog* last = nullptr;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || dialog == last)
            return;
        last = dialog;
        QObject::connect(dialog, &QDialog::finished, [&] { last = nullptr; });
        const QPointer<QDialog> open(dialog);
        const auto handler = static_cast<std::size_t>(served++);
        if (handler < handlers.size())
            handlers[handler](dialog);
        if (open && open->isVisible())
            open->reject();  // nothing may hang
    });
    poll.start(5);
    command();
    return served;
}

inline void enter(QDialog* dialog, const char* edit, const QString& text)
{
    auto* line = dialog->findChild<QLineEdit*>(QLatin1String(edit));
    QVERIFY2(line, edit);
    line->selectAll();
    QTest::keyClick(line, Qt::Key_Delete);
    QTest::keyClicks(line, text);
}

inline void click(QDialog* dialog, const char* button)
{
    auto* widget = dialog->findChild<QAbstractButton*>(QLatin1String(button));
    QVERIFY2(widget, button);
    // a check box as wide as its dialog answers on its mark and its text only
    const QPoint onMark(8, widget->height() / 2);
    QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, widget->isCheckable() ? onMark : QPoint());
}

/// Presses the button with this text, "&" left out.
inline void press(QDialog* dialog, const QString& text)
{
    for (auto* button : dialog->findChildren<QAbstractButton*>()) {
        if (button->text().remove(QLatin1Char('&')) == text) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    QFAIL(qPrintable(QStringLiteral("no button ") + text));
}

/// An answer in words: "box edit=text okButton" clicks, enters and clicks.
inline std::function<void(QDialog*)> acts(const QString& words)
{
    return [words](QDialog* dialog) {
        for (const QString& word : words.split(' ')) {
            const auto sign = word.indexOf('=');
            if (sign < 0)
                click(dialog, qPrintable(word));
            else
                enter(dialog, qPrintable(word.left(sign)), word.mid(sign + 1));
        }
    };
}

/// What the message boxes of a command say, as "title: text"; the windows before them are answered one by one.
inline QStringList told(const std::function<void()>& command,
                        std::vector<std::function<void(QDialog*)>> answersBefore = {})
{
    QStringList boxes;
    constexpr int most = 3;
    answersBefore.insert(answersBefore.end(), most, [&](QDialog* dialog) {
        const auto* box = qobject_cast<QMessageBox*>(dialog);
        boxes << dialog->windowTitle() + ": " + (box ? box->text() : "no message box");
        dialog->reject();
    });
    answering(command, answersBefore);
    return boxes;
}

/// Adds a satellite of the element file to the selection, as the selection dialog does.
inline void select(const QString& name)
{
    const FilePtr file = openForReading(indata->tlename);
    const Keep shown(satfle, file.get());
    QString text = name;
    int found = 0;
    vsFindSat(text, found, 0, 0, 0);
    QVERIFY2(found > 0, qPrintable(name));
    vsSatSel();
}

/// The observer of the tests: Vienna, and all passes above the horizon.
inline void observeAllFromVienna()
{
    indata->lat = 48.25;
    indata->lng = 16.5;
    indata->height = 200.0;
    indata->visflg = 0;
    indata->sunel = 90.0;
}

}  // namespace windows
