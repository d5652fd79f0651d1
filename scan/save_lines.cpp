#include "scan/save_lines.h"

#include "record/files.h"
#include "record/text.h"
#include "record/winp_data.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <vector>

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

/// A file of this content; none is left if that fails.
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

constexpr const char* sortFileName = "vorlix.tmp";
constexpr std::size_t shortestLine = 2;  // line feeds not counted
constexpr std::size_t linesPerGroup = 5;
constexpr char noMonth = 'X';

/// A line with the key it is sorted by.
struct PassLine
{
    std::array<char, 18> key{};
    std::string_view text;
};

struct SaveFileLines
{
    std::vector<std::string_view> headings;
    std::vector<PassLine> passes;
};

SaveFileLines linesOf(std::string_view content)
{
    SaveFileLines lines;
    while (!content.empty()) {
        const std::string_view text = content.substr(0, content.find('\n'));
        content.remove_prefix(std::min(text.size() + 1, content.size()));
        if (text.size() < shortestLine)
            continue;
        if (isHeading(text)) {
            lines.headings.push_back(text);
        } else if (text.size() >= passStampLength) {
            PassLine line;
            CpMMM(line.key.data(), std::string(text.substr(0, passStampLength)).c_str());
            line.text = text;
            lines.passes.push_back(line);
        }
    }
    return lines;
}

/// By month, day and time; lines without a month keep their order, after all others.
bool earlier(const PassLine& one, const PassLine& other)
{
    if (one.key[0] != other.key[0] || one.key[0] == noMonth)
        return one.key[0] < other.key[0];
    return std::memcmp(one.key.data(), other.key.data(), one.key.size()) < 0;
}

/// The text of a save file sorted; unchanged with fewer than two passes.
std::string sorted(std::string content)
{
    SaveFileLines lines = linesOf(content);
    if (lines.passes.size() < 2)
        return content;
    std::stable_sort(lines.passes.begin(), lines.passes.end(), earlier);
    std::string text;
    text.reserve(content.size());
    for (const std::string_view heading : lines.headings)
        (text += heading) += '\n';
    for (std::size_t i = 0; i < lines.passes.size(); ++i) {
        if (i % linesPerGroup == 0)
            text += '\n';
        (text += lines.passes[i].text) += '\n';
    }
    return text;
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

bool replaceSorted(const char* name, const std::string& content)
{
    std::error_code missing;
    if (std::filesystem::equivalent(name, sortFileName, missing))
        return replaceFile(name, content);  // the list itself would be overwritten
    const std::string inOrder = sorted(content);
    const bool waits = inOrder != content && writeNew(sortFileName, inOrder);
    const bool replaced = replaceFile(name, waits ? inOrder : content);
    if (waits)
        std::remove(sortFileName);
    return replaced;
}

void SortAos(WinpData* in)
{
    const std::optional<std::string> content = contentOfFile(in->savename);
    if (content && sorted(*content) != *content)
        replaceSorted(in->savename, *content);
}
