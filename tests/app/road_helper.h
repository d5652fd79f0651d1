// A person at the main window: starts the program with a configuration, gives commands by their keys, answers dialogs.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <QStringList>

#include "app/vorlix_app.h"
#include "view/window_helper.h"

namespace road {

/// What a configuration file holds, line by line, and what the welcome report then says.
struct Configuration
{
    QByteArrayList lines{"16.000000 ",
                         "48.250000 ",
                         "16.370000 ",
                         "171.500000 ",
                         "Vienna",
                         "10 ",
                         "2 ",
                         "1 ",
                         "./visual.txt",
                         "0 ",
                         "-6.250000 ",
                         "10.500000",
                         "2000.000000",
                         "12",
                         "1",
                         "0 ",
                         "celestrak.org/NORAD/elements/visual.txt",
                         "2.5   150.5   140.5     3.5",
                         "  2.20000e+00   1.20000e+00   1.50000e-02",
                         "2 ",
                         "HST",
                         "ENVISAT"};

    QByteArray text() const { return lines.join('\n') + '\n'; }
};

/// The program in a folder of its own.
class Session
{
public:
    explicit Session(const QByteArray& configuration = Configuration().text());

    void start();
    QAction* action(const char* name) const;

    /// Presses a key of the main window; each dialog that comes up is answered by one handler, and no others may come.
    void press(Qt::Key key, const std::vector<std::function<void(QDialog*)>>& handlers = {});
    /// The same with Ctrl.
    void command(Qt::Key key, const std::vector<std::function<void(QDialog*)>>& handlers = {});
    /// The same for a command that has no key.
    void choose(const char* name, const std::vector<std::function<void(QDialog*)>>& handlers = {});

    const windows::Workplace place;
    std::unique_ptr<VorlixApp> app;
};

/// The lines of the report as it stands.
QStringList report();

/// Fills in the dialog and presses OK.
struct Entry
{
    const char* edit;
    QString text;
};
std::function<void(QDialog*)> entering(const std::vector<Entry>& entries);

/// Enters the number of an input dialog.
std::function<void(QDialog*)> number(double value);

/// Makes an ellipse of the simple model in the editor: heights of perigee and apogee, km, and what else is given.
std::function<void(QDialog*)> ellipse(const QString& name, double perigee, double apogee,
                                      std::vector<Entry> others = {});

/// Chooses a launch site of the list, and the direction by its button.
std::function<void(QDialog*)> launchFrom(int site, const char* direction);

/// Marks or unmarks a box by a click, if it is not so already.
void mark(QDialog* dialog, const char* box, bool on);

}  // namespace road
