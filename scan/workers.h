// The threads that share the entries of a whole-file scan.
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

/// The number of threads that scans share their entries among, the calling one included; at first that of the cores.
int scanWorkers();

/// Sets it; 0 stands for the cores of the machine. Not while a scan runs.
void setScanWorkers(int count);

/// Numbered places through which the entries of a scan pass in a ring: the calling thread fills and finishes them in
/// the order of the file, and between the two any thread works on them.
class EntryRing
{
public:
    using Work = std::function<void(int place)>;

    /// @param search  works on a place, on any thread
    /// @param finish  called on the calling thread, in the order of filling
    EntryRing(int places, Work search, Work finish);
    /// Waits for the entries in work; what they found is dropped.
    ~EntryRing();
    EntryRing(const EntryRing&) = delete;
    EntryRing& operator=(const EntryRing&) = delete;

    /// Places that a ring for the present number of workers needs.
    static int placesNeeded();

    /// The next place to fill. Finishes what is done, and works on entries itself while all places are taken.
    ///
    /// @return  -1 if the listener has ended the scan
    int freePlace();

    /// Says that the place of `freePlace` is filled and may be worked on.
    void filled();

    /// Works until all entries are finished, or the listener ends the scan.
    void complete();

private:
    enum class State
    {
        empty,
        waiting,
        inWork,
        done
    };

    /// Starts a thread, if one can be had.
    void addHelper();
    /// The first place that waits, from now on in work; -1 for none. With the guard locked.
    int takeWaiting();
    /// Searches a place and says so.
    void workOn(int place);
    /// Works on one place; false if none waited.
    bool helpOnce();
    /// Finishes the oldest places as far as they are done.
    void finishDone();
    /// Finishes one place at least; false if the listener ends the scan.
    bool finishOldest();
    /// What a helping thread does.
    void help();

    const Work search, finish;
    std::size_t mostHelpers;
    std::mutex guard;  // of all that follows but the counts, which belong to the calling thread
    std::condition_variable somethingWaits, somethingDone;
    std::vector<State> states;
    long nextWaiting = 0;  // number of the first entry that may still wait
    long filledCount = 0;
    long finishedCount = 0;
    bool closing = false;
    std::vector<std::jthread> helpers;
};
