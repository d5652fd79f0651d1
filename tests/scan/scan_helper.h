// What the tests of the scans share: a record at Vienna, and the selection that a scan must leave alone.
#pragma once

#include "record_fields.h"
#include "scratch_dir.h"

#include <string>
#include <vector>

/// The number of files in the working directory.
int filesHere();

std::vector<std::string> linesOf(const std::string& name);

/// A record at Vienna, 2018-01-20 0h UTC, with "list.txt" as save file.
///
/// @param elements  a file of tests/data/elements; one of the working directory begins with "./"
/// @param fields    set besides
WinpData scanRecord(const std::string& elements, const std::string& fields = "");

/// Reads the satellite of a catalogue number from the element file of the record into a slot.
void selectSatellite(WinpData& in, int slot, int norad);

/// The catalogue numbers of the selected satellites.
std::vector<int> selectedNumbers(const WinpData& in);

/// Everything that a search promises to leave alone: the selected satellites and the settings of a search.
struct Selection
{
    explicit Selection(const WinpData& in);
    bool operator==(const Selection&) const = default;

    std::vector<std::string> names;
    std::vector<double> values;
};
