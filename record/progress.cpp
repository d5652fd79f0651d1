#include "record/progress.h"

#include "astro/calendar.h"
#include "record/keep.h"
#include "record/numbers.h"

#include <atomic>
#include <chrono>
#include <cmath>
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

bool due()
{
    return onTellingThread() && depth > 0 && told && !inListener &&
           std::chrono::steady_clock::now() - lastTold >= interval;
}

bool tell(std::string_view what)
{
    const Keep once(inListener, true);
    const bool goesOn = told(what);
    lastTold = std::chrono::steady_clock::now();
    ended = !goesOn;
    return goesOn;
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
    return due() ? tell(what) : true;
}

bool tellProgress(std::string_view what, double reached)
{
    constexpr std::size_t mostCharacters = 100;
    constexpr double mostDays = 1e7;  // beyond them a date says nothing
    if (calculationEnded())
        return false;
    if (!due())
        return true;
    if (!(std::abs(reached) < mostDays))
        return tell(what);
    int day = 0, month = 0, year = 0;
    double hours = 0;
    caldat(reached, day, month, year, hours);
    char text[mostCharacters + 32];
    TextWriter line(text);
    line.add(what.substr(0, mostCharacters)).addFormatted("  %04i-%02i-%02i", year, month, day);
    return tell(line.text());
}

bool calculationEnded()
{
    return ended.load(std::memory_order_relaxed);
}
