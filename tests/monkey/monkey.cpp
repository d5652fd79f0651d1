// Lets a random hand loose on the program:
//
//     monkey [--events N] [--seed K] [--trace]
//
// The same seed gives the same events. If the program dies, stands still or holds what it must not hold, the last events
// are printed together with the call that repeats them. The environment variable VORLIX_MONKEY_EVENTS takes the place
// of N for a long run.

#include "monkey/hand.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <memory>
#include <string>
#include <string_view>

#include <signal.h>  // NOLINT(modernize-deprecated-headers): sigaction and its kin are of POSIX
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFont>
#include <QTemporaryDir>
#include <QTimer>

#include "app/record/text.h"
#include "app/record/wout_data.h"
#include "app/vorlix_app.h"
#include "view/window_helper.h"

namespace {

constexpr int secondsOfAHang = 300;  // for one event
constexpr std::size_t eventsToShow = 40;

struct Options
{
    Options(int argc, char* argv[])
    {
        for (int i = 1; i < argc; ++i) {
            const std::string_view word = argv[i];
            if (word == "--events" && i + 1 < argc)
                events = std::strtoull(argv[++i], nullptr, 10);
            else if (word == "--seed" && i + 1 < argc)
                seed = std::strtoull(argv[++i], nullptr, 10);
            else if (word == "--trace")
                trace = true;
        }
        if (const char* wanted = std::getenv("VORLIX_MONKEY_EVENTS"))
            events = std::strtoull(wanted, nullptr, 10);
    }

    unsigned long long events = 5000;
    unsigned long long seed = 1;
    bool trace = false;  // every event as it comes
};

/// To the process that watches.
int eventPipe = -1;

void tell(const QString& event)
{
    const QByteArray line = event.toUtf8() + '\n';
    if (::write(eventPipe, line.data(), static_cast<std::size_t>(line.size())) < 0)
        std::_Exit(3);  // nobody watches
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
    return counts && texts && std::all_of(std::begin(in.fsname), std::end(in.fsname), [](const auto& name) {
               return isTerminated(name);
           });
}

/// Calls the hand from the event loop, also from those of the dialogs.
class Monkey : public QObject
{
public:
    explicit Monkey(const Options& given) : options(given) {}

    /// Until the program ends by a command, or the events do.
    void play()
    {
        app = std::make_unique<VorlixApp>();
        app->show();
        next();
        QApplication::exec();
        app.reset();
    }

    bool isDone() const { return event >= options.events; }

    void printSlowest() const { std::printf("monkey: the slowest event took %.1f s: %llu\n", slowest, slowestEvent); }

private:
    void next()
    {
        QMetaObject::invokeMethod(
            this, [this] { act(); }, Qt::QueuedConnection);
    }

    void act()
    {
        if (isDone()) {
            finish();
            return;
        }
        QWidget* const popup = QApplication::activePopupWidget();
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (acting && !popup && !dialog) {
            QTimer::singleShot(1, this, [this] { act(); });  // the last act is not over yet
            return;
        }
        next();
        const bool outer = !acting;
        acting = true;
        const auto start = std::chrono::steady_clock::now();
        const unsigned long long number = event++;
        tell(QStringLiteral("%1").arg(number));
        // each event has numbers of its own: how many the one before it took does not matter
        fuzz::Dice dice(options.seed * 1'000'003 + number);
        if (popup)
            monkey::actOnPopup(*popup, dice, tell);
        else if (dialog)
            monkey::actOnDialog(*dialog, dice, tell);
        else
            monkey::actOnWindow(*app, dice, tell);
        holdTimer();
        if (!isSound(*indata)) {
            tell(QStringLiteral("the record is not sound"));
            std::abort();
        }
        const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        if (outer && seconds > slowest) {
            slowest = seconds;
            slowestEvent = number;
        }
        if (outer)
            acting = false;
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

    const Options options;
    std::unique_ptr<VorlixApp> app;
    unsigned long long event = 0;
    bool acting = false;
    double slowest = 0;
    unsigned long long slowestEvent = 0;
};

/// The offscreen platform excuses itself for what nobody sees.
void showMessage(QtMsgType, const QMessageLogContext&, const QString& text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support")))
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

int playAll(int argc, char* argv[], const Options& options)
{
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
    Monkey monkey(options);
    while (!monkey.isDone()) {
        QDir::setCurrent(folder.path());
        tell(QStringLiteral("start of the program"));
        monkey.play();
    }
    monkey.printSlowest();
    return 0;
}

/// Reads what the playing process tells, and sees to it that it goes on.
class Watcher
{
public:
    Watcher(pid_t player, int from, const Options& given) : child(player), pipe(from), options(given) {}

    int watch()
    {
        while (readOn()) {}
        int status = 0;
        ::waitpid(child, &status, 0);
        const bool good = WIFEXITED(status) && WEXITSTATUS(status) == 0;
        if (!good)
            printLast(status);
        else
            std::printf("monkey: %llu events, seed %llu\n", events, options.seed);
        return good ? 0 : 1;
    }

private:
    bool readOn()
    {
        ::fd_set set;
        FD_ZERO(&set);
        FD_SET(pipe, &set);
        ::timeval limit{secondsOfAHang, 0};
        if (::select(pipe + 1, &set, nullptr, nullptr, &limit) == 0) {
            std::fprintf(stderr, "monkey: no event for %d s\n", secondsOfAHang);
            ::kill(child, SIGABRT);
            return false;
        }
        char block[4096];
        const ssize_t n = ::read(pipe, block, sizeof block);
        if (n <= 0)
            return false;
        take({block, static_cast<std::size_t>(n)});
        return true;
    }

    void take(std::string_view bytes)
    {
        for (const char c : bytes) {
            line += c;
            if (c != '\n')
                continue;
            if (options.trace)
                std::fputs(line.c_str(), stderr);
            if (line[0] >= '0' && line[0] <= '9')
                ++events;
            last.push_back(line);
            if (last.size() > 2 * eventsToShow)
                last.pop_front();
            line.clear();
        }
    }

    void printLast(int status) const
    {
        std::fprintf(stderr, "monkey: ended by %s %d. The last events, of which it was the last one:\n",
                     WIFSIGNALED(status) ? "signal" : "code",
                     WIFSIGNALED(status) ? WTERMSIG(status) : WEXITSTATUS(status));
        for (const std::string& shown : last)
            std::fputs(shown.c_str(), stderr);
        std::fprintf(stderr, "monkey: repeat it by: monkey --seed %llu --events %llu\n", options.seed, events);
    }

    const pid_t child;
    const int pipe;
    const Options options;
    std::string line;
    std::deque<std::string> last;
    unsigned long long events = 0;
};

}  // namespace

int main(int argc, char* argv[])
{
    const Options options(argc, argv);
    int ends[2];
    if (::pipe(ends) != 0)
        return 2;
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(ends[0]);
        eventPipe = ends[1];
        return playAll(argc, argv, options);
    }
    ::close(ends[1]);
    return Watcher(child, ends[0], options).watch();
}
