#include "record/files.h"

#include <sys/stat.h>

FilePtr openForReading(const char* name)
{
    // looked at before it is opened: that would wait for the other end of a pipe
    struct stat status
    {};
    const bool isRegular = ::stat(name, &status) == 0 && S_ISREG(status.st_mode);
    return FilePtr(isRegular ? std::fopen(name, "r") : nullptr);
}

bool readLine(std::FILE* file, std::string& line)
{
    line.clear();
    int c = std::getc(file);
    for (; c != EOF && c != '\n'; c = std::getc(file))
        line.push_back(static_cast<char>(c));
    if (c == '\n')
        line.push_back('\n');
    return !line.empty();
}

std::FILE* outptr = nullptr;

ReportFile::ReportFile(const char* name, const char* mode) : file(std::fopen(name, mode))
{
    outptr = file.get();
}

ReportFile::~ReportFile()
{
    outptr = nullptr;
}

const char* takeSaveMode(WinpData* in)
{
    const char* const mode = in->newsave ? "w" : "a";
    in->newsave = 0;
    return mode;
}
