// record/leap_table.h: which table of leap seconds holds.
#pragma once

#include "astro/leap_seconds.h"

#include <QString>

/// The table in use: that of leap-seconds.list beside vorlix.ini, if it can be read and its last leap second is not older
/// than the last one of the table delivered with the program; else the latter. Read once, at the first call.
const LeapSeconds& leapSeconds();

/// The same for a file of another name, read anew.
LeapSeconds leapSecondsWith(const QString& file);
