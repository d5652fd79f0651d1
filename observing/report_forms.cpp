#include "observing/report_forms.h"

#include "observing/rde_block.h"

#include <algorithm>

namespace {

constexpr std::size_t mostComplaints = 100;

/// The line in front of the next line feed, which the text loses; without what a carriage return leaves.
std::string_view takeLine(std::string_view& text)
{
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

ReadLine readAnyLine(std::string_view line, RdeBlock& block)
{
    ReadLine read;
    if (block.take(line, read) == RdeBlock::Kind::ofTheForm)
        return read;
    read = readIodLine(line);
    const bool comment = !read.observation && read.complaint.empty();
    return comment ? readUkLine(line) : read;
}

WrittenReport oneLine(const Observation& observation, ReportForm form, int code)
{
    return form == ReportForm::iod ? iodLine(observation, code) : ukLine(observation, code);
}

}  // namespace

ReportContent readReports(std::string_view text)
{
    ReportContent content;
    RdeBlock block;
    for (int number = 1; !text.empty(); ++number) {
        ReadLine read = readAnyLine(takeLine(text), block);
        if (read.observation) {
            read.observation->line = number;
            content.observations.push_back(std::move(*read.observation));
        } else if (!read.complaint.empty() && content.complaints.size() < mostComplaints) {
            content.complaints.push_back("line " + std::to_string(number) + ": " + read.complaint);
        }
    }
    return content;
}

WrittenReport writeReports(std::span<const Observation> observations, ReportForm form, int code)
{
    if (form == ReportForm::rde)
        return rdeBlocks(observations);
    WrittenReport whole;
    for (const Observation& observation : observations) {
        const WrittenReport line = oneLine(observation, form, code);
        if (!line.complaint.empty())
            return {{}, line.complaint};
        whole.text += line.text;
    }
    return whole;
}
