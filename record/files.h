// Open files and their owners.
#pragma once

#include "record/winp_data.h"

#include <cstddef>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

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

/// All that a file holds; nothing for a pipe or a device, which cannot be read twice.
std::optional<std::string> contentOfFile(const char* name);

/// Whether `replaceFile` can be expected to succeed, for a look before a long calculation.
///
/// @param why  receives a reason if not
bool mayBeWritten(const char* name, std::string* why = nullptr);

/// Gives a file another content. It holds the old one until the new one is whole on the disk, also if the program ends
/// in between; a symbolic link goes on pointing to it. Pipes and devices are written to directly, and so is a file in a
/// folder that takes no new ones.
///
/// @return why nothing was written, for a reader; empty if all was
[[nodiscard]] std::string replaceFile(const char* name, std::string_view content);

/// Adds to the end of a file, or makes it, with the same promise.
[[nodiscard]] std::string addToFile(const char* name, std::string_view text);

/// A stream into memory, for writers that take a file.
class MemoryFile
{
public:
    /// An empty stream.
    MemoryFile();
    /// Closes the stream.
    ~MemoryFile();
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::FILE* stream() const { return file; }

    /// What has been written so far.
    std::string_view text() const;

private:
    char* bytes = nullptr;
    std::size_t size = 0;
    std::FILE* file;
};

/// The stream that takes the present report, or null. Set only while a ReportFile lives.
extern std::FILE* outptr;

/// A report on its way into a file; `outptr` shows its stream to the writers. The file itself changes in `save`.
class ReportFile
{
public:
    /// @param mode  "w" replaces the file, "a" adds to it
    ReportFile(const char* name, const char* mode);
    /// Takes `outptr` back; nothing is written.
    ~ReportFile();
    ReportFile(const ReportFile&) = delete;
    ReportFile& operator=(const ReportFile&) = delete;

    /// Brings what has been written into the file. @return  as of `replaceFile`
    [[nodiscard]] std::string save() const;

private:
    MemoryFile memory;
    std::string fileName;
    bool adds;
};

/// The mode of the next write into the save file: "w" if `newsave` is set, else "a". Clears `newsave`, also when the
/// write that follows fails.
const char* takeSaveMode(WinpData* in);
