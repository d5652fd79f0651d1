#include "scan/save_lines.h"

#include "record/files.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <filesystem>
#include <system_error>

namespace {

bool isRegular(const char* name)
{
    std::error_code missing;
    return std::filesystem::is_regular_file(name, missing);
}

bool isSpecial(const char* name)
{
    std::error_code missing;
    return std::filesystem::exists(name, missing) && !isRegular(name);
}

bool writeTo(std::FILE* file, std::string_view content)
{
    return std::fwrite(content.data(), 1, content.size(), file) == content.size() && std::fflush(file) == 0;
}

}  // namespace

bool isHeading(std::string_view line)
{
    constexpr std::string_view marks = "mGY= ";
    return !line.empty() && marks.find(line[0]) != std::string_view::npos;
}

bool nextSaveLine(std::FILE* file, std::string& line)
{
    if (!readLine(file, line))
        return false;
    if (line.back() == '\n')
        line.pop_back();
    return true;
}

std::optional<std::string> contentOfFile(const char* name)
{
    const FilePtr file(isRegular(name) ? std::fopen(name, "r") : nullptr);
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

bool mayBeWritten(const char* name)
{
    const QFileInfo file(QFile::decodeName(name));
    return !file.isDir() && (file.exists() ? file : QFileInfo(file.absolutePath())).isWritable();
}

bool replaceFile(const char* name, std::string_view content)
{
    if (isSpecial(name)) {
        const FilePtr file(std::fopen(name, "w"));
        return file && writeTo(file.get(), content);
    }
    QSaveFile file(QFile::decodeName(name));
    file.setDirectWriteFallback(true);  // a file that may be written in a directory that may not
    return file.open(QIODevice::WriteOnly) &&
           file.write(content.data(), static_cast<qint64>(content.size())) == static_cast<qint64>(content.size()) &&
           file.commit();
}

bool writeNew(const char* name, std::string_view content)
{
    const FilePtr file(std::fopen(name, "w"));
    if (!file)
        return false;
    const bool whole = writeTo(file.get(), content);
    if (!whole)
        std::remove(name);
    return whole;
}
