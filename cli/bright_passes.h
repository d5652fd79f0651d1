// Passes with their magnitudes, for the task passes.
#pragma once

#include "cli/entry_walk.h"
#include "engine/brightness.h"

#include <atomic>

struct Pass;

/// Makes rows of the passes that are bright enough and counts the others. Threads may take passes at the same time.
class BrightPasses
{
public:
    explicit BrightPasses(const Session& session);

    /// Adds the row of a pass in slot 0 to those of its entry, unless it is left out.
    void take(EntryRows& entry, const Pass& pass);

    /// One line if the list of magnitudes cannot be read.
    void tellUnread(const Channels& channels) const;

    /// One line on what was left out, if anything was.
    void tellLeftOut(const Channels& channels) const;

private:
    const Request& request;
    BrightnessBook book;
    std::string unread;
    double faintest;
    std::atomic<long> fainter = 0, hidden = 0, unknown = 0;
};
