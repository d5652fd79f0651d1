// Opening an element file of any form.
#pragma once

#include "record/files.h"

/// Opens an element file for `tleread`. One of Two Line Elements is the file itself, as `openForReading` gives it. Of
/// a file of Orbit Mean-Elements Messages, which its first characters tell, the entries come in a stream in memory,
/// in the order and number of the messages, each read when it is asked for; it can be rewound like a file.
///
/// @return null if the file cannot be opened
FilePtr openElementFile(const char* name);
