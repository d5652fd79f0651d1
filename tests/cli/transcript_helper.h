// Runs of the command as texts: what is typed, what comes out, and the status.
#pragma once

#include "cli/channels.h"

#include <string>
#include <vector>

/// A command and what belongs to it:
///
///     $ vorlix passes --limit 2
///     the lines of its answer
///     ! a message
///     [1]
///
/// A status of 0 is not written. A line "..." in the answer stands for any lines.
struct Transcript
{
    std::string command;
    std::string expected;
};

/// The transcripts of a text; in Markdown those between fences.
std::vector<Transcript> transcriptsOf(const std::string& text);

/// What a command line gives, in the same form.
std::string outcomeOf(const std::string& command, const QString& home);

/// Whether an outcome is the expected one, dots included.
bool sameOutcome(const std::string& outcome, const std::string& expected);

/// A run within this program: the outputs, and the status.
struct CommandRun
{
    std::string out, err;
    int status;
};
CommandRun runWords(const std::vector<std::string>& words, const QString& home, std::FILE* input = nullptr);

/// The words of a line, as a shell takes them apart.
std::vector<std::string> wordsOfLine(const std::string& line);
