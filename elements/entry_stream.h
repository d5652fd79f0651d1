// Entries as values in a stream in memory.
#pragma once

#include "elements/entry.h"

#include <cstdio>
#include <string>

/// Appends the bytes of an entry.
void appendEntry(std::string& bytes, const Entry& entry);

/// Whether an entry stands where the stream is. Only a stream in memory has any: the same bytes in a file are none.
bool entryFollows(std::FILE* stream);

/// Reads the next entry; false at the end.
bool readEntry(std::FILE* stream, Entry& entry);
