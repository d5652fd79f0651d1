// The entries of an element file one by one, as values.
#pragma once

#include "elements/entry.h"
#include "elements/entry_lines.h"

#include <cstdio>

/// Reads the entries of a file of any form as they stand in it: neither filtered nor adjusted, names in front of two
/// lines included. What could not be read whole, or is refused, comes as well.
class EntryReader
{
public:
    /// @param file  as `openElementFile` gives it, read from where it stands; the caller's
    explicit EntryReader(std::FILE* file);

    /// The next entry; false at the end.
    bool next(Entry& entry);

private:
    std::FILE* file;
    bool messages;
};
