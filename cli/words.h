// The words of the command: its tasks, its options, and their help.
#pragma once

#include "cli/request.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// A task of the command.
struct TaskWords
{
    Task task;
    const char* name;
    const char* arguments;  // behind the name; empty for none
    const char* does;
    const char* forms;        // separated by blanks, the default first
    const char* examples[2];  // without "vorlix"
};

/// An option with the tasks that take it, as bits.
struct OptionWords
{
    const char* name;
    const char* value;  // what stands behind it; null for a switch
    unsigned tasks;
    const char* does;
};

constexpr unsigned bitOf(Task task)
{
    return 1u << static_cast<unsigned>(task);
}

std::span<const TaskWords> allTasks();
std::span<const OptionWords> allOptions();
const TaskWords& wordsOf(Task task);

/// The words of a text with blanks between them.
std::vector<std::string> splitWords(std::string_view text);

/// A word in quotes, on one line and of a length that leaves the line readable.
std::string inQuotes(const std::string& word);

/// "a, b or c".
std::string listed(const std::vector<std::string>& words);

/// The candidate that takes the fewest letters to be changed, added or left out; empty without candidates.
std::string nearestOf(std::string_view word, const std::vector<std::string>& candidates);

std::string commandHelp();
std::string taskHelp(const TaskWords& task);
