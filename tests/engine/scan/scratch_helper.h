// A directory of its own for a test that writes files.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "app/record/winp_data.h"

/// An empty directory, the current one for the length of a scope, and gone afterwards.
class ScratchDirectory
{
public:
    ScratchDirectory();
    ~ScratchDirectory();
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    std::size_t files() const;

private:
    std::filesystem::path before, here;
};

void writeFile(const std::string& name, const std::string& content);
std::string contentOf(const std::string& name);
std::vector<std::string> linesOf(const std::string& name);

/// A record at Vienna, 2018-01-20 0h UTC, with a file of tests/data/elements and "list.txt" as save file.
WinpData scanRecord(const char* elements);

/// Reads the satellite of a catalogue number from the element file of the record into a slot.
bool selectSatellite(WinpData& in, int slot, int norad);

/// Everything that a search promises to leave alone: the selected satellites and the settings of a search.
struct Selection
{
    explicit Selection(const WinpData& in);
    bool operator==(const Selection&) const = default;

    std::vector<std::string> names;
    std::vector<double> elements;
    int prs, rlm;
    double sunel, maxdst;
};
