// A walk through the program's main job, as a person does it with mouse and keys: a satellite of the sample file is
// selected, its passes are listed, the maps are plotted. Pictures of the window are left in the folder named on the
// command line. The walk runs in a folder of its own with fresh sample files, so that it always starts alike and the
// person's configuration stays as it is.

#include <cstdio>
#include <functional>

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "app/vorlix_app.h"
#include "view/vorlix_view.h"

namespace {

/// What a person does in the dialog that a command opens.
using InDialog = std::function<void(QDialog*)>;

int faults = 0;

void fault(const QString& what)
{
    std::fprintf(stderr, "tour: %s\n", qPrintable(what));
    ++faults;
}

template <class Widget>
Widget* find(QWidget* in, const char* name)
{
    auto* widget = in->findChild<Widget*>(QLatin1String(name));
    if (!widget)
        fault(QStringLiteral("no widget %1 in \"%2\"").arg(QLatin1String(name), in->windowTitle()));
    return widget;
}

void click(QWidget* in, const char* button)
{
    if (auto* widget = find<QAbstractButton>(in, button))
        widget->click();
}

void enter(QWidget* in, const char* edit, const QString& text)
{
    if (auto* widget = find<QLineEdit>(in, edit)) {
        widget->selectAll();
        QTest::keyClicks(widget, text);
    }
}

class Tour
{
public:
    Tour(VorlixApp& window, const QString& pictureFolder) : app(window), pictures(pictureFolder) {}

    void picture(const char* name, QWidget* of = nullptr)
    {
        QWidget* widget = of ? of : &app;
        QTest::qWait(100);
        const QString file = pictures.filePath(QLatin1String(name) + QStringLiteral(".png"));
        if (!widget->grab().save(file))
            fault(QStringLiteral("cannot write %1").arg(file));
    }

    /// Presses a hot key; the dialog that comes up is handed to `inside`, which must close it.
    void keyWithDialog(Qt::Key key, const InDialog& inside)
    {
        bool seen = false;
        QTimer::singleShot(300, &app, [&] { seen = serve(inside); });
        QTest::keyClick(&app, key);
        if (!seen)
            fault(QStringLiteral("key %1 opened no dialog").arg(QChar(int(key))));
    }

    /// Opens the details of the first pass of the table by a click on its row.
    void clickFirstPass(const InDialog& inside)
    {
        bool seen = false;
        QTimer::singleShot(300, &app, [&] { seen = serve(inside); });
        QTest::mouseClick(app.canvas()->viewport(), Qt::RightButton, Qt::NoModifier, QPoint(100, epos[0] + 6));
        if (!seen)
            fault(QStringLiteral("a click on the pass table opened nothing"));
    }

    /// Presses a hot key that opens no dialog; a box that comes up all the same is closed and counts as a fault.
    void key(Qt::Key which)
    {
        QTimer watch;
        watch.setSingleShot(true);
        QObject::connect(&watch, &QTimer::timeout, &app, [] { closeUnexpected(); });
        watch.start(3000);
        QTest::keyClick(&app, which);
        QTest::qWait(20);
    }

private:
    bool serve(const InDialog& inside)
    {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return false;
        inside(dialog);
        if (dialog->isVisible()) {
            fault(QStringLiteral("the dialog \"%1\" stayed open").arg(dialog->windowTitle()));
            dialog->reject();
        }
        return true;
    }

    static void closeUnexpected()
    {
        if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            fault(QStringLiteral("unexpected: \"%1\"").arg(dialog->windowTitle()));
            dialog->reject();
        }
    }

    VorlixApp& app;
    QDir pictures;
};

void selectSatellites(Tour& tour)
{
    tour.keyWithDialog(Qt::Key_S, [&](QDialog* dialog) {
        for (const char* name : {"SEASAT", "ENVISAT", "TERRA"}) {
            enter(dialog, "satnameEdit", QLatin1String(name));
            click(dialog, "findButton");
            if (QLatin1String(name) == QLatin1String("SEASAT"))
                tour.picture("02-select", dialog);
            click(dialog, "selectButton");
        }
        click(dialog, "closeButton");
    });
}

void setPlaceAndDate(Tour& tour)
{
    tour.keyWithDialog(Qt::Key_C, [](QDialog* dialog) {
        enter(dialog, "locEdit", QStringLiteral("Vienna"));
        enter(dialog, "latEdit", QStringLiteral("48.2"));
        enter(dialog, "lngEdit", QStringLiteral("16.37"));
        enter(dialog, "heightEdit", QStringLiteral("200"));
        click(dialog, "okButton");
    });
    tour.keyWithDialog(Qt::Key_D, [&](QDialog* dialog) {
        enter(dialog, "yearEdit", QStringLiteral("2018"));
        enter(dialog, "monthEdit", QStringLiteral("1"));
        enter(dialog, "dayEdit", QStringLiteral("20"));
        enter(dialog, "hourEdit", QStringLiteral("16"));
        enter(dialog, "minEdit", QStringLiteral("0"));
        enter(dialog, "secEdit", QStringLiteral("0"));
        if (auto* box = find<QCheckBox>(dialog, "systemBox"))
            box->setChecked(false);
        enter(dialog, "tzoneEdit", QStringLiteral("1"));
        tour.picture("03-date", dialog);
        click(dialog, "okButton");
    });
}

/// Chooses buttons of the map dialog and accepts it.
void chooseMap(Tour& tour, std::initializer_list<const char*> buttons, bool sky)
{
    tour.keyWithDialog(Qt::Key_Y, [&](QDialog* dialog) {
        if (auto* box = find<QCheckBox>(dialog, "skyBox"))
            box->setChecked(sky);
        for (const char* button : buttons)
            click(dialog, button);
        click(dialog, "okButton");
    });
}

/// Switches the transit mode of the Sun with its disk plot on or off.
void sunDisk(Tour& tour, bool on)
{
    tour.keyWithDialog(Qt::Key_V, [&](QDialog* dialog) {
        if (auto* box = find<QCheckBox>(dialog, "occBox"))
            box->setChecked(on);
        if (on) {
            click(dialog, "sunButton");
            if (auto* box = find<QCheckBox>(dialog, "smplotBox"))
                box->setChecked(true);
            tour.picture("11-visibility", dialog);
        }
        click(dialog, "okButton");
    });
}

void walk(VorlixApp& app, const QString& pictureFolder)
{
    Tour tour(app, pictureFolder);
    tour.picture("01-welcome");
    selectSatellites(tour);
    setPlaceAndDate(tour);
    tour.key(Qt::Key_A);
    tour.picture("04-passes");
    tour.clickFirstPass([&](QDialog* dialog) {
        tour.picture("05-pass-details", dialog);
        click(dialog, "closeButton");
    });
    tour.key(Qt::Key_PageDown);
    for (int step = 0; step < 40; ++step)
        tour.key(Qt::Key_Right);
    tour.picture("06-map");
    chooseMap(tour, {"g30Button", "pnorthButton"}, false);
    tour.key(Qt::Key_PageDown);
    tour.picture("07-hemisphere");
    chooseMap(tour, {"zenithButton"}, true);
    tour.key(Qt::Key_PageDown);
    tour.picture("08-sky");
    chooseMap(tour, {"southButton"}, true);
    tour.key(Qt::Key_U);
    tour.picture("09-sky-south");
    chooseMap(tour, {"ppwmButton"}, false);
    sunDisk(tour, true);
    tour.key(Qt::Key_U);
    tour.picture("12-disk");
    sunDisk(tour, false);
    tour.key(Qt::Key_U);
    tour.keyWithDialog(Qt::Key_E, [&](QDialog* dialog) {
        tour.picture("10-editor", dialog);
        click(dialog, "cancelButton");
    });
}

bool prepareFolder(const QString& folder)
{
    const QDir samples(QCoreApplication::applicationDirPath());
    for (const char* name : {"visual.txt", "iridium.txt"}) {
        if (!QFile::copy(samples.filePath(QLatin1String(name)), folder + QLatin1Char('/') + QLatin1String(name)))
            return false;
    }
    return QDir::setCurrent(folder);
}

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setFont(QFont(QStringLiteral("helvetica"), 10));
    const QString pictures = QDir(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(".")).absolutePath();
    const QTemporaryDir folder;
    if (!folder.isValid() || !QDir().mkpath(pictures) || !prepareFolder(folder.path())) {
        std::fprintf(stderr, "tour: no folder to work in\n");
        return 1;
    }

    VorlixApp app;
    app.show();
    if (!QTest::qWaitForWindowExposed(&app))
        std::fprintf(stderr, "tour: the window does not show\n");
    walk(app, pictures);
    return faults == 0 ? 0 : 1;
}
