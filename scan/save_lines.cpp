#include "scan/save_lines.h"

#include "record/files.h"
#include "record/text.h"
#include "record/winp_data.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <vector>

namespace {

/// A file of this content; none is left if that fails.
bool writeNew(const char* name, std::string_view content)
{
    const FilePtr file(std::fopen(name, "w"));
    if (!file)
        return false;
    const bool whole =
        std::fwrite(content.data(), 1, content.size(), file.get()) == content.size() && std::fflush(file.get()) == 0;
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

SaveFileLines splitSaveFile(std::string_view content)
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
    SaveFileLines lines = splitSaveFile(content);
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

std::string replaceSorted(const char* name, const std::string& content)
{
    std::error_code missing;
    if (std::filesystem::equivalent(name, sortFileName, missing))
        return replaceFile(name, content);  // the list itself would be overwritten
    const std::string inOrder = sorted(content);
    const bool waits = inOrder != content && writeNew(sortFileName, inOrder);
    std::string reason = replaceFile(name, waits ? inOrder : content);
    if (waits)
        std::remove(sortFileName);
    return reason;
}

void SortAos(WinpData* in)
{
    const std::optional<std::string> content = contentOfFile(in->savename);
    if (content && sorted(*content) != *content)
        static_cast<void>(replaceSorted(in->savename, *content));
}
