// The command without a window.
#pragma once

#include "cli/channels.h"

#include <string>
#include <vector>

/// Whether the words behind the name of the program are for the command, and not for the window. Words that begin with
/// a dash are the window's, but for those that ask for help or version.
bool isCommand(const std::vector<std::string>& words);

/// Answers a command line; what comes out goes through the channels.
///
/// @return  the exit status, see `status`
int runCommand(const std::vector<std::string>& words, const Channels& channels);

/// The channels of a process: standard input, output and error, and the folder of its executable.
Channels processChannels(const QString& home);
