#include "record/files.h"

#include "record/text.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>

namespace {
bool isRegular(const char* name)
{
    std::error_code missing;
    return std::filesystem::is_regular_file(name, missing);
}

/// A pipe, a device or a folder.
bool isSpecial(const char* name)
{
    std::error_code missing;
    return std::filesystem::exists(name, missing) && !isRegular(name);
}

std::string reasonOf(int error)
{
    return std::generic_category().message(error);
}

/// Writes to the end of what is there, or to a device.
std::string writeDirectly(const char* name, std::string_view content)
{
    FilePtr file(std::fopen(name, "a"));
    if (!file)
        return reasonOf(errno);
    const bool whole =
        std::fwrite(content.data(), 1, content.size(), file.get()) == content.size() && std::fflush(file.get()) == 0;
    return whole ? std::string() : reasonOf(errno);
}
}  // namespace

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

std::optional<std::string> contentOfFile(const char* name)
{
    const FilePtr file = openForReading(name);
    if (!file)
        return std::nullopt;
    std::string content;
    char block[4096];
    for (std::size_t n; (n = std::fread(block, 1, sizeof block, file.get())) > 0;)
        content.append(block, n);
    if (std::ferror(file.get()))
        return std::nullopt;
    return content;
}

bool mayBeWritten(const char* name, std::string* why)
{
    const QFileInfo file(QFile::decodeName(name));
    const bool may = !file.isDir() && (file.exists() ? file : QFileInfo(file.absolutePath())).isWritable();
    if (!may && why)
        *why = "The file or its folder cannot be written to";
    return may;
}

std::string replaceFile(const char* name, std::string_view content)
{
    if (isSpecial(name))
        return writeDirectly(name, content);
    QSaveFile file(QFile::decodeName(name));
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString().toStdString();
    const auto size = static_cast<qint64>(content.size());
    // a full disk shortens the write, which the file itself does not take for a failure
    if (file.write(content.data(), size) != size || !file.flush())
        file.cancelWriting();
    const QString reason = file.errorString();
    return file.commit() ? std::string() : (reason.isEmpty() ? file.errorString() : reason).toStdString();
}

std::string addToFile(const char* name, std::string_view text)
{
    const std::optional<std::string> before = contentOfFile(name);
    if (!before && QFileInfo::exists(QFile::decodeName(name)))
        return writeDirectly(name, text);  // what cannot be read can still be added to
    return replaceFile(name, before.value_or(std::string()).append(text));
}

MemoryFile::MemoryFile() : file(::open_memstream(&bytes, &size))
{
    Q_CHECK_PTR(file);
}

MemoryFile::~MemoryFile()
{
    std::fclose(file);
    std::free(bytes);
}

std::string_view MemoryFile::text() const
{
    std::fflush(file);
    return {bytes, size};
}

std::FILE* outptr = nullptr;

ReportFile::ReportFile(const char* name, const char* mode) : fileName(name), adds(mode[0] == 'a')
{
    outptr = memory.stream();
}

std::string ReportFile::save() const
{
    return adds ? addToFile(fileName.c_str(), memory.text()) : replaceFile(fileName.c_str(), memory.text());
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
