// Several lines of a report at once.
#pragma once

#include <initializer_list>

struct WoutData;

/// Appends running text lines; an empty text stands for a blank line.
void putLines(WoutData* out, std::initializer_list<const char*> lines);
