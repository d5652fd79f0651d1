// The passes or events of one entry of an element file, as lines of the save file.
#pragma once

#include "engine/pass_search.h"
#include "record/winp_data.h"

#include <string>
#include <vector>

class TextWriter;

/// Semi-major axes of operational Iridium satellites: whether that of slot `isat` lies among them.
bool operationalOrbit(const WinpData& in, int isat);

/// What a search of one entry gives.
struct EntryLines
{
    std::string text;               // begins with an empty line, if there are any
    std::vector<WinpData> joining;  // the record at each hit that joins the selection; not more than fit
};

/// The search of a scan, the same for every entry.
class EntrySearch
{
public:
    /// @param in        the record of the scan
    /// @param limits    as `listLimits` has them
    /// @param thorough  see `PassQuery`
    EntrySearch(WinpData* in, const PassLimits& limits, bool thorough = false);

    /// All lines of the satellite in the prime slot; with solar panel flares in a second round as well. Works on
    /// `satpos`, and changes `in` as `nextpass` does; `irsolp` is off afterwards.
    ///
    /// @param recordsRead  see `PassQuery`
    EntryLines search(WinpData* in, bool recordsRead = true) const;

    /// Whether what an entry gives depends on that entry alone, so that entries may be searched in any order.
    ///
    /// Not so where the engine continues with what it left in the record: the mirror loop keeps the best magnitude, an
    /// unknown surface is a result, and the angles of a mirror are those of the satellite before.
    static bool entriesIndependent(const WinpData& in);

private:
    /// One search from start to end.
    void round(WinpData* in, bool recordsRead, EntryLines& lines) const;
    /// Appends an event; false if the automatic width drops it.
    bool addEvent(TextWriter& line, WinpData* in, const Pass& pass) const;
    /// Ends a line with the name and keeps it.
    void addLine(TextWriter& line, const WinpData& in, EntryLines& lines) const;

    PassLimits limits;
    bool thorough;
    bool automatic;
    bool hitsJoinSelection;
    double start, end;
};
