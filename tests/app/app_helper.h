// The base of the tests of the main window: the program in a folder of its own, a clock that stands, and a person who
// gives commands and answers dialogs.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <QAction>
#include <QStringList>

#include "app/vorlix_app.h"
#include "view/vorlix_view.h"
#include "view/window_helper.h"

/// A file of the data of these tests.
QByteArray dataFile(const QString& name);

/// The lines of the report as it stands.
QStringList report();

class AppTest : public QObject
{
protected:
    using Answer = std::function<void(QDialog*)>;
    using Answers = std::vector<Answer>;

    /// A folder with the sample elements, and with a configuration if there is one.
    void prepare(const QByteArray& configuration = {});
    /// The window as the program makes it at its start.
    void start();
    void show();
    /// All three.
    void open(const QByteArray& configuration = {});
    void close();

    QAction* action(const QString& name) const { return app->findChild<QAction*>(name); }
    QTimer* timer() const { return app->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly); }
    VorlixView* canvas() const { return app->canvas(); }

    /// Gives a command: the name of an action, a key as in "Ctrl+A", "click X Y" on the canvas, or "row N" for a click
    /// on a line of the table. Each dialog that comes up is answered once, and no others may come.
    void choose(const QString& command, const Answers& answers = {});

    /// Answers a dialog in words, and notes what is to be seen: `tests/data/app/README.md` tells the words.
    static Answer answer(const QString& acts, QStringList* seen = nullptr);

    /// Gives a list of commands, each followed by its answers behind bars and, behind ">", by what is to be seen.
    /// @return  what else was seen and kept
    QStringList follow(const QString& commands);
    void follow(const QString& commands, QStringList& seen);

    /// What "keep" in a list of commands keeps, by its first word.
    QMap<QString, std::function<void(const QStringList& otherWords, QStringList& kept)>> keepers{
        {"report", [](const QStringList& words, QStringList& kept) { kept << report().filter(words.value(0)); }},
        {"file", [this](const QStringList& words, QStringList& kept) {
             kept << QString(place->read(words[0])).split('\n');
         }}};

    std::unique_ptr<windows::Workplace> place;
    std::unique_ptr<VorlixApp> app;
};
