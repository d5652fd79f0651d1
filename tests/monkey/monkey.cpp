// Lets a random hand loose on the program:
//
//     monkey [EVENTS [SEED]]
//
// The same seed gives the same events; the environment variable VORLIX_MONKEY_EVENTS takes the place of their number for
// a long run. They are written to monkey.txt in the working directory before they happen: if the program dies, stands
// still or holds what it must not hold, the last line is the cause.

#include "monkey/hand.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include <unistd.h>

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QFont>
#include <QTemporaryDir>
#include <QTimer>

#include "app/vorlix_app.h"
#include "record/text.h"
#include "record/wout_data.h"
#include "view/window_helper.h"

namespace {

constexpr unsigned int secondsOfAHang = 300;  // for one event

std::FILE* eventList = nullptr;

void tell(const QString& event)
{
    std::fprintf(eventList, "%s\n", qPrintable(event));
    std::fflush(eventList);
}

template <std::size_t N>
bool isTerminated(const char (&field)[N])
{
    return fieldText(field).size() < N;
}

/// What a record holds whatever was entered.
bool isSound(const WinpData& in)
{
    const bool counts = in.satn >= 0 && in.satn <= maxSatellites && in.prs >= 0 && in.prs < maxSatellites &&
                        in.naos >= 0 && in.naos <= static_cast<int>(std::size(in.aostm)) && outdata->nlines >= 0 &&
                        outdata->nlines <= maxReportLines;
    const bool texts = isTerminated(in.geoname) && isTerminated(in.savename) && isTerminated(in.tlename) &&
                       isTerminated(in.tlesave) && isTerminated(in.url);
    return counts && texts && std::ranges::all_of(in.fsname, [](const auto& name) { return isTerminated(name); });
}

/// Calls the hand from the event loop, also from those of the dialogs.
class Monkey : public QObject
{
public:
    Monkey(unsigned long long wanted, unsigned long long given) : events(wanted), seed(given) {}

    /// Until the program ends by a command, or the events do.
    void play()
    {
        tell("start of the program");
        app = std::make_unique<VorlixApp>();
        app->show();
        next();
        QApplication::exec();
        app.reset();
    }

    bool isDone() const { return event >= events; }

    void printSlowest() const
    {
        std::printf("monkey: %llu events, seed %llu, the slowest, %llu, took %.1f s\n", event, seed, slowestEvent,
                    1e-3 * static_cast<double>(slowestMs));
    }

private:
    void next() { QMetaObject::invokeMethod(this, &Monkey::act, Qt::QueuedConnection); }

    void act()
    {
        if (isDone()) {
            finish();
            return;
        }
        QWidget* const popup = QApplication::activePopupWidget();
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (acting && !popup && !dialog) {
            QTimer::singleShot(1, this, &Monkey::act);  // the last act is not over yet
            return;
        }
        next();
        const bool outer = !acting;
        acting = true;
        QElapsedTimer time;
        time.start();
        ::alarm(secondsOfAHang);
        const unsigned long long number = event++;
        tell(QString::number(number));
        // each event has numbers of its own: how many the one before it took does not matter
        fuzz::Dice dice(seed * 1'000'003 + number);
        if (popup)
            monkey::actOnPopup(*popup, dice, tell);
        else if (dialog)
            monkey::actOnDialog(*dialog, dice, tell);
        else
            monkey::actOnWindow(*app, dice, tell);
        holdTimer();
        if (!isSound(*indata)) {
            tell("the record is not sound");
            std::abort();
        }
        if (!outer)
            return;
        acting = false;
        if (time.elapsed() > slowestMs) {
            slowestMs = time.elapsed();
            slowestEvent = number;
        }
    }

    /// Closes one dialog after the other, then the program.
    void finish()
    {
        QWidget* const modal = QApplication::activeModalWidget();
        if (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
        else if (auto* dialog = qobject_cast<QDialog*>(modal))
            dialog->reject();
        else
            QCoreApplication::quit();
        if (modal || acting)
            next();
    }

    /// Plots run by the hand.
    void holdTimer() const
    {
        constexpr int never = 1 << 30;
        auto* const timer = app->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
        if (timer && timer->isActive() && timer->interval() != never)
            timer->setInterval(never);
    }

    const unsigned long long events, seed;
    std::unique_ptr<VorlixApp> app;
    unsigned long long event = 0;
    bool acting = false;
    qint64 slowestMs = 0;
    unsigned long long slowestEvent = 0;
};

/// The offscreen platform excuses itself for what nobody sees.
void showMessage(QtMsgType, const QMessageLogContext&, const QString& text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support")))
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

unsigned long long number(const char* text, unsigned long long otherwise)
{
    return text ? std::strtoull(text, nullptr, 10) : otherwise;
}

}  // namespace

int main(int argc, char* argv[])
{
    const unsigned long long events = number(argc > 1 ? argv[1] : nullptr, 5000);
    const unsigned long long seed = number(argc > 2 ? argv[2] : nullptr, 1);
    eventList = std::fopen("monkey.txt", "w");
    if (!eventList)
        return 2;
    std::printf("monkey: the events are in %s\n", qPrintable(QDir::current().filePath("monkey.txt")));
    std::fflush(stdout);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(showMessage);
    const QTemporaryDir folder;
    // the program looks for pictures and files there when it has no element file
    qputenv("HOME", folder.path().toUtf8());
    QDir::setCurrent(folder.path());
    monkey::layOutFiles();
    windows::stopTheClock();
    QApplication application(argc, argv);
    QApplication::setFont(QFont("helvetica", 10));
    Monkey monkey(number(std::getenv("VORLIX_MONKEY_EVENTS"), events), seed);
    while (!monkey.isDone()) {
        QDir::setCurrent(folder.path());
        monkey.play();
    }
    monkey.printSlowest();
    std::fclose(eventList);
    return 0;
}
