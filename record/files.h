// Open files and their owners.
#pragma once

#include "record/winp_data.h"

#include <cstdio>
#include <memory>
#include <string>

struct CloseFile
{
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using FilePtr = std::unique_ptr<std::FILE, CloseFile>;

/// Opens a file for reading; null also for a directory, which fopen would take, and for pipes and devices, which may
/// have no end.
FilePtr openForReading(const char* name);

/// Reads a line of any length, with its line feed if it has one.
///
/// @return false if nothing was left to read
bool readLine(std::FILE* file, std::string& line);

/// The open report file, or null. Set only while a ReportFile lives.
extern std::FILE* outptr;

/// Owner of the one report file that is open; `outptr` shows it to the writers.
class ReportFile
{
public:
    ReportFile(const char* name, const char* mode);
    ~ReportFile();
    ReportFile(const ReportFile&) = delete;
    ReportFile& operator=(const ReportFile&) = delete;

    explicit operator bool() const { return static_cast<bool>(file); }

private:
    FilePtr file;
};

/// The mode of the next write into the save file: "w" if `newsave` is set, else "a". Clears `newsave`, also when the
/// open that follows fails.
const char* takeSaveMode(WinpData* in);
