#include "scan/workers.h"

#include "record/progress.h"

#include <algorithm>
#include <chrono>
#include <system_error>
#include <utility>

namespace {

constexpr int placesPerWorker = 8;
constexpr auto longestWait = std::chrono::milliseconds(150);  // before the listener is told again

int wanted = 0;  // 0: as many as there are cores

}  // namespace

int scanWorkers()
{
    return wanted > 0 ? wanted : std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
}

void setScanWorkers(int count)
{
    wanted = std::max(count, 0);
}

int EntryRing::placesNeeded()
{
    return scanWorkers() * placesPerWorker;
}

EntryRing::EntryRing(int places, Work searchEntry, Work finishEntry)
    : search(std::move(searchEntry)),
      finish(std::move(finishEntry)),
      mostHelpers(static_cast<std::size_t>(scanWorkers() - 1)),
      states(static_cast<std::size_t>(places), State::empty)
{}

EntryRing::~EntryRing()
{
    {
        const std::lock_guard lock(guard);
        closing = true;
    }
    somethingWaits.notify_all();
}

int EntryRing::freePlace()
{
    finishDone();
    while (filledCount - finishedCount == static_cast<long>(states.size())) {
        if (!finishOldest())
            return -1;
    }
    return static_cast<int>(filledCount % static_cast<long>(states.size()));
}

void EntryRing::filled()
{
    const auto place = static_cast<std::size_t>(filledCount) % states.size();
    {
        const std::lock_guard lock(guard);
        ++filledCount;
        states[place] = State::waiting;
    }
    if (helpers.size() < mostHelpers)
        addHelper();
    somethingWaits.notify_one();
}

/// Without a further thread the others do the work.
void EntryRing::addHelper()
{
    try {
        helpers.emplace_back([this] { help(); });
    } catch (const std::system_error&) {
        mostHelpers = helpers.size();
    }
}

void EntryRing::complete()
{
    for (bool goesOn = true; goesOn && finishedCount < filledCount;)
        goesOn = finishOldest();
}

/// The place of the first entry that waits, now in work; -1 if none does. The guard is held.
int EntryRing::takeWaiting()
{
    for (; nextWaiting < filledCount; ++nextWaiting) {
        const auto place = static_cast<std::size_t>(nextWaiting) % states.size();
        if (states[place] == State::waiting) {
            states[place] = State::inWork;
            ++nextWaiting;
            return static_cast<int>(place);
        }
    }
    return -1;
}

void EntryRing::workOn(int place)
{
    search(place);
    {
        const std::lock_guard lock(guard);
        states[static_cast<std::size_t>(place)] = State::done;
    }
    somethingDone.notify_one();
}

/// False if no entry waited.
bool EntryRing::helpOnce()
{
    int place = -1;
    {
        const std::lock_guard lock(guard);
        place = takeWaiting();
    }
    if (place >= 0)
        workOn(place);
    return place >= 0;
}

/// Finishes the oldest entries as far as they are done.
void EntryRing::finishDone()
{
    while (finishedCount < filledCount) {
        const auto place = static_cast<std::size_t>(finishedCount) % states.size();
        {
            const std::lock_guard lock(guard);
            if (states[place] != State::done)
                return;
            states[place] = State::empty;
        }
        finish(static_cast<int>(place));
        ++finishedCount;
    }
}

/// Finishes one entry at least, and works on others while it is not done. False if the listener ends the scan.
bool EntryRing::finishOldest()
{
    const auto place = static_cast<std::size_t>(finishedCount) % states.size();
    const auto done = [&] { return states[place] == State::done; };
    for (bool ready = false; !ready;) {
        if (!tellProgress())
            return false;
        {
            const std::lock_guard lock(guard);
            ready = done();
        }
        if (!ready && !helpOnce()) {
            std::unique_lock lock(guard);
            ready = somethingDone.wait_for(lock, longestWait, done);
        }
    }
    finishDone();
    return true;
}

void EntryRing::help()
{
    for (;;) {
        int place = -1;
        {
            std::unique_lock lock(guard);
            somethingWaits.wait(lock, [&] { return closing || (place = takeWaiting()) >= 0; });
        }
        if (place < 0)
            return;
        workOn(place);
    }
}
