#include "road_helper.h"

#include <QAction>

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
    for (int i = 0; i < outdata->nlines; ++i) {
        const std::string_view line = lineText(*outdata, i);
        lines << QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size()));
    }
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

void mark(QDialog* dialog, const char* box, bool on)
{
    auto* button = dialog->findChild<QAbstractButton*>(QLatin1String(box));
    QVERIFY2(button, box);
    if (button->isChecked() != on)
        windows::click(dialog, box);
    QCOMPARE(button->isChecked(), on);
}

}  // namespace road
