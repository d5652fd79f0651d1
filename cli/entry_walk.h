// The satellites of the element files that a request names.
#pragma once

#include "cli/channels.h"
#include "cli/session.h"
#include "elements/entry.h"
#include "exports/lists.h"
#include "scan/entry_task.h"

#include <functional>
#include <string>
#include <vector>

/// Which satellites are wanted: starts of names, catalogue numbers, designators; all of them without any.
class Wanted
{
public:
    explicit Wanted(const std::vector<std::string>& texts);

    /// Whether the satellite is one of them; takes note of those that were there.
    bool fits(const SatelliteName& satellite);

    /// One line for each that was not there, with the nearest name.
    std::string missing() const;

private:
    struct Which
    {
        std::string text;
        bool seen = false;
        std::string nearest;  // of the names that did not fit
    };

    std::vector<Which> list;
};

/// An entry in work, with the rows that it gives.
struct EntryRows : EntryRecords
{
    std::vector<std::pair<double, ListRow>> rows;  // with the times they are sorted by
};

/// A walk through the files of a session. Each satellite stands in slot 0 of a record of its own.
class EntryWalk
{
public:
    EntryWalk(const Session& session, const Channels& channels, std::function<bool()> full);
    ~EntryWalk();
    EntryWalk(const EntryWalk&) = delete;
    EntryWalk& operator=(const EntryWalk&) = delete;

    /// Searches the entries on all threads and finishes them on this one, in the order of the files.
    Problem shared(const WinpData& record, const std::function<void(EntryRows&)>& search,
                   const std::function<void(const EntryRows&)>& finish);

    /// Takes one after the other on one record, on this thread.
    Problem oneByOne(const WinpData& record, const std::function<void(WinpData&)>& take);

    /// Takes one after the other as it stands in its file, without filters and adjustment.
    Problem asRead(const std::function<void(const Entry&, const SatelliteName&)>& take);

    /// The wanted satellites that no file had, as lines.
    std::string missing() const { return wanted.missing(); }

private:
    Problem eachFile(const std::function<void(std::FILE*)>& walk);

    const Session& session;
    std::function<bool()> full;
    Wanted wanted;
    long entries = 0;
    bool shows = false;
    const Channels& channels;
};
