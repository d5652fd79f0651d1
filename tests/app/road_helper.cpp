#include "road_helper.h"

#include <QAction>
#include <QComboBox>
#include <QDoubleSpinBox>

#include "app/record/text.h"
#include "app/record/wout_data.h"

namespace road {

Session::Session(const QByteArray& configuration)
{
    windows::stopTheClock();
    place.write("vorlix.cfg", configuration);
}

void Session::start()
{
    app.reset();
    app = std::make_unique<VorlixApp>();
    app->show();
    QVERIFY(QTest::qWaitForWindowActive(app.get()));
}

QAction* Session::action(const char* name) const
{
    return app->findChild<QAction*>(QLatin1String(name));
}

void Session::press(Qt::Key key, const std::vector<std::function<void(QDialog*)>>& handlers)
{
    const int came = windows::answering([&] { QTest::keyClick(app.get(), key); }, handlers);
    QCOMPARE(came, static_cast<int>(handlers.size()));
}

void Session::command(Qt::Key key, const std::vector<std::function<void(QDialog*)>>& handlers)
{
    const int came = windows::answering([&] { QTest::keyClick(app.get(), key, Qt::ControlModifier); }, handlers);
    QCOMPARE(came, static_cast<int>(handlers.size()));
}

void Session::choose(const char* name, const std::vector<std::function<void(QDialog*)>>& handlers)
{
    QVERIFY2(action(name), name);
    const int came = windows::answering([&] { action(name)->trigger(); }, handlers);
    QCOMPARE(came, static_cast<int>(handlers.size()));
}

QStringList report()
{
    QStringList lines;
    for (int i = 0; i < outdata->nlines; ++i)
        lines << textQString(lineText(*outdata, i));
    return lines;
}

std::function<void(QDialog*)> entering(const std::vector<Entry>& entries)
{
    return [entries](QDialog* dialog) {
        for (const Entry& entry : entries)
            windows::enter(dialog, entry.edit, entry.text);
        windows::click(dialog, "okButton");
    };
}

std::function<void(QDialog*)> number(double value)
{
    return [=](QDialog* dialog) {
        auto* box = dialog->findChild<QDoubleSpinBox*>();
        QVERIFY2(box, qPrintable(dialog->windowTitle()));
        box->setValue(value);
        dialog->accept();
    };
}

std::function<void(QDialog*)> ellipse(const QString& name, double perigee, double apogee, std::vector<Entry> others)
{
    others.insert(others.end(),
                  {{"nameEdit", name}, {"periEdit", QString::number(perigee)}, {"apoEdit", QString::number(apogee)}});
    return [others](QDialog* dialog) {
        mark(dialog, "spg4Box", false);
        mark(dialog, "perapBox", true);
        entering(others)(dialog);
    };
}

std::function<void(QDialog*)> launchFrom(int site, const char* direction)
{
    return [=](QDialog* dialog) {
        auto* sites = dialog->findChild<QComboBox*>("siteBox");
        sites->setFocus();
        QTest::keyClick(sites, Qt::Key_Home);
        for (int k = 0; k < site; ++k)
            QTest::keyClick(sites, Qt::Key_Down);
        windows::click(dialog, direction);
        windows::click(dialog, "okButton");
    };
}

void mark(QDialog* dialog, const char* box, bool on)
{
    auto* button = dialog->findChild<QAbstractButton*>(QLatin1String(box));
    QVERIFY2(button, box);
    if (button->isChecked() != on)
        windows::click(dialog, box);
    QCOMPARE(button->isChecked(), on);
}

}  // namespace road
