// Who is told of a long calculation while it runs, and may end it.
#pragma once

#include <functional>
#include <string_view>

/// Is told what is in work, a satellite's name for instance, or nothing new by an empty text.
///
/// @return  whether the calculation shall go on
using ProgressListener = std::function<bool(std::string_view what)>;

/// Sets who is told; nobody with an empty function. Only the thread that calls this tells.
void setProgressListener(ProgressListener listener);

/// What a calculation returns that the listener has ended. Records and files are then as they were before.
constexpr int calculationCancelled = -2;

/// A calculation that may be long, as a scope: only within one is the listener told.
///
/// One made within another is a part of it: the listener ends both. On a thread that does not tell it has no effect.
class LongCalculation
{
public:
    /// On the thread that tells, the scope begins.
    LongCalculation();
    /// Its end lets the next one run.
    ~LongCalculation();
    LongCalculation(const LongCalculation&) = delete;
    LongCalculation& operator=(const LongCalculation&) = delete;

private:
    bool counted;
};

/// Tells the listener if the last time is 0.15 s ago. For inner loops of any floor on any thread, where a round takes
/// some microseconds or more: a call costs up to 40 ns.
///
/// @return  false from the moment when the listener ended the calculation to the end of its scope, on all threads
bool tellProgress(std::string_view what = {});

/// The same with the date that the calculation has reached, MJD; it stands after `what`, which is cut at 100
/// characters.
bool tellProgress(std::string_view what, double reached);

/// Whether the listener has ended the calculation of the present scope; false outside of one.
bool calculationEnded();
