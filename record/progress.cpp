#include "record/progress.h"

#include "record/keep.h"

#include <atomic>
#include <chrono>
#include <thread>
#include <utility>

namespace {

constexpr auto interval = std::chrono::milliseconds(150);

std::atomic<std::thread::id> telling;  // the thread that tells
std::atomic<bool> ended = false;

// of the telling thread alone
ProgressListener told;
std::chrono::steady_clock::time_point lastTold;
int depth = 0;  // of the scopes
bool inListener = false;

bool onTellingThread()
{
    return telling.load(std::memory_order_relaxed) == std::this_thread::get_id();
}

}  // namespace

void setProgressListener(ProgressListener listener)
{
    telling = std::this_thread::get_id();
    told = std::move(listener);
    lastTold = {};
}

LongCalculation::LongCalculation() : counted(onTellingThread())
{
    if (counted)
        ++depth;
}

LongCalculation::~LongCalculation()
{
    if (counted && --depth == 0)
        ended = false;
}

bool tellProgress(std::string_view what)
{
    if (calculationEnded())
        return false;
    if (!onTellingThread() || depth == 0 || !told || inListener)
        return true;
    const auto now = std::chrono::steady_clock::now();
    if (now - lastTold < interval)
        return true;
    const Keep once(inListener, true);
    const bool goesOn = told(what);
    lastTold = std::chrono::steady_clock::now();
    ended = !goesOn;
    return goesOn;
}

bool calculationEnded()
{
    return ended.load(std::memory_order_relaxed);
}
