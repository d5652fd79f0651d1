#include "engine/scan/save_lines.h"

#include "app/record/files.h"

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
